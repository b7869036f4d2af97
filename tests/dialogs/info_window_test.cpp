#include "dialogs/info_window.h"

#include <gtest/gtest.h>

#include "platform/ui/application.h"
#include "platform/ui/headless_host.h"

namespace morvantile {
namespace {

class InfoWindowTest : public testing::Test {
 protected:
  InfoWindowTest() { InstallHost(&host); }
  ~InfoWindowTest() override { InstallHost(nullptr); }

  HeadlessHost host;
};

TEST_F(InfoWindowTest, ShowsTheProgramsOwnVersion) {
  const Ref<InfoWindow> window = InfoWindow::Instance();
  EXPECT_EQ(window->Label1()->Text(), "Morvantile");
  EXPECT_EQ(window->Label3()->Text(), "Version " + Application::Version());
  window->Close();
}

TEST_F(InfoWindowTest, StandsInTheMiddleOfTheFirstScreen) {
  const Ref<InfoWindow> window = InfoWindow::Instance();
  EXPECT_EQ(window->Left(), 561);
  EXPECT_EQ(window->Top(), 326);
  window->Close();
}

TEST_F(InfoWindowTest, AClickOnTheAddressOpensItAndTheWindowStays) {
  const Ref<InfoWindow> window = InfoWindow::Instance();
  host.scripts.emplace_back([&](Window& shown) {
    window->URLLabel()->UserMouseDown(3, 3);
    shown.UserDeactivated();
    EXPECT_FALSE(shown.Closed());
  });
  window->ShowModal();
  EXPECT_EQ(host.addresses, std::vector<std::string>{window->URLLabel()->Text()});
}

TEST_F(InfoWindowTest, AnyKeyClosesItAndTheNextPressMakesANewOne) {
  const Ref<InfoWindow> first = InfoWindow::Instance();
  EXPECT_EQ(InfoWindow::Instance(), first);
  host.scripts.emplace_back([](Window& shown) {
    shown.UserKeyDown("");
    EXPECT_TRUE(shown.Closed());
  });
  first->ShowModal();
  const Ref<InfoWindow> second = InfoWindow::Instance();
  EXPECT_FALSE(second == first);
  EXPECT_FALSE(second->Closed());
  second->Close();
}

}  // namespace
}  // namespace morvantile
