// The least that a Qt program does to show the clipboard's picture: what the start-up of the
// program is compared with.

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QPixmap>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QImage image = QApplication::clipboard()->image();
  if (image.isNull()) return 1;
  QDialog dialog;
  dialog.setWindowTitle("Bare Dialog");
  QLabel label(&dialog);
  label.setPixmap(QPixmap::fromImage(image.copy(0, 0, 400, 260)));
  dialog.resize(440, 508);
  return dialog.exec();
}
