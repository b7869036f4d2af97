// The pieces of code in docs/library.md.

#ifndef MORVANTILE_DOCS_SAMPLES_LIBRARY_H
#define MORVANTILE_DOCS_SAMPLES_LIBRARY_H

#include <string>
#include <vector>

#include "plist/plist.h"

morvantile::Ref<morvantile::plist> OpenSettings(const std::string& path);
double ZoomOf(const morvantile::Ref<morvantile::plist>& settings);
void RememberProxy(const morvantile::Ref<morvantile::plist>& settings);
void AddRecentFile(const morvantile::Ref<morvantile::plist>& settings, const std::string& path);
std::vector<std::string> RecentFiles(const morvantile::Ref<morvantile::plist>& settings);
std::string LastBackup(const morvantile::Ref<morvantile::plist>& settings);
std::vector<std::string> KeysWith(const morvantile::Ref<morvantile::plist>& settings,
                                  const std::string& text);
void RetireProxy(const morvantile::Ref<morvantile::plist>& settings);
std::string SaveOrExplain(const morvantile::Ref<morvantile::plist>& settings, bool as_binary);

#endif  // MORVANTILE_DOCS_SAMPLES_LIBRARY_H
