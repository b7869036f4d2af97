// The settings that the program remembers from run to run.

#ifndef MORVANTILE_APP_PREFS_MODULE_H
#define MORVANTILE_APP_PREFS_MODULE_H

#include "plist/plist.h"

namespace morvantile::PrefsModule {

// The settings; nil until OpenPrefs. Under its root stand, as far as they are known,
//   "Scale Mode"    integer  0 width, 1 height, 2 per cent
//   "Slider Value"  real     1 to 100
extern Ref<plist> Prefs;

// Makes sure that the folder "Morvantile" exists in the user's folder for application data, and
// reads the file "Morvantile Preferences" in it into Prefs. A file that is missing or no property
// list leaves the settings empty, with the report on Prefs; Prefs->Save() makes the file.
void OpenPrefs();

}  // namespace morvantile::PrefsModule

#endif  // MORVANTILE_APP_PREFS_MODULE_H
