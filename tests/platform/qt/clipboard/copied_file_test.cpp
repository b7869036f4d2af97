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
  const std::pair<QByteArray, bool> cases[] = {
      {"file://" + path, true},
      {"# a comment\r\nfile://" + path + "\r\n", true},
      {"copy\nfile://" + path, true},
      {"cut\nfile://" + path + "\n", true},
      {base + "no%20suffix", true},
      {"file://localhost" + path, true},
      {"file://another.example" + path, false},
      {"sftp://another.example" + path, false},
      {path, false},
      {"file://" + path + "\r\n" + base + "no%20suffix\r\n", false},
      {base + "notes.png", false},
      {base + "pipe.png", false},
      {base + "missing.png", false},
      {base, false},
      {"file:///dev/zero", false},
      {"", false},
  };
  for (const auto& [names, found] : cases) {
    const Ref<Picture> read = PictureInCopiedFile(names);
    EXPECT_EQ(read != nullptr && read->Width() == 3, found) << names.toStdString();
  }
}

TEST(CopiedFile, PixelsArePreferredToTheFilesName) {
  EXPECT_EQ(PictureFormats({"text/uri-list", "image/jpeg", "text/plain", "image/png"}),
            QStringList({"image/png", "image/jpeg", "text/uri-list"}));
}

}  // namespace
}  // namespace morvantile
