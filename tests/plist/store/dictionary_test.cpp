#include "plist/store/dictionary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/text.h"

namespace morvantile {
namespace {

using ::testing::ElementsAre;

template <typename T>
std::vector<std::string> Keys(Dictionary<T>& dictionary) {
  std::vector<std::string> keys;
  for (std::size_t i = 0; i < dictionary.Count(); ++i) keys.emplace_back(dictionary.Key(i));
  return keys;
}

TEST(Dictionary, KeepsTheFirstSpellingAndTheOrderOfInsertion) {
  Dictionary<int> dictionary;
  dictionary.FindOrAdd("Zebra") = 1;
  dictionary.FindOrAdd("Größe") = 2;
  dictionary.FindOrAdd("a key that is longer than fifteen bytes") = 3;
  dictionary.FindOrAdd("GRÖßE") = 4;
  EXPECT_THAT(Keys(dictionary),
              ElementsAre("Zebra", "Größe", "a key that is longer than fifteen bytes"));
  EXPECT_EQ(dictionary.Value("gRÖßE"), 4);
  EXPECT_FALSE(dictionary.HasKey("Grösse"));
}

TEST(Dictionary, ThrowsForWhatIsNotThere) {
  Dictionary<int> dictionary;
  EXPECT_THROW(dictionary.Value("a"), KeyNotFoundException);
  EXPECT_THROW(dictionary.Key(0), OutOfBoundsException);
  EXPECT_FALSE(dictionary.Remove("a"));
}

TEST(Dictionary, TakesNumbersForPlainKeysOnceTheyHaveGaps) {
  Dictionary<int> dictionary;
  for (int i = 0; i < 20; ++i) dictionary.FindOrAdd(Str(i)) = i;
  EXPECT_TRUE(dictionary.IsNumbered());
  EXPECT_FALSE(dictionary.HasKey("01"));
  EXPECT_FALSE(dictionary.HasKey("20"));
  EXPECT_TRUE(dictionary.Remove("19"));
  EXPECT_TRUE(dictionary.IsNumbered());
  EXPECT_TRUE(dictionary.Remove("3"));
  EXPECT_FALSE(dictionary.IsNumbered());
  EXPECT_FALSE(dictionary.HasKey("3"));
  EXPECT_EQ(dictionary.Value("18"), 18);
  EXPECT_EQ(dictionary.Key(3), "4");
}

TEST(Dictionary, RenamesAtTheSamePlace) {
  Dictionary<int> dictionary;
  for (const auto& [key, value] : {std::pair{"a", 1}, {"b", 2}, {"c", 3}}) {
    dictionary.FindOrAdd(key) = value;
  }
  EXPECT_FALSE(dictionary.Rename("b", "C"));
  EXPECT_FALSE(dictionary.Rename("x", "y"));
  EXPECT_TRUE(dictionary.Rename("b", "B"));
  EXPECT_TRUE(dictionary.Rename("a", "x"));
  EXPECT_THAT(Keys(dictionary), ElementsAre("x", "B", "c"));
  EXPECT_EQ(dictionary.Value("x"), 1);
  EXPECT_FALSE(dictionary.HasKey("a"));
}

TEST(Dictionary, KeepsWalkingWhileKeysGo) {
  Dictionary<int> dictionary;
  for (int i = 0; i < 5000; ++i) dictionary.FindOrAdd("k" + Str(i)) = i;
  std::vector<std::string> kept;
  for (std::size_t i = 0; i < dictionary.Count();) {
    const std::string key(dictionary.Key(i));
    if (dictionary.ValueAt(i) % 3 == 0) {
      kept.push_back(key);
      ++i;
    } else {
      dictionary.Remove(key);
    }
  }
  EXPECT_EQ(kept.size(), 1667U);
  EXPECT_EQ(Keys(dictionary), kept);
}

// The same operations, drawn at random, on a Dictionary and on a plain list.
TEST(Dictionary, AgreesWithAPlainListOverRandomOperations) {
  for (const bool numbers : {false, true}) {
    std::mt19937 random(7);
    Dictionary<int> dictionary;
    std::vector<std::pair<std::string, int>> list;
    const auto find = [&](const std::string& key) {
      return std::find_if(list.begin(), list.end(), [&](auto& e) { return e.first == key; });
    };
    for (int step = 0; step < 30000; ++step) {
      const int range = step / 10000 % 2 == 0 ? 3000 : 12;
      const auto number = static_cast<std::int64_t>(random()) % range;
      const std::string key = (numbers ? "" : "key ") + Str(number);
      const auto at = find(key);
      switch (step < 6000 ? 3 : random() % 4) {
        case 0:
          ASSERT_EQ(dictionary.Remove(key), at != list.end());
          if (at != list.end()) list.erase(at);
          break;
        case 1:
          ASSERT_EQ(dictionary.HasKey(key), at != list.end());
          break;
        case 2:
          if (!list.empty()) {
            const std::size_t position = random() % list.size();
            ASSERT_EQ(dictionary.Key(position), list[position].first);
            ASSERT_EQ(dictionary.ValueAt(position), list[position].second);
          }
          break;
        default:
          dictionary.FindOrAdd(key) = step;
          if (at == list.end()) {
            list.emplace_back(key, step);
          } else {
            at->second = step;
          }
      }
      ASSERT_EQ(dictionary.Count(), list.size());
    }
  }
}

}  // namespace
}  // namespace morvantile
