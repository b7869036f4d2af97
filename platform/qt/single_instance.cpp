#include "platform/qt/single_instance.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QByteArray>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>
#include <utility>

namespace morvantile {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPatienceWithFirstRun{1000};
constexpr std::chrono::milliseconds kBetweenTries{5};
constexpr timeval kPatienceWithToken{0, 200'000};
constexpr int kQueue = 128;
constexpr std::size_t kLongestToken = 4096;
constexpr std::string_view kShown = "shown";

std::string Variable(const char* name) { return qgetenv(name).toStdString(); }

// The display that windows will be on, under the same name for all its screens.
std::string Display() {
  const std::string wayland = Variable("WAYLAND_DISPLAY");
  if (!wayland.empty()) {
    return wayland.front() == '/' ? wayland : Variable("XDG_RUNTIME_DIR") + '/' + wayland;
  }
  const std::string x11 = Variable("DISPLAY");
  return x11.substr(0, x11.find('.', x11.rfind(':') + 1));
}

std::string LaunchToken() {
  std::string token = Variable("XDG_ACTIVATION_TOKEN");
  if (token.empty()) token = Variable("DESKTOP_STARTUP_ID");
  return token.substr(0, kLongestToken);
}

// A name that begins with a NUL is in the abstract namespace; those at its end are a part of it.
sockaddr_un MeetingPlace() {
  const std::string text = "morvantile-" + std::to_string(getuid()) + '-' +
                           std::to_string(std::hash<std::string>()(Display()));
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::copy(text.begin(), text.end(), address.sun_path + 1);
  return address;
}

OwnedDescriptor NewSocket(int flags) {
  return OwnedDescriptor(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | flags, 0));
}

bool IsOfThisUser(const OwnedDescriptor& connection) {
  ucred peer{};
  socklen_t size = sizeof(peer);
  return getsockopt(connection.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         peer.uid == getuid();
}

void Send(const OwnedDescriptor& to, std::string_view packet) {
  static_cast<void>(send(to.get(), packet.data(), packet.size(), MSG_NOSIGNAL) < 0);
}

bool WaitReadable(const OwnedDescriptor& connection, Clock::time_point deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
  const int wait = static_cast<int>(std::max<std::int64_t>(0, left.count()));
  pollfd reply{connection.get(), POLLIN, 0};
  return TEMP_FAILURE_RETRY(poll(&reply, 1, wait)) > 0;
}

}  // namespace

SingleInstance::SingleInstance() {
  if (Display().empty()) return;
  const Clock::time_point deadline = Clock::now() + kPatienceWithFirstRun;
  while (!Listen()) {
    if (errno != EADDRINUSE) return;
    const Reply reply = Ask(deadline);
    answered_ = reply == Reply::kShown;
    if (reply != Reply::kEnded || Clock::now() >= deadline) return;
    std::this_thread::sleep_for(kBetweenTries);
  }
  server_ = std::jthread([this] { Serve(); });
}

bool SingleInstance::Listen() {
  const sockaddr_un address = MeetingPlace();
  OwnedDescriptor listener = NewSocket(0);
  const auto* name = reinterpret_cast<const sockaddr*>(&address);
  if (bind(listener.get(), name, sizeof address) != 0) return false;
  if (listen(listener.get(), kQueue) != 0) return false;
  listener_ = std::move(listener);
  return true;
}

SingleInstance::Reply SingleInstance::Ask(Clock::time_point deadline) {
  const sockaddr_un address = MeetingPlace();
  const OwnedDescriptor connection = NewSocket(SOCK_NONBLOCK);
  const auto* name = reinterpret_cast<const sockaddr*>(&address);
  if (connect(connection.get(), name, sizeof address) != 0) {
    const bool is_coming_or_going = errno == ECONNREFUSED || errno == EAGAIN;
    return is_coming_or_going ? Reply::kEnded : Reply::kNone;
  }
  if (!IsOfThisUser(connection)) return Reply::kNone;
  Send(connection, LaunchToken() + '\n');
  if (!WaitReadable(connection, deadline)) return Reply::kNone;
  std::array<char, kShown.size()> reply{};
  return recv(connection.get(), reply.data(), reply.size(), 0) > 0 ? Reply::kShown : Reply::kEnded;
}

void SingleInstance::Serve() {
  while (true) {
    OwnedDescriptor connection(accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (connection.get() >= 0) {
      Admit(std::move(connection));
    } else if (errno != EINTR && errno != ECONNABORTED) {
      return;
    }
  }
}

void SingleInstance::Admit(OwnedDescriptor connection) {
  if (!IsOfThisUser(connection)) return;
  setsockopt(connection.get(), SOL_SOCKET, SO_RCVTIMEO, &kPatienceWithToken,
             sizeof(kPatienceWithToken));
  std::string token(kLongestToken + 1, '\0');
  const ssize_t size = recv(connection.get(), token.data(), token.size(), 0);
  if (size <= 0) return;
  token.resize(static_cast<std::size_t>(size - 1));

  std::unique_lock lock(mutex_);
  if (!notify_) {
    Send(connection, kShown);
    return;
  }
  waiting_.push_back({std::move(connection), std::move(token)});
  const std::function<void()> notify = notify_;
  lock.unlock();
  notify();
}

void SingleInstance::OnFurtherStart(std::function<void()> notify) {
  const std::lock_guard lock(mutex_);
  notify_ = std::move(notify);
}

void SingleInstance::AnswerAll(const std::function<void(const std::string& token)>& show) {
  std::vector<FurtherStart> starts;
  {
    const std::lock_guard lock(mutex_);
    starts.swap(waiting_);
  }
  for (const FurtherStart& start : starts) {
    show(start.token);
    Send(start.connection, kShown);
  }
}

void SingleInstance::End() {
  if (!server_.joinable()) return;
  shutdown(listener_.get(), SHUT_RDWR);
  server_.join();
  listener_.Close();
  waiting_.clear();
}

}  // namespace morvantile
