#include "platform/qt/translations.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <set>
#include <string>
#include <utility>

#include "dialogs/info_window.h"
#include "dialogs/resizer_window.h"
#include "platform/qt/widgets/window_widget.h"
#include "tests/installed_host.h"

namespace morvantile {
namespace {

constexpr int kReadablePixels = 9;

// A desktop of its own, without a screen, whose texts come from the catalogues of the build.
class Desktop : public InstalledHost {
 public:
  explicit Desktop(const QStringList& languages) : application_(count_, arguments_) {
    LoadTranslations(MORVANTILE_CATALOGUES, languages);
    clipboard_picture = Picture::Create(640, 480, false);
  }

  std::string Translate(const std::string& text) override {
    return QCoreApplication::translate("Morvantile", text.c_str()).toStdString();
  }

 private:
  int count_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  QApplication application_;
};

TEST(Translations, TheFirstLanguageCountsThatIsEnglishOrHasACatalogue) {
  const std::pair<QStringList, std::string> cases[] = {
      {{"de-AT"}, "Nicht ändern"},
      {{"pt-BR"}, "Não alterar"},
      {{"tlh", "zh-Hans-CN", "zh-CN", "zh", "de"}, "不缩放"},
      {{"en-GB", "de"}, "Don't Scale"},
      {{"pt-PT"}, "Don't Scale"},
  };
  for (const auto& [languages, text] : cases) {
    Desktop desktop(languages);
    EXPECT_EQ(desktop.Translate("Don't Scale"), text) << languages.join(' ').toStdString();
    EXPECT_EQ(desktop.Translate("no such text"), "no such text");
  }
}

void ExpectFits(const QWidget& widget, const QString& text, QSize room) {
  const QFontMetrics metrics(widget.font());
  const QSize size(metrics.boundingRect(text).width(), metrics.tightBoundingRect(text).height());
  EXPECT_EQ(room.expandedTo(size), room) << text.toStdString();
  EXPECT_GE(QFontInfo(widget.font()).pixelSize(), kReadablePixels) << text.toStdString();
}

void ExpectNothingCut(const QWidget& window) {
  for (const auto* label : window.findChildren<QLabel*>()) {
    ExpectFits(*label, label->text(), label->size());
  }
  std::set<int> sizes;
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    ExpectFits(*button, button->text(), button->size() - QSize(6, 4));
    if (button->inherits("QPushButton")) sizes.insert(QFontInfo(button->font()).pixelSize());
  }
  EXPECT_LE(sizes.size(), 1U) << "buttons of different sizes";
}

TEST(Translations, NoTextOfAnyLanguageIsCutAndALargeFontIsHonoured) {
  QStringList languages = {"en"};
  for (const QString& file : QDir(MORVANTILE_CATALOGUES).entryList({"*.qm"})) {
    languages << file.section('_', 1).section('.', 0, 0);
  }
  ASSERT_GT(languages.size(), 8);
  for (const QString& language : languages) {
    for (const int pixels : {13, 24}) {
      const Desktop desktop({language});
      QFont font = QApplication::font();
      font.setPixelSize(pixels);
      QApplication::setFont(font);
      SCOPED_TRACE(language.toStdString() + " at " + std::to_string(pixels));

      const Ref<ResizerWindow> resizer = ResizerWindow::Instance(New<plist>(std::string()));
      const WindowWidget shown(resizer, nullptr);
      resizer->OriginalSize()->SetSuffix("40000 x 20000");
      resizer->NewSizeLabel()->SetSuffix("40000 x 20000");
      ExpectNothingCut(shown);
      const QLabel* factor = shown.findChild<QLabel*>("ScaleFactorLabel");
      EXPECT_GE(QFontInfo(factor->font()).pixelSize(), pixels == 13 ? 13 : 16);
      resizer->Close();

      const Ref<InfoWindow> info = InfoWindow::Instance();
      ExpectNothingCut(WindowWidget(info, nullptr));
      info->Close();
    }
  }
}

TEST(Translations, SizesAreIsolatedFromRightToLeftLettersAndKeepTheirOrder) {
  Desktop desktop({"C"});
  const Ref<ResizerWindow> resizer = ResizerWindow::Instance(New<plist>(std::string()));
  const WindowWidget shown(resizer, nullptr);
  resizer->NewSizeLabel()->SetText("גודל חדש: 640 x 480");
  const QString text = shown.findChild<QLabel*>("NewSizeLabel")->text();
  EXPECT_EQ(text.toStdString(), "גודל חדש: \u2066640 x 480\u2069");
  resizer->Close();
}

}  // namespace
}  // namespace morvantile
