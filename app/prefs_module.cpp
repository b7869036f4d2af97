#include "app/prefs_module.h"

#include "platform/files/folder_item.h"

namespace morvantile::PrefsModule {
namespace {

constexpr const char* kFolder = "Morvantile";
constexpr const char* kFile = "Morvantile Preferences";

Ref<FolderItem> Folder() { return SpecialFolder::ApplicationData()->Child(kFolder); }

}  // namespace

Ref<plist> Prefs;

void OpenPrefs() {
  const Ref<FolderItem> folder = Folder();
  if (!folder->Exists()) folder->CreateAsFolder();
  Ref<FolderItem> file = folder->Child(kFile);
  if (!file->Exists()) file = New<FolderItem>(*Folder()->Child(kFile));
  Prefs = New<plist>(file, false);
}

}  // namespace morvantile::PrefsModule
