#include "platform/qt/clipboard/copied_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSysInfo>
#include <QUrl>

#include "platform/qt/clipboard/patience.h"
#include "platform/qt/clipboard/picture_image.h"

namespace morvantile {
namespace {

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
  PatientReader reader;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return {};
  if (file.size() > Picture::kMaxBytes || !QImageReader(&file).canRead() || !file.seek(0))
    return {};
  return reader.ReadAll(file);
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
