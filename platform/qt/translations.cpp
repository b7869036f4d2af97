#include "platform/qt/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace morvantile {
namespace {

bool Load(const QString& catalogue, const QString& folder) {
  auto* translator = new QTranslator(QCoreApplication::instance());
  return translator->load(QLocale(), catalogue, "_", folder) &&
         QCoreApplication::installTranslator(translator);
}

}  // namespace

void LoadTranslations(const QString& folder) {
  if (Load("morvantile", folder)) {
    Load("qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  }
}

}  // namespace morvantile
