// Bytes through the pipes of a clipboard.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_TRANSFER_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_TRANSFER_H

#include <poll.h>

#include <QByteArray>
#include <list>
#include <optional>
#include <vector>

#include "platform/core/owned_descriptor.h"

namespace morvantile {

// All that comes from a pipe until its other end closes. Nothing if it fails, if it takes longer
// than `patience_milliseconds`, or if it is more than `limit` bytes.
std::optional<QByteArray> ReadAll(const OwnedDescriptor& from, int patience_milliseconds,
                                  qsizetype limit);

// Data on its way to readers that take it as fast as they like; none holds up the others.
class OutgoingTransfers {
 public:
  // Begins to write the bytes into the descriptor.
  void Add(OwnedDescriptor to, const QByteArray& bytes);
  // What to wait for, behind the other descriptors in `waits`.
  void AppendTo(std::vector<pollfd>& waits) const;
  // Writes what can be written without waiting. A reader that has gone away is dropped.
  void Proceed();

 private:
  struct Transfer {
    OwnedDescriptor to;
    QByteArray bytes;
    qsizetype written = 0;
  };
  static bool Finished(Transfer& transfer);

  std::list<Transfer> transfers_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_TRANSFER_H
