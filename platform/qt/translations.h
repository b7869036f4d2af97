// The program's texts in the user's language.

#ifndef MORVANTILE_PLATFORM_QT_TRANSLATIONS_H
#define MORVANTILE_PLATFORM_QT_TRANSLATIONS_H

#include <QString>
#include <QStringList>

namespace morvantile {

// Makes QCoreApplication::translate speak the first of `languages`, as in "de-AT", that is English
// or has a catalogue in `folder`, named as in "morvantile_de.qm" or "morvantile_pt_BR.qm"; the
// texts of Qt's own widgets then follow. Without one all texts stay English, Qt's too, so that a
// window never mixes two languages. Needs the application object, and lasts as long as that.
void LoadTranslations(const QString& folder, const QStringList& languages);

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_TRANSLATIONS_H
