#include "dialogs/info_window.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/ui/application.h"
#include "tests/installed_host.h"

namespace morvantile {
namespace {

TEST(InfoWindowTest, IsOneInTheMiddleThatAClickOnTheAddressLeavesOpenAndAnyKeyCloses) {
  InstalledHost host;
  const Ref<InfoWindow> window = InfoWindow::Instance();
  EXPECT_EQ(InfoWindow::Instance(), window);
  EXPECT_EQ(window->Label1()->Text(), "Morvantile");
  EXPECT_EQ(window->Label3()->Text(), "Version " + Application::Version());
  EXPECT_EQ(std::pair(window->Left(), window->Top()), std::pair(561, 326));
  host.scripts.emplace_back([&](Window& shown) {
    window->URLLabel()->UserMouseDown(3, 3);
    shown.UserDeactivated();
    EXPECT_FALSE(shown.Closed());
    shown.UserKeyDown("");
    EXPECT_TRUE(shown.Closed());
  });
  window->ShowModal();
  EXPECT_EQ(host.addresses, std::vector<std::string>{window->URLLabel()->Text()});
  const Ref<InfoWindow> next = InfoWindow::Instance();
  EXPECT_FALSE(next == window || next->Closed());
  next->Close();
}

TEST(PrefixedLabel, ASuffixReplacesTheOneBeforeItByLengthAlone) {
  const Ref<PrefixedLabel> label = New<PrefixedLabel>();
  label->SetText("Größe: ");
  label->Event_Open();
  label->SetSuffix("640 x 480");
  label->SetSuffix("6 x 0");
  EXPECT_EQ(label->Text() + label->Suffix(), "Größe: 6 x 06 x 0");
  label->SetText("seven..more");
  EXPECT_EQ(label->Suffix(), "more");
}

}  // namespace
}  // namespace morvantile
