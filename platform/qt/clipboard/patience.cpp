#include "platform/qt/clipboard/patience.h"

#include <unistd.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <stop_token>
#include <string_view>
#include <utility>

#include "platform/imaging/picture.h"

namespace morvantile {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenLooks{100};
// Less than that is other news than the content of a clipboard.
constexpr std::uint64_t kLeastProgress = 4096;

void EndWhenSilent(const std::stop_token& over, const std::function<std::uint64_t()>& received) {
  std::mutex mutex;
  std::condition_variable_any never;
  std::unique_lock lock(mutex);
  std::uint64_t seen = received();
  Clock::time_point since = Clock::now();
  while (!over.stop_requested()) {
    never.wait_for(lock, over, kBetweenLooks, [] { return false; });
    const std::uint64_t now = received();
    if (now - seen >= kLeastProgress) {
      seen = now;
      since = Clock::now();
    }
    if (Clock::now() - since >= kPatienceWithOwner) _exit(0);
  }
}

constexpr unsigned kSecondsForDesktop = 30;

void SayThatItHangs(int /*signal*/) {
  constexpr std::string_view kMessage = "morvantile: the desktop does not answer\n";
  static_cast<void>(write(STDERR_FILENO, kMessage.data(), kMessage.size()) < 0);
  _exit(1);
}

}  // namespace

void BeginPatienceWithDesktop() {
  std::signal(SIGALRM, SayThatItHangs);
  alarm(kSecondsForDesktop);
}

void EndPatienceWithDesktop() { alarm(0); }

Patience::Patience() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return;
  watch_ = std::jthread(EndWhenSilent,
                        [connection = x11->connection()] { return xcb_total_read(connection); });
}

Patience::Patience(std::function<std::uint64_t()> received)
    : watch_(EndWhenSilent, std::move(received)) {}

QByteArray PatientReader::ReadAll(QIODevice& from) {
  constexpr qint64 kPiece = 1 << 16;
  QByteArray bytes;
  while (bytes.size() <= Picture::kMaxBytes) {
    const QByteArray piece = from.read(kPiece);
    if (piece.isEmpty()) return bytes;
    bytes += piece;
    received_ += static_cast<std::uint64_t>(piece.size());
  }
  return {};
}

}  // namespace morvantile
