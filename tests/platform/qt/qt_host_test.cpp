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
#include "platform/ui/controls/slider.h"
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
  Ref<Slider> slider;

 protected:
  void CreateControls() override {
    SetWidth(300);
    SetHeight(100);
    slider = AddControl<Slider>("Slider", 10, 10, 200, 20);
    slider->Minimum = 1;
    slider->PageStep = 20;
    slider->LiveScroll = true;
    slider->TabIndex = 3;
    slider->ValueChanged = [this](Slider& changed) {
      log += std::to_string(changed.Value()) + " ";
    };
    AddButton("OK", 2)->Default = true;
    AddButton("Cancel", 1)->Cancel = true;
    InitialFocus = slider;
  }
  void Event_Open() override { log += "open "; }
  void Event_Close() override { log += "close "; }
  void Event_Deactivate() override { log += "deactivate "; }

 private:
  Ref<PushButton> AddButton(const std::string& caption, int tabIndex) {
    Ref<PushButton> button = AddControl<PushButton>(caption, 10 * tabIndex, 50, 80, 20);
    button->Caption = caption;
    button->TabIndex = tabIndex;
    button->Action = [this](PushButton& pressed) {
      log += pressed.Caption + " ";
      Close();
    };
    return button;
  }
};

// Presses the keys as soon as a window is active.
void PressWhenActive(const std::vector<Qt::Key>& keys) {
  QTimer::singleShot(0, [keys] {
    QWidget* shown = QApplication::activeModalWidget();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown));
    for (const Qt::Key key : keys) {
      QWidget* target = QApplication::focusWidget();
      QTest::keyClick(target == nullptr ? shown : target, key);
    }
  });
}

// Shows a new Probe and presses the keys; returns what it wrote down.
std::string LogAfter(const std::vector<Qt::Key>& keys) {
  const Ref<Probe> probe = New<Probe>();
  probe->Build();
  PressWhenActive(keys);
  HostOfAllTests::host->ShowModal(probe);
  return probe->log;
}

TEST(QtHost, KeysReachTheControlsAndTheDefaultAndCancelButton) {
  EXPECT_EQ(LogAfter({Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Left, Qt::Key_Return}),
            "open 2 22 21 OK close ");
  EXPECT_EQ(LogAfter({Qt::Key_Escape}), "open Cancel close ");
  EXPECT_EQ(LogAfter({Qt::Key_Tab, Qt::Key_Space}), "open Cancel close ")
      << "tab goes by TabIndex, and from the last control to the first";
  EXPECT_EQ(LogAfter({Qt::Key_Tab, Qt::Key_Return}), "open OK close ")
      << "Return is for the default button, wherever the focus is";
}

TEST(QtHost, ARightToLeftDesktopDoesNotTurnSliderAndSegmentsRound) {
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
}

TEST(QtHost, QuitEndsTheRunWithItsStatus) {
  QtHost& host = *HostOfAllTests::host;
  const Ref<Script> script = New<Script>();
  script->open = [] { Quit(3); };
  EXPECT_EQ(host.Run(*script), 3);
  EXPECT_EQ(script->closed, 1);
}

TEST(QtHost, AnExceptionInAHandlerEndsTheRun) {
  QtHost& host = *HostOfAllTests::host;
  const Ref<Script> script = New<Script>();
  script->open = [&host] {
    const Ref<Probe> probe = New<Probe>();
    probe->Build();
    probe->slider->ValueChanged = [](Slider&) { throw std::runtime_error("escaped"); };
    PressWhenActive({Qt::Key_Right});
    host.ShowModal(probe);
    ADD_FAILURE() << "went on after an exception";
  };
  EXPECT_THROW(host.Run(*script), std::runtime_error);
  EXPECT_EQ(script->closed, 0);
}

}  // namespace
}  // namespace morvantile
