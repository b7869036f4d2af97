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
struct HostOfAllTests : testing::Environment {
  static inline std::unique_ptr<QtHost> host;

  void SetUp() override {
    static std::array<std::string, 2> words = {"test", "-reverse"};  // a right-to-left desktop
    static std::array<char*, 3> arguments = {words[0].data(), words[1].data(), nullptr};
    static StayBehind stay_behind;
    static SingleInstance instance;
    host = std::make_unique<QtHost>(2, arguments.data(), stay_behind, instance);
    InstallHost(host.get());
  }
  void TearDown() override {
    InstallHost(nullptr);
    host = nullptr;
  }
};

const testing::Environment* const kHost = testing::AddGlobalTestEnvironment(new HostOfAllTests);

struct Script : Application {
  std::function<void()> open;
  int closed = 0;
  void Event_Open() override { open(); }
  void Event_Close() override { ++closed; }
};

// A window with a slider whose handler fails.
struct Failing : Window {
  void CreateControls() override {
    const Ref<Slider> slider = AddControl<Slider>("Slider", 10, 10, 200, 20);
    slider->ValueChanged = [](Slider&) { throw std::runtime_error("escaped"); };
  }
};

TEST(QtHost, ARightToLeftDesktopDoesNotTurnSliderAndSegmentsRound) {
  EXPECT_EQ(QApplication::layoutDirection(), Qt::LeftToRight);
}

TEST(QtHost, ARunEndsByQuitWithItsStatusOrByAnExceptionInAHandler) {
  const Ref<Script> script = New<Script>();
  script->open = [] { Quit(3); };
  EXPECT_EQ(HostOfAllTests::host->Run(*script), 3);
  EXPECT_EQ(script->closed, 1);
  script->open = [] {
    const Ref<Failing> window = New<Failing>();
    window->Build();
    QTimer::singleShot(0, [] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(QApplication::activeModalWidget()));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    });
    HostOfAllTests::host->ShowModal(window);
    ADD_FAILURE() << "went on after an exception";
  };
  EXPECT_THROW(HostOfAllTests::host->Run(*script), std::runtime_error);
  EXPECT_EQ(script->closed, 1);
}

}  // namespace
}  // namespace morvantile
