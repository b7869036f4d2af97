#include "plist/store/dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/text/text.h"

namespace morvantile {
namespace {

TEST(Dictionary, KeepsTheFirstSpellingAndThrowsForWhatIsNotThere) {
  Dictionary<int> dictionary;
  dictionary.FindOrAdd("Größe, a key of more than fifteen bytes") = 1;
  dictionary.FindOrAdd("GRÖßE, a key of more than fifteen bytes") = 2;
  EXPECT_EQ(dictionary.Key(0), "Größe, a key of more than fifteen bytes");
  EXPECT_EQ(dictionary.Value(dictionary.Key(0)), 2);
  EXPECT_THROW(dictionary.Value("a"), KeyNotFoundException);
  EXPECT_THROW(dictionary.Key(1), OutOfBoundsException);
}

TEST(Dictionary, TakesNumbersForPlainKeysOnceTheyHaveGaps) {
  Dictionary<int> dictionary;
  for (int i = 0; i < 20; ++i) dictionary.FindOrAdd(Str(i)) = i;
  EXPECT_TRUE(dictionary.Remove("19") && dictionary.IsNumbered());
  EXPECT_FALSE(dictionary.HasKey("01") || dictionary.HasKey("19"));
  EXPECT_TRUE(dictionary.Remove("3") && !dictionary.IsNumbered());
  EXPECT_FALSE(dictionary.HasKey("3"));
  EXPECT_EQ(dictionary.Key(3), "4");
}

// The same operations, drawn at random, on a Dictionary and on a plain list.
TEST(Dictionary, AgreesWithAPlainListOverRandomOperations) {
  for (const char* prefix : {"key ", ""}) {
    std::mt19937 random(7);
    Dictionary<int> dictionary;
    std::vector<std::pair<std::string, int>> list;
    for (int step = 0; step < 12000; ++step) {
      const int range = step / 4000 % 2 == 0 ? 3000 : 12;
      const auto draw = [&] { return prefix + Str(static_cast<std::int64_t>(random()) % range); };
      const auto find = [&](const std::string& key) {
        return std::find_if(list.begin(), list.end(), [&](auto& e) { return e.first == key; });
      };
      const std::string key = draw();
      const std::string other = draw();
      const auto at = find(key);
      const bool is_there = at != list.end();
      switch (step < 3000 ? 4 : random() % 5) {
        case 0:
          ASSERT_EQ(dictionary.Remove(key), is_there);
          if (is_there) list.erase(at);
          break;
        case 1:
          ASSERT_EQ(dictionary.HasKey(key), is_there);
          break;
        case 2: {
          const bool is_free = key == other || find(other) == list.end();
          ASSERT_EQ(dictionary.Rename(key, other), is_there && is_free);
          if (is_there && is_free) at->first = other;
          break;
        }
        case 3:
          for (std::size_t place = list.size() / 2;
               place < std::min(list.size(), list.size() / 2 + 3); ++place) {
            ASSERT_EQ(dictionary.Key(place), list[place].first);
            ASSERT_EQ(dictionary.ValueAt(place), list[place].second);
          }
          break;
        default:
          dictionary.FindOrAdd(key) = step;
          is_there ? at->second = step : list.emplace_back(key, step).second;
      }
      ASSERT_EQ(dictionary.Count(), list.size());
    }
  }
}

}  // namespace
}  // namespace morvantile
