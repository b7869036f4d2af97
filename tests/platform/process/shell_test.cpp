#include "platform/process/shell.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

using namespace std::chrono_literals;

TEST(Shell, GivesStatusAndOutput) {
  Shell shell;
  EXPECT_EQ(shell.ErrorCode(), -1);
  shell.Execute("echo out; echo err >&2; exit 3");
  EXPECT_EQ(shell.ErrorCode(), 3);
  EXPECT_EQ(shell.Result(), "out\nerr\n");
  shell.Execute("true");
  EXPECT_EQ(shell.ErrorCode(), 0);
  EXPECT_EQ(shell.Result(), "");
  shell.Execute("no-such-command-anywhere");
  EXPECT_EQ(shell.ErrorCode(), 127);
  shell.Execute("kill -9 $$");
  EXPECT_EQ(shell.ErrorCode(), 128 + SIGKILL);
}

TEST(Shell, TheCommandReadsNothingAndSeesNoSignalsOfOurs) {
  std::signal(SIGPIPE, SIG_IGN);
  Shell shell;
  shell.Execute("cat; yes 2>/dev/null | head -n 1; kill -PIPE $$; echo survived");
  std::signal(SIGPIPE, SIG_DFL);
  EXPECT_EQ(shell.ErrorCode(), 128 + SIGPIPE);
  EXPECT_EQ(shell.Result(), "y\n");
}

TEST(Shell, KeepsTheBeginningOfALongOutput) {
  Shell shell;
  shell.Execute("yes | head -n 1000000; exit 5");
  EXPECT_EQ(shell.ErrorCode(), 5);
  EXPECT_EQ(shell.Result().size(), 65536U);
}

TEST(Shell, KillsWhatHangsWithAllThatItStarted) {
  const ScratchFolder folder;
  Shell shell(200ms);
  const auto begin = std::chrono::steady_clock::now();
  shell.Execute("(sleep 0.5; touch " + folder.Item("late")->ShellPath() + ") & wait");
  EXPECT_EQ(shell.ErrorCode(), -1);
  shell.Execute("yes");
  EXPECT_EQ(shell.ErrorCode(), -1);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
  std::this_thread::sleep_for(600ms);
  EXPECT_FALSE(folder.Item("late")->Exists());
}

TEST(Shell, DoesNotWaitForWhatStaysBehind) {
  const auto begin = std::chrono::steady_clock::now();
  Shell shell;
  shell.Execute("sleep 60 & echo started $!");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
  EXPECT_EQ(shell.ErrorCode(), 0);
  ASSERT_TRUE(shell.Result().starts_with("started "));
  kill(std::stoi(shell.Result().substr(8)), SIGTERM);
}

}  // namespace
}  // namespace morvantile
