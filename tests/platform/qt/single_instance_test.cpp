#include "platform/qt/single_instance.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

namespace morvantile {
namespace {

// A display of this test's own.
struct SingleInstanceTest : testing::Test {
  void SetUp() override {
    unsetenv("WAYLAND_DISPLAY");
    unsetenv("XDG_ACTIVATION_TOKEN");
    setenv("DISPLAY", (":" + std::to_string(100'000 + getpid())).c_str(), 1);
    setenv("DESKTOP_STARTUP_ID", "launch_TIME42", 1);
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
  first.OnFurtherStart([] {});
  EXPECT_FALSE(AFurtherStartIsAnswered()) << "a run that hangs locks nobody out";
  std::string shown;
  first.OnFurtherStart([&] { first.AnswerAll([&](const std::string& token) { shown = token; }); });
  EXPECT_TRUE(AFurtherStartIsAnswered());
  EXPECT_EQ(shown, "launch_TIME42");
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

// The name of the socket is made of the real user, what the other side sees is the effective one.
TEST_F(SingleInstanceTest, AnotherUserIsNeitherAskedNorAnswered) {
  if (getuid() != 0) GTEST_SKIP() << "only root can play two users";
  const uid_t nobody = getpwnam("nobody")->pw_uid;
  for (const auto& [first_user, second_user] : {std::pair{0U, nobody}, {nobody, 0U}}) {
    ASSERT_EQ(seteuid(first_user), 0);
    const SingleInstance first;
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(seteuid(second_user), 0);
    EXPECT_FALSE(AFurtherStartIsAnswered()) << first_user;
    ASSERT_EQ(seteuid(0), 0);
  }
}

}  // namespace
}  // namespace morvantile
