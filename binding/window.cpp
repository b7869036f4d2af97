// Windows kept in a tree.

#include "platform/ui/window.h"

#include <algorithm>
#include <limits>

#include "platform/text/text.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

void StoreRectangle(plistDict& position, const Window& window) {
  position.SetInteger("left", window.Left());
  position.SetInteger("top", window.Top());
  position.SetInteger("width", window.Width());
  position.SetInteger("height", window.Height());
}

int ReadPixels(plistDict& position, std::string_view key) {
  constexpr std::int64_t kLeast = std::numeric_limits<int>::min();
  constexpr std::int64_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(position.GetInteger(key), kLeast, kMost));
}

}  // namespace

void plistDict::SetWindow(std::string_view key, const Ref<Window>& window) {
  const Window& shown = *window;
  const std::string kept(key);
  const Ref<plistDict> record = child(kept);
  if (record == nullptr) return;
  searched.SetValue(kept, false);
  record->SetString("windowName", shown.Title());
  if (!record->Exists("WindowPos")) record->AddChild("WindowPos");
  const Ref<plistDict> position = record->child("WindowPos");
  if (position != nullptr) StoreRectangle(*position, shown);
}

void plistDict::GetWindow(std::string_view key, const Ref<Window>& window) {
  Window& shown = *window;
  const std::string kept(key);
  if (!Exists(kept)) SetWindow(kept, window);
  const Ref<plistDict> record = child(kept);
  if (record == nullptr) return;
  shown.SetTitle(record->GetString("windowName"));
  const Ref<plistDict> position = record->child("WindowPos");
  if (position == nullptr) return;
  shown.SetLeft(ReadPixels(*position, "left"));
  shown.SetTop(ReadPixels(*position, "top"));
  shown.SetWidth(ReadPixels(*position, "width"));
  shown.SetHeight(ReadPixels(*position, "height"));
}

void plistDict::AppendWindow(const Ref<Window>& window) {
  const Window& shown = *window;
  const Ref<plistDict> record = AppendContainer("dict");
  if (record == nullptr) return;
  record->SetString("windowName", shown.Title());
  record->AddChild("WindowPos");
  StoreRectangle(*record->child("WindowPos"), shown);
}

}  // namespace morvantile
