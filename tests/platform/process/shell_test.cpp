#include "platform/process/shell.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>
#include <tuple>

#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

TEST(Shell, ReturnsStatusAndOutput) {
  const std::tuple<const char*, int, const char*> rows[] = {
      {"echo out; echo err >&2; exit 3", 3, "out\nerr\n"},
      {"true", 0, ""},
      {"exec 2>/dev/null; no-such-command-anywhere", 127, ""},
      {"kill -9 $$", 128 + SIGKILL, ""},
      {"cat; yes 2>/dev/null | head -n 1; kill -PIPE $$; echo on", 128 + SIGPIPE, "y\n"},
  };
  Shell shell;
  EXPECT_EQ(shell.ErrorCode(), -1);
  std::signal(SIGPIPE, SIG_IGN);  // the command sees no signals of ours, and reads nothing
  for (const auto& [command, status, output] : rows) {
    shell.Execute(command);
    EXPECT_EQ(shell.ErrorCode(), status) << command;
    EXPECT_EQ(shell.Result(), output) << command;
  }
  std::signal(SIGPIPE, SIG_DFL);
}

TEST(Shell, KeepsTheBeginningOfALongOutput) {
  Shell shell;
  shell.Execute("yes | head -n 1000000; exit 5");
  EXPECT_EQ(shell.ErrorCode(), 5);
  EXPECT_EQ(shell.Result().size(), 65536U);
}

// The pipe that the command's child holds open tells its end.
TEST(Shell, KillsWhatHangsWithAllThatItStarted) {
  const ScratchFolder folder;
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  Shell shell(std::chrono::milliseconds(200));
  shell.Execute("exec 3>" + pipe + "; (sleep 1000) & wait");
  EXPECT_EQ(shell.ErrorCode(), -1);
  pollfd end{reader, POLLIN, 0};
  EXPECT_EQ(poll(&end, 1, 30'000), 1);
  EXPECT_EQ(end.revents, POLLHUP) << "the child is gone";
  close(reader);
  shell.Execute("yes");
  EXPECT_EQ(shell.ErrorCode(), -1);
}

TEST(Shell, DoesNotWaitForWhatStaysBehind) {
  Shell shell;
  shell.Execute("sleep 1000 & echo started $!");
  EXPECT_EQ(shell.ErrorCode(), 0);
  ASSERT_TRUE(shell.Result().starts_with("started "));
  kill(std::stoi(shell.Result().substr(8)), SIGTERM);
}

}  // namespace
}  // namespace morvantile
