#include "platform/qt/clipboard/stay_behind.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace morvantile {
namespace {

// The status that a shell would give for the end of the child.
int StatusOfEnded(pid_t child) {
  int status = 0;
  if (TEMP_FAILURE_RETRY(waitpid(child, &status, 0)) < 0) return 1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Ends this process as soon as the child reports a status or ends.
[[noreturn]] void WaitAndExit(pid_t child, int reports) {
  unsigned char status = 0;
  if (TEMP_FAILURE_RETRY(read(reports, &status, 1)) == 1) _exit(status);
  _exit(StatusOfEnded(child));
}

void PointStandardStreamsAtNothing() {
  const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
  if (nothing < 0) return;
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
  if (nothing > STDERR_FILENO) close(nothing);
}

}  // namespace

StayBehind::StayBehind() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
  const pid_t first = getpid();
  const pid_t child = fork();
  if (child > 0) {
    close(ends[1]);
    WaitAndExit(child, ends[0]);
  }
  close(ends[0]);
  if (child < 0) {
    close(ends[1]);
    return;
  }
  report_to_ = ends[1];
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != first) _exit(1);
}

void StayBehind::LetGo(int status) {
  if (report_to_ < 0) return;
  prctl(PR_SET_PDEATHSIG, 0);
  prctl(PR_SET_NAME, "morvantile-keep");
  setsid();
  static_cast<void>(chdir("/") == 0);
  PointStandardStreamsAtNothing();
  const auto byte = static_cast<unsigned char>(status);
  static_cast<void>(TEMP_FAILURE_RETRY(write(report_to_, &byte, 1)));
  close(report_to_);
  report_to_ = -1;
}

}  // namespace morvantile
