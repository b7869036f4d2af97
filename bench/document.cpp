// Files of 1.4 million scalars, about 60 MB: loaded and saved, beside pugixml, which makes a bare
// DOM of the same file.

#include <benchmark/benchmark.h>

#include <pugixml.hpp>
#include <string>

#include "platform/base/folder_item.h"
#include "plist/plist.h"

namespace morvantile {
namespace {

constexpr std::int64_t kScalars = 1'400'000;

// A list of dicts with ten settings each.
void FillWithDicts(plistDict& root) {
  root.AddArray("Items");
  plistDict& items = *root.child("Items");
  for (std::int64_t i = 0; i < kScalars / 10; ++i) {
    items.AppendDict();
    plistDict& item = *items.children.back();
    for (const char* key : {"Identifier", "Rating", "Count", "Size", "Rate"}) {
      item.SetInteger(key, static_cast<double>(i));
    }
    for (const char* key : {"Name", "Kind", "Place", "Note", "Origin"}) {
      item.SetString(key, "a text");
    }
  }
}

// One dict with all of them.
void FillFlat(plistDict& root) {
  for (std::int64_t i = 0; i < kScalars; ++i) root.SetString("k" + std::to_string(i), "text");
}

// One array with all of them.
void FillArray(plistDict& root) {
  root.AddArray("Items");
  plistDict& items = *root.child("Items");
  for (std::int64_t i = 0; i < kScalars; ++i)
    items.AppendString("a text of some length, as they are");
}

class File {
 public:
  explicit File(void (*fill)(plistDict&)) {
    const Ref<plist> document = New<plist>(item, false);
    fill(*document->root);
    document->Save();
  }
  ~File() { item->Delete(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  const Ref<FolderItem> item = GetTemporaryFolderItem();
};

void CountBytes(benchmark::State& state, const File& file) {
  const auto size = static_cast<std::int64_t>(TextInputStream::Open(file.item)->ReadAll().size());
  state.SetBytesProcessed(state.iterations() * size);
}

void Load(benchmark::State& state, void (*fill)(plistDict&)) {
  const File file(fill);
  for (auto _ : state) benchmark::DoNotOptimize(New<plist>(file.item, false)->root->count());
  CountBytes(state, file);
}

void LoadPugixml(benchmark::State& state, void (*fill)(plistDict&)) {
  const File file(fill);
  for (auto _ : state) {
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_file(file.item->AbsolutePath().c_str()));
  }
  CountBytes(state, file);
}

void Save(benchmark::State& state, void (*fill)(plistDict&)) {
  const File file(fill);
  const Ref<plist> document = New<plist>(file.item, false);
  for (auto _ : state) document->Save();
  CountBytes(state, file);
}

BENCHMARK_CAPTURE(Load, dicts, FillWithDicts)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadPugixml, dicts, FillWithDicts)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, dicts, FillWithDicts)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, flat, FillFlat)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadPugixml, flat, FillFlat)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, flat, FillFlat)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, array, FillArray)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadPugixml, array, FillArray)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Save, array, FillArray)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace morvantile
