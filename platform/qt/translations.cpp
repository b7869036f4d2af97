#include "platform/qt/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace morvantile {
namespace {

bool Load(const QString& catalogue, const QString& folder) {
  auto* translator = new QTranslator(QCoreApplication::instance());
  return translator->load(catalogue, folder) && QCoreApplication::installTranslator(translator);
}

bool IsEnglish(const QString& language) {
  const QString code = language.section('-', 0, 0);
  return code == "en" || code == "C";
}

}  // namespace

void LoadTranslations(const QString& folder, const QStringList& languages) {
  for (const QString& language : languages) {
    if (IsEnglish(language)) return;
    const QString name = "_" + QString(language).replace('-', '_');
    if (!Load("morvantile" + name, folder)) continue;
    Load("qtbase" + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    return;
  }
}

}  // namespace morvantile
