#include "plist/store/dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/text/text.h"

namespace morvantile {
namespace {

// The same operations, drawn at random, on a Dictionary and on a plain list.
TEST(Dictionary, AgreesWithAPlainListOverRandomOperations) {
  for (const char* prefix : {"key of bytes ", ""}) {
    std::mt19937 random(7);
    Dictionary<int> dictionary;
    std::vector<std::pair<std::string, int>> list;
    const auto find = [&](const std::string& key) {
      return std::find_if(list.begin(), list.end(), [&](auto& e) { return e.first == key; });
    };
    for (int step = 0; step < 12000; ++step) {
      const int range = step / 4000 % 2 == 0 ? 1500 : 12;
      const bool shrinks = step / 2000 % 3 == 2 && list.size() > 5;
      const std::string key = shrinks ? list[random() % list.size()].first
                                      : prefix + Str(static_cast<std::int64_t>(random()) % range);
      const std::string other = prefix + Str(static_cast<std::int64_t>(random()) % range);
      const auto at = find(key);
      const bool is_there = at != list.end();
      const bool is_renamed = is_there && (key == other || find(other) == list.end());
      const std::size_t place = random() % (list.size() + 1);
      switch (shrinks ? 0 : step < 3000 ? 4 : random() % 5) {
        case 0:
          ASSERT_EQ(dictionary.Remove(key), is_there);
          if (is_there) list.erase(at);
          break;
        case 1:
          ASSERT_EQ(dictionary.HasKey(key), is_there);
          break;
        case 2:
          ASSERT_EQ(dictionary.Rename(key, other), is_renamed);
          if (is_renamed) at->first = other;
          break;
        case 3:
          if (place == list.size()) break;
          ASSERT_EQ(dictionary.Key(place), list[place].first);
          ASSERT_EQ(dictionary.ValueAt(place), list[place].second);
          break;
        default:
          dictionary.FindOrAdd(key) = step;
          (is_there ? *at : list.emplace_back(key, 0)).second = step;
      }
      ASSERT_EQ(dictionary.Count(), list.size());
    }
  }
}

}  // namespace
}  // namespace morvantile
