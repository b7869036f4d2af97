// The tree beside std::unordered_map<std::string, std::string>, which is what one would take
// instead, with the same keys and texts in the same order.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "plist/plist.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

using Map = std::unordered_map<std::string, std::string>;

std::vector<std::string> Keys(std::int64_t count) {
  std::vector<std::string> keys;
  for (std::int64_t i = 0; i < count; ++i) keys.push_back("Setting " + std::to_string(i));
  return keys;
}

std::vector<std::string> Shuffled(std::vector<std::string> keys) {
  std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
  return keys;
}

Ref<plist> DocumentWith(const std::vector<std::string>& keys) {
  Ref<plist> document = New<plist>(New<FolderItem>("/no such file"), false);
  for (const std::string& key : keys) document->root->SetString(key, "a value");
  return document;
}

Map MapWith(const std::vector<std::string>& keys) {
  Map map;
  for (const std::string& key : keys) map[key] = "a value";
  return map;
}

// Calls `work` with one key after the other, all over again at their end.
template <typename Work>
void ForKeys(benchmark::State& state, const std::vector<std::string>& keys, const Work& work) {
  std::size_t next = 0;
  for (auto _ : state) {
    work(keys[next]);
    if (++next == keys.size()) next = 0;
  }
}

void MapLookUp(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const Map map = MapWith(keys);
  ForKeys(state, Shuffled(keys),
          [&](const std::string& key) { benchmark::DoNotOptimize(map.find(key)->second.size()); });
}

void NodeExists(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const Ref<plist> document = DocumentWith(keys);
  ForKeys(state, Shuffled(keys),
          [&](const std::string& key) { benchmark::DoNotOptimize(document->root->Exists(key)); });
}

void NodeGetString(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const Ref<plist> document = DocumentWith(keys);
  ForKeys(state, Shuffled(keys), [&](const std::string& key) {
    benchmark::DoNotOptimize(document->root->GetString(key));
  });
}

void NodeGetInteger(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const Ref<plist> document = DocumentWith({});
  for (const std::string& key : keys) document->root->SetInteger(key, 12345);
  ForKeys(state, Shuffled(keys), [&](const std::string& key) {
    benchmark::DoNotOptimize(document->root->GetInteger(key));
  });
}

void NodeSetString(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const Ref<plist> document = DocumentWith(keys);
  ForKeys(state, Shuffled(keys),
          [&](const std::string& key) { document->root->SetString(key, "another"); });
}

// A whole container from nothing; items are keys.
void MapGrow(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(MapWith(keys).size());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void NodeGrow(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  for (auto _ : state) {
    const Ref<plistDict> node = New<plistDict>();
    for (const std::string& key : keys) node->SetString(key, "a value");
    benchmark::DoNotOptimize(node->count());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void CursorWalk(benchmark::State& state) {
  const Ref<plist> document = DocumentWith(Keys(state.range(0)));
  plistDict& root = *document->root;
  for (auto _ : state) {
    for (root.MoveFirst(); !root.eof; root.MoveNext()) benchmark::DoNotOptimize(root.CurrentKey());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Child(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const Ref<plist> document = DocumentWith({});
  for (const std::string& key : keys) document->root->AddChild(key);
  ForKeys(state, Shuffled(keys),
          [&](const std::string& key) { benchmark::DoNotOptimize(document->root->child(key)); });
}

void RemoveAllFromDict(benchmark::State& state) {
  const std::vector<std::string> keys = Keys(state.range(0));
  const std::vector<std::string> order = Shuffled(keys);
  for (auto _ : state) {
    state.PauseTiming();
    const Ref<plist> document = DocumentWith(keys);
    state.ResumeTiming();
    for (const std::string& key : order) document->root->Remove(key, true);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// What the heap holds of a million scalars, apart from the bytes of their keys and texts.
void Overhead(benchmark::State& state, std::int64_t nodes) {
  const std::vector<std::string> keys = Keys(1'000'000 / nodes);
  std::size_t text = 0;
  for (const std::string& key : keys) text += key.size() + 7;
  for (auto _ : state) {
    const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    const Ref<plist> document = New<plist>(nullptr, false);
    document->root->isArray = true;
    for (std::int64_t i = 0; i < nodes; ++i) {
      document->root->AppendDict();
      const Ref<plistDict> node = document->root->children.back();
      for (const std::string& key : keys) node->SetString(key, "a value");
    }
    const std::size_t used = mallinfo2().uordblks + mallinfo2().hblkhd - before;
    state.counters["bytes_per_scalar"] =
        static_cast<double>(used) / 1e6 -
        static_cast<double>(text) / static_cast<double>(keys.size());
  }
}

BENCHMARK(MapLookUp)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(NodeExists)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(NodeGetString)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(NodeGetInteger)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(NodeSetString)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(MapGrow)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(NodeGrow)->Arg(10)->Arg(1000)->Arg(1'000'000);
BENCHMARK(CursorWalk)->Arg(1000)->Arg(1'000'000);
BENCHMARK(Child)->Arg(10)->Arg(1'000'000);
BENCHMARK(RemoveAllFromDict)->Arg(1000)->Arg(1'000'000);
BENCHMARK_CAPTURE(Overhead, in_one_node, 1)->Iterations(1);
BENCHMARK_CAPTURE(Overhead, ten_in_a_node, 100'000)->Iterations(1);

}  // namespace
}  // namespace morvantile
