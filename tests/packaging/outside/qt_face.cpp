// A program that attaches a widget of its own.

#include <QApplication>
#include <QLineEdit>
#include <iostream>

#include "platform/qt/attach/attach.h"
#include "plist/plistDict.h"

int main(int count, char** arguments) {
  const QApplication application(count, arguments);
  QLineEdit line("text");
  line.setObjectName("field");
  const morvantile::Ref<morvantile::plistDict> node = morvantile::New<morvantile::plistDict>();
  node->SetEditField(morvantile::Attach(line));
  std::cout << node->GetString("field") << '\n';
}
