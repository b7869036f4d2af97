#include "platform/qt/clipboard/copied_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSysInfo>
#include <QUrl>
#include <atomic>
#include <cstdint>

#include "platform/qt/clipboard/patience.h"
#include "platform/qt/clipboard/picture_image.h"

namespace morvantile {
namespace {

constexpr qint64 kPiece = 1 << 20;

bool IsOfThisMachine(const QUrl& url) {
  const QString host = url.host();
  return url.isLocalFile() && (host.isEmpty() || host == "localhost" ||
                               host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0);
}

// Empty unless there is just one file, and it is of this machine.
QString OneLocalFile(const QByteArray& names) {
  QString found;
  for (const QByteArray& line : names.split('\n')) {
    const QByteArray name = line.trimmed();
    if (name.isEmpty() || name.startsWith('#') || name == "copy" || name == "cut") continue;
    QUrl url = QUrl::fromEncoded(name);
    if (!IsOfThisMachine(url) || !found.isEmpty()) return {};
    url.setHost({});
    found = url.toLocalFile();
  }
  return found;
}

// The bytes of the file if they begin like a picture; none otherwise.
QByteArray ReadPictureFile(const QString& path) {
  std::atomic<std::uint64_t> progress{0};
  const Patience patience([&progress] { return progress.load(); });
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return {};
  if (file.size() > Picture::kMaxBytes || !QImageReader(&file).canRead() || !file.seek(0))
    return {};
  QByteArray bytes;
  while (bytes.size() <= Picture::kMaxBytes) {
    const QByteArray piece = file.read(kPiece);
    if (piece.isEmpty()) return bytes;
    bytes += piece;
    progress += static_cast<std::uint64_t>(piece.size());
  }
  return {};
}

}  // namespace

QStringList CopiedFileFormats() {
  return {"text/uri-list", "x-special/gnome-copied-files", "x-special/mate-copied-files"};
}

Ref<Picture> PictureInCopiedFile(const QByteArray& names) {
  const QString path = OneLocalFile(names);
  return path.isEmpty() ? nullptr : DecodePicture(ReadPictureFile(path));
}

}  // namespace morvantile
