#include "platform/process/shell.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <optional>

#include "platform/core/owned_descriptor.h"
#include "platform/files/folder_item.h"

namespace morvantile {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kLongestResult = std::size_t{64} * 1024;
constexpr int kNotRun = 127;
constexpr int kKilledAtLimit = -1;

// A command that runs, and the pipe that it writes to.
class RunningCommand {
 public:
  explicit RunningCommand(const std::string& command);

  // The status of the command once it has ended.
  [[nodiscard]] std::optional<int> Ended() const;
  void WaitForNews() const;
  void ReadOutput(std::string& output);
  void Kill() const;

 private:
  pid_t process_ = -1;
  OwnedDescriptor output_;
};

}  // namespace

Shell::Shell(std::chrono::milliseconds limit, const std::string& first_folder) : limit_(limit) {
  if (first_folder.empty()) return;
  search_path_ = "PATH=" + FolderItem(first_folder).ShellPath() +
                 ":${PATH:-/usr/local/bin:/usr/bin:/bin}; export PATH; ";
}

void Shell::Execute(const std::string& command) {
  const Clock::time_point deadline = Clock::now() + limit_;
  result_.clear();
  RunningCommand running(search_path_ + command);
  std::optional<int> status = running.Ended();
  while (!status && Clock::now() < deadline) {
    running.WaitForNews();
    running.ReadOutput(result_);
    status = running.Ended();
  }
  running.ReadOutput(result_);
  if (!status) running.Kill();
  error_code_ = status.value_or(kKilledAtLimit);
}

namespace {

// -1 if that fails.
pid_t Spawn(const std::string& command, int output) {
  const std::array<const char*, 4> arguments = {"sh", "-c", command.c_str(), nullptr};

  posix_spawn_file_actions_t files{};
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&files, output, STDERR_FILENO);

  posix_spawnattr_t attributes{};
  posix_spawnattr_init(&attributes);
  sigset_t signals{};
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  sigfillset(&signals);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setpgroup(&attributes, 0);
  posix_spawnattr_setflags(&attributes,
                           POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

  pid_t process = -1;
  // It only reads them, which C can't say in its declaration.
  const auto* const read_only = const_cast<char* const*>(arguments.data());
  const int error = posix_spawn(&process, "/bin/sh", &files, &attributes, read_only, environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return error == 0 ? process : -1;
}

RunningCommand::RunningCommand(const std::string& command) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return;
  for (const int end : ends) fcntl(end, F_SETFD, FD_CLOEXEC);
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  output_ = OwnedDescriptor(ends[0]);
  const OwnedDescriptor input(ends[1]);
  process_ = Spawn(command, input.get());
}

std::optional<int> RunningCommand::Ended() const {
  if (process_ < 0) return kNotRun;
  int status = 0;
  const pid_t ended = waitpid(process_, &status, WNOHANG);
  if (ended == 0 || (ended < 0 && errno == EINTR)) return std::nullopt;
  if (ended < 0) return kNotRun;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// Waits for output or for its end, which comes just before the command's. A process that the
// command leaves behind may hold the pipe open, so each wait is short.
void RunningCommand::WaitForNews() const {
  constexpr int kWhileOutputIsOpen = 20;
  constexpr int kAfterItsEnd = 1;
  pollfd output{output_.get(), POLLIN, 0};  // is left out if negative
  poll(&output, 1, output.fd < 0 ? kAfterItsEnd : kWhileOutputIsOpen);
}

// Reads what is available, but only so much at a time: a command may write faster than this reads.
void RunningCommand::ReadOutput(std::string& output) {
  std::array<char, 65536> piece{};
  for (int i = 0; i < 16 && output_.get() >= 0; ++i) {
    const ssize_t size = read(output_.get(), piece.data(), piece.size());
    if (size < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (size <= 0) return output_.Close();
    const std::size_t room = kLongestResult - output.size();
    output.append(piece.data(), std::min(room, static_cast<std::size_t>(size)));
  }
}

void RunningCommand::Kill() const {
  kill(-process_, SIGKILL);
  int status = 0;
  TEMP_FAILURE_RETRY(waitpid(process_, &status, 0));
}

}  // namespace

}  // namespace morvantile
