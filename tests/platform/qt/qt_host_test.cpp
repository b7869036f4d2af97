#include "platform/qt/qt_host.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <stdexcept>

#include "platform/ui/application.h"
#include "platform/ui/slider.h"
#include "platform/ui/window.h"

// An exception that passes through the toolkit on its way out leaves one of its guards behind. The
// name is the sanitizer's, which finds it only if it is exported.
extern "C" __attribute__((visibility("default"))) const char*
__lsan_default_suppressions() {  // NOLINT
  return "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n";
}

namespace morvantile {
namespace {

// A process has one host; it has to go before the static objects of the toolkit do.
class HostOfAllTests : public testing::Environment {
 public:
  static std::unique_ptr<QtHost> host;

  void SetUp() override {
    static std::string name = "test";
    static std::string rightToLeft = "-reverse";
    static std::array<char*, 3> arguments = {name.data(), rightToLeft.data(), nullptr};
    static StayBehind stayBehind;
    static SingleInstance instance;
    host = std::make_unique<QtHost>(2, arguments.data(), stayBehind, instance);
    InstallHost(host.get());
  }
  void TearDown() override {
    InstallHost(nullptr);
    host = nullptr;
  }
};

std::unique_ptr<QtHost> HostOfAllTests::host;
const testing::Environment* const kHost = testing::AddGlobalTestEnvironment(new HostOfAllTests);

class Script : public Application {
 public:
  std::function<void()> open;
  int closed = 0;
  void Event_Open() override { open(); }
  void Event_Close() override { ++closed; }
};

// A window with a slider and two buttons whose events are written down.
class Probe : public Window {
 public:
  std::string log;
  std::function<void(Slider&)> changed = [this](Slider& slider) {
    log += std::to_string(slider.Value()) + " ";
  };

 protected:
  void CreateControls() override {
    SetWidth(300);
    SetHeight(100);
    const Ref<Slider> slider = AddControl<Slider>("Slider", 10, 10, 200, 20);
    slider->Minimum = 1;
    slider->PageStep = 20;
    slider->LiveScroll = true;
    slider->TabIndex = 3;
    slider->ValueChanged = [this](Slider& moved) { changed(moved); };
    AddButton("OK", 2)->Default = true;
    AddButton("Cancel", 1)->Cancel = true;
    InitialFocus = slider;
  }
  void Event_Open() override { log += "open "; }
  void Event_Close() override { log += "close"; }

 private:
  Ref<PushButton> AddButton(const std::string& caption, int tabIndex) {
    Ref<PushButton> button = AddControl<PushButton>(caption, 10 * tabIndex, 50, 80, 20);
    button->TabIndex = tabIndex;
    button->Action = [this, caption](PushButton&) {
      log += caption + " ";
      Close();
    };
    return button;
  }
};

// Shows the window and presses the keys as soon as it is active; returns what it wrote down.
std::string LogAfter(const Ref<Probe>& probe, const std::vector<Qt::Key>& keys) {
  probe->Build();
  QTimer::singleShot(0, [keys] {
    QWidget* shown = QApplication::activeModalWidget();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown));
    for (const Qt::Key key : keys) {
      QWidget* target = QApplication::focusWidget();
      QTest::keyClick(target == nullptr ? shown : target, key);
    }
  });
  HostOfAllTests::host->ShowModal(probe);
  return probe->log;
}

TEST(QtHost, KeysReachTheControlsAndTheDefaultAndCancelButton) {
  // Tab goes by TabIndex, and from the last control to the first; Return is for the default button,
  // wherever the focus is.
  using Keys = std::vector<Qt::Key>;
  for (const auto& [keys, log] :
       {std::pair{Keys{Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_Return},
                  "open 2 22 21 OK close"},
        {Keys{Qt::Key_Escape}, "open Cancel close"},
        {Keys{Qt::Key_Tab, Qt::Key_Space}, "open Cancel close"},
        {Keys{Qt::Key_Tab, Qt::Key_Return}, "open OK close"}}) {
    EXPECT_EQ(LogAfter(New<Probe>(), keys), log);
  }
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight) << "on every desktop";
}

TEST(QtHost, ARunEndsByQuitWithItsStatusOrByAnExceptionInAHandler) {
  const Ref<Script> script = New<Script>();
  script->open = [] { Quit(3); };
  EXPECT_EQ(HostOfAllTests::host->Run(*script), 3);
  EXPECT_EQ(script->closed, 1);
  script->open = [] {
    const Ref<Probe> probe = New<Probe>();
    probe->changed = [](Slider&) { throw std::runtime_error("escaped"); };
    LogAfter(probe, {Qt::Key_Right});
    ADD_FAILURE() << "went on after an exception";
  };
  EXPECT_THROW(HostOfAllTests::host->Run(*script), std::runtime_error);
  EXPECT_EQ(script->closed, 1);
}

}  // namespace
}  // namespace morvantile
