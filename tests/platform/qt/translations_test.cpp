#include "platform/qt/translations.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLocale>
#include <array>
#include <string>

namespace morvantile {
namespace {

QString TextIn(const QString& language, const char* text) {
  std::string name = "test";
  std::array<char*, 2> arguments = {name.data(), nullptr};
  int count = 1;
  const QCoreApplication application(count, arguments.data());
  QLocale::setDefault(QLocale(language));
  LoadTranslations(MORVANTILE_CATALOGUES);
  return QCoreApplication::translate("Morvantile", text);
}

TEST(Translations, TextsFollowTheLanguageAsFarAsThereIsACatalogue) {
  EXPECT_EQ(TextIn("de_AT", "Don't Scale"), "Nicht verkleinern");
  EXPECT_EQ(TextIn("de_AT", "no such text"), "no such text");
  EXPECT_EQ(TextIn("fr_FR", "Don't Scale"), "Don't Scale");
}

}  // namespace
}  // namespace morvantile
