// A window that comes back as it was left: window_state FILE

#include <QApplication>

#include "contacts_window.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  ContactsWindow window(argc > 1 ? argv[1] : "window-state.plist");
  window.show();
  return QApplication::exec();
}
