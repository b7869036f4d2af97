// The program's texts in the user's language.

#ifndef MORVANTILE_PLATFORM_QT_TRANSLATIONS_H
#define MORVANTILE_PLATFORM_QT_TRANSLATIONS_H

#include <QString>

namespace morvantile {

// Makes QCoreApplication::translate speak the language of the default locale, if there is a
// catalogue for it in `folder`, named as in "morvantile_de.qm" or "morvantile_pt_BR.qm"; the texts
// of Qt's own widgets then follow. Without one all texts stay English, Qt's too, so that a window
// never mixes two languages. Needs the application object, and lasts as long as that.
void LoadTranslations(const QString& folder);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_TRANSLATIONS_H
