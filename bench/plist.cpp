// A document of 59 MB, loaded, saved, searched and released, beside libplist and pugixml. All read
// the same file, from the page cache; "Memory" in a name says that a text in memory is read or
// written.

#include "plist/plist.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "bench/documents.h"
#include "bench/peers.h"
#include "plist/converter.h"

namespace morvantile {
namespace {

constexpr std::int64_t kRecords = 80'000;

// The file of the run, which goes when the program ends.
const Ref<FolderItem>& File() {
  static const Ref<FolderItem> file = [] {
    Ref<FolderItem> item = GetTemporaryFolderItem();
    MakeDocument("records", kRecords, item);
    return item;
  }();
  return file;
}

const std::string& Text() {
  static const std::string text = peers::ReadFile(File()->AbsolutePath());
  return text;
}

Ref<FolderItem> Result() { return File()->Parent()->Child("result"); }

void Load(benchmark::State& state) {
  File();
  for (auto _ : state) {
    const Ref<plist> document = New<plist>(File(), false);
    state.PauseTiming();
    document->root = nullptr;
    state.ResumeTiming();
  }
}

void Release(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    const Ref<plist> document = New<plist>(File(), false);
    state.ResumeTiming();
    document->root = nullptr;
  }
}

void Save(benchmark::State& state) {
  const Ref<plist> document = New<plist>(File(), false);
  document->savePath = Result();
  for (auto _ : state) document->Save();
}

// A walk over all entries that finds nothing.
void Find(benchmark::State& state) {
  const Ref<plist> document = New<plist>(File(), false);
  for (auto _ : state) benchmark::DoNotOptimize(document->Find("no such text"));
}

void LibplistReadMemory(benchmark::State& state) {
  for (auto _ : state) {
    auto document = peers::Libplist::FromXml(Text());
    state.PauseTiming();
    document = nullptr;
    state.ResumeTiming();
  }
}

void LibplistWriteToFile(benchmark::State& state) {
  const auto document = peers::Libplist::FromXml(Text());
  for (auto _ : state) peers::WriteFile(Result()->AbsolutePath(), document->ToXml());
}

void LibplistReadBinaryAndWriteXmlMemory(benchmark::State& state) {
  const Ref<FolderItem> binary = Result();
  static_cast<void>(File()->CopyFileTo(binary));
  static_cast<void>(Convert("binary1", *binary));
  const std::string bytes = peers::ReadFile(binary->AbsolutePath());
  for (auto _ : state) {
    benchmark::DoNotOptimize(peers::Libplist::FromBinary(bytes)->ToXml().size());
  }
}

// Takes more than a minute, so it has to be asked for.
void LibplistWriteBinaryMemory(benchmark::State& state) {
  if (std::getenv("MORVANTILE_BENCH_SLOW") == nullptr) {
    state.SkipWithError("only with MORVANTILE_BENCH_SLOW");
    return;
  }
  const auto document = peers::Libplist::FromXml(Text());
  for (auto _ : state) benchmark::DoNotOptimize(document->ToBinary().size());
}

void PugixmlReadMemory(benchmark::State& state) {
  for (auto _ : state) {
    auto document = peers::PugixmlFromXml(Text());
    state.PauseTiming();
    document = nullptr;
    state.ResumeTiming();
  }
}

void PugixmlWriteMemory(benchmark::State& state) {
  const auto document = peers::PugixmlFromXml(Text());
  for (auto _ : state) benchmark::DoNotOptimize(peers::PugixmlToXml(*document).size());
}

BENCHMARK(Load)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Save)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Release)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Find)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LibplistReadMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LibplistWriteToFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LibplistReadBinaryAndWriteXmlMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LibplistWriteBinaryMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PugixmlReadMemory)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PugixmlWriteMemory)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace morvantile
