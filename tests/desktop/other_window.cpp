// Another program: a window that is all green.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle("other");
  window.setStyleSheet("background: #00ff00");
  window.resize(1000, 700);
  window.show();
  return QApplication::exec();
}
