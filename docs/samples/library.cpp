#include "library.h"

#include "platform/text/text.h"

using namespace morvantile;

Ref<plist> OpenSettings(const std::string& path) {
  Ref<plist> settings = New<plist>(New<FolderItem>(path), false);
  return settings;
}

double ZoomOf(const Ref<plist>& settings) {
  // The default is stored where there is no zoom yet, so that the file shows what can be set.
  return settings->root->GetReal("zoom", 1.5);
}

void RememberProxy(const Ref<plist>& settings) {
  Ref<plistDict> proxy = settings->root->child("network")->child("proxy");
  proxy->SetString("host", "proxy.example");
  proxy->SetInteger("port", 3128);
  proxy->SetBoolean("enabled", true);
}

void AddRecentFile(const Ref<plist>& settings, const std::string& path) {
  settings->root->AddArray("recent files");  // does nothing if it is there
  settings->root->child("recent files")->AppendString(path);
}

std::vector<std::string> RecentFiles(const Ref<plist>& settings) {
  std::vector<std::string> files;
  Ref<plistDict> array = settings->root->child("recent files");
  for (std::int64_t i = 0; i < array->count(); ++i) files.push_back(array->GetString(Str(i)));
  return files;
}

std::string LastBackup(const Ref<plist>& settings) {
  settings->root->SetDate("last backup", New<Date>(2024, 2, 29, 8, 5));
  Ref<Date> date = settings->root->GetDate("last backup");
  date->SetDay(date->Day() + 1);  // carries over into March
  return Str(date->Day()) + "." + Str(date->Month()) + ".";
}

std::vector<std::string> KeysWith(const Ref<plist>& settings, const std::string& text) {
  std::vector<std::string> keys;
  settings->ClearSearch(settings->root);
  for (bool found = settings->Find(text); found; found = settings->FindNext(text)) {
    keys.push_back(settings->foundDict->AbsolutePath() + ":" + settings->foundKey);
  }
  return keys;
}

void RetireProxy(const Ref<plist>& settings) {
  Ref<plistDict> network = settings->root->child("network");
  network->Copy("proxy", settings->root->child("backup"));
  network->Rename("proxy", "old proxy");
  network->Move("old proxy", settings->root);
}

std::string SaveOrExplain(const Ref<plist>& settings, bool as_binary) {
  settings->error = false;
  settings->Save(false, as_binary);
  return settings->error ? settings->errorMessage : "saved";
}
