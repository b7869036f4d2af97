#ifndef MORVANTILE_PLATFORM_QT_THEME_H
#define MORVANTILE_PLATFORM_QT_THEME_H

namespace morvantile {

// Makes the application dark if the user prefers that, as the desktop says, and the toolkit hasn't
// done so by itself. Must be called once, after the application has been made.
//
// The wish is read from the settings portal, key "color-scheme" of "org.freedesktop.appearance"
// (XDG Desktop Portal, "Settings"). A desktop without a running portal is taken as it is.
void FollowDesktopTheme();

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_THEME_H
