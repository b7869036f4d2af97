#include "platform/qt/clipboard/copied_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QImage>

#include "platform/qt/clipboard/clipboard_formats.h"
#include "tests/platform/files/scratch_folder.h"

namespace morvantile {
namespace {

TEST(CopiedFile, OneLocalRegularFileThatHoldsAPictureIsOne) {
  const ScratchFolder folder;
  const QImage image(3, 2, QImage::Format_RGB32);
  ASSERT_TRUE(image.save(QString::fromStdString(folder.Path("a picture.png")), "PNG"));
  ASSERT_TRUE(image.save(QString::fromStdString(folder.Path("no suffix")), "BMP"));
  folder.Put("notes.png", "not a picture");
  ASSERT_EQ(mkfifo(folder.Path("pipe.png").c_str(), 0600), 0);

  const QByteArray base = QByteArray("file://").append(folder.Path("").c_str());
  const QByteArray file = base + "a%20picture.png";
  const QByteArray path = file.mid(7);
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
