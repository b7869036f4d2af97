#include "platform/qt/clipboard/transfer.h"

#include <fcntl.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <array>
#include <cerrno>
#include <utility>

namespace morvantile {
namespace {

constexpr std::size_t kChunk = 65536;

bool WaitReadable(int descriptor, qint64 milliseconds) {
  pollfd wait{descriptor, POLLIN, 0};
  int ready = 0;
  do {
    ready = poll(&wait, 1, static_cast<int>(milliseconds));
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

}  // namespace

std::optional<QByteArray> ReadAll(const OwnedDescriptor& from, int patience_milliseconds,
                                  qsizetype limit) {
  QElapsedTimer clock;
  clock.start();
  QByteArray bytes;
  std::array<char, kChunk> chunk{};
  while (true) {
    const qint64 left = patience_milliseconds - clock.elapsed();
    if (left <= 0 || !WaitReadable(from.get(), left)) return std::nullopt;
    const ssize_t got = read(from.get(), chunk.data(), chunk.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) return bytes;
    if (bytes.size() + got > limit) return std::nullopt;
    bytes.append(chunk.data(), got);
  }
}

void OutgoingTransfers::Add(OwnedDescriptor to, const QByteArray& bytes) {
  fcntl(to.get(), F_SETFL, fcntl(to.get(), F_GETFL) | O_NONBLOCK);
  transfers_.push_back({std::move(to), bytes});
  Proceed();
}

void OutgoingTransfers::AppendTo(std::vector<pollfd>& waits) const {
  for (const Transfer& transfer : transfers_) waits.push_back({transfer.to.get(), POLLOUT, 0});
}

void OutgoingTransfers::Proceed() { transfers_.remove_if(Finished); }

bool OutgoingTransfers::Finished(Transfer& transfer) {
  while (transfer.written < transfer.bytes.size()) {
    const ssize_t wrote = write(transfer.to.get(), transfer.bytes.constData() + transfer.written,
                                static_cast<std::size_t>(transfer.bytes.size() - transfer.written));
    if (wrote < 0 && errno == EINTR) continue;
    if (wrote < 0) return errno != EAGAIN;
    transfer.written += wrote;
  }
  return true;
}

}  // namespace morvantile
