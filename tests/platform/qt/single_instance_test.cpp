#include "platform/qt/single_instance.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

namespace morvantile {
namespace {

constexpr const char* kLaunch = "launch_TIME42";

// A display of this test's own.
class SingleInstanceTest : public testing::Test {
 protected:
  void SetUp() override {
    unsetenv("WAYLAND_DISPLAY");
    unsetenv("XDG_ACTIVATION_TOKEN");
    setenv("DISPLAY", (":" + std::to_string(100'000 + getpid())).c_str(), 1);
    setenv("DESKTOP_STARTUP_ID", kLaunch, 1);
  }
};

bool AFurtherStartIsAnswered() { return SingleInstance().AnotherRunAnswered(); }

TEST_F(SingleInstanceTest, AFurtherStartIsAnsweredWhileTheFirstRunStarts) {
  const SingleInstance first;
  EXPECT_FALSE(first.AnotherRunAnswered());
  EXPECT_TRUE(AFurtherStartIsAnswered());
  setenv("DISPLAY", (std::string(getenv("DISPLAY")) + ".1").c_str(), 1);
  EXPECT_TRUE(AFurtherStartIsAnswered()) << "another screen of the same display";
  setenv("DISPLAY", ":99999", 1);
  EXPECT_FALSE(AFurtherStartIsAnswered()) << "another display";
}

TEST_F(SingleInstanceTest, AFurtherStartIsAnsweredByTheRunAndBringsItsToken) {
  SingleInstance first;
  std::vector<std::string> shown;
  first.OnFurtherStart(
      [&] { first.AnswerAll([&](const std::string& token) { shown.push_back(token); }); });
  EXPECT_TRUE(AFurtherStartIsAnswered());
  EXPECT_EQ(shown, std::vector<std::string>{kLaunch});
}

TEST_F(SingleInstanceTest, ARunThatHangsLocksNobodyOut) {
  SingleInstance first;
  first.OnFurtherStart([] {});
  EXPECT_FALSE(AFurtherStartIsAnswered());
}

TEST_F(SingleInstanceTest, AStartThatWaitsAtTheEndOfARunTakesItsPlace) {
  auto first = std::make_unique<SingleInstance>();
  std::thread ending;
  first->OnFurtherStart([&] { ending = std::thread([&] { first->End(); }); });
  const SingleInstance second;
  ending.join();
  EXPECT_FALSE(second.AnotherRunAnswered());
  EXPECT_TRUE(AFurtherStartIsAnswered()) << "by the second";
}

TEST_F(SingleInstanceTest, AnotherUserIsNeitherAskedNorAnswered) {
  if (getuid() != 0) GTEST_SKIP() << "only root can play two users";
  // The name of the socket is made of the real user, what the other side sees is the effective one.
  const auto become = [](uid_t user) { ASSERT_EQ(seteuid(user), 0); };
  const uid_t stranger = getpwnam("nobody")->pw_uid;
  {
    const SingleInstance first;
    become(stranger);
    EXPECT_FALSE(AFurtherStartIsAnswered()) << "a stranger asks";
    become(0);
  }
  become(stranger);
  const SingleInstance first;
  become(0);
  EXPECT_FALSE(AFurtherStartIsAnswered()) << "a stranger would answer";
}

}  // namespace
}  // namespace morvantile
