#include "platform/qt/clipboard/copied_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "platform/qt/clipboard/clipboard_formats.h"

namespace morvantile {
namespace {

TEST(CopiedFile, OneLocalRegularFileThatHoldsAPictureIsOne) {
  const QTemporaryDir folder;
  const QByteArray base = "file://" + folder.path().toUtf8() + "/";
  const QImage image(3, 2, QImage::Format_RGB32);
  ASSERT_TRUE(image.save(folder.filePath("a picture.png"), "PNG"));
  ASSERT_TRUE(image.save(folder.filePath("no suffix"), "BMP"));
  QFile text(folder.filePath("notes.png"));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("not a picture") > 0);
  text.close();
  ASSERT_EQ(mkfifo(folder.filePath("pipe.png").toUtf8(), 0600), 0);

  const QByteArray path = folder.path().toUtf8() + "/a%20picture.png";
  const QByteArray file = "file://" + path;
  for (const QByteArray& names :
       {file, "# a comment\r\n" + file + "\r\n", "copy\n" + file, "cut\n" + file + "\n",
        base + "no%20suffix", "file://localhost" + path}) {
    const Ref<Picture> read = PictureInCopiedFile(names);
    EXPECT_TRUE(read != nullptr && read->Width() == 3) << names.toStdString();
  }
  for (const QByteArray& names :
       {"file://another.example" + path, "sftp://another.example" + path, path,
        file + "\r\n" + base + "no%20suffix\r\n", base + "notes.png", base + "pipe.png",
        base + "missing.png", base, QByteArray("file:///dev/zero"), QByteArray()}) {
    EXPECT_EQ(PictureInCopiedFile(names), nullptr) << names.toStdString();
  }
}

TEST(CopiedFile, PixelsArePreferredToTheFilesName) {
  EXPECT_EQ(PictureFormats({"text/uri-list", "image/jpeg", "text/plain", "image/png"}),
            QStringList({"image/png", "image/jpeg", "text/uri-list"}));
}

}  // namespace
}  // namespace morvantile
