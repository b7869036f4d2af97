// Trees drawn at random.

#ifndef MORVANTILE_TESTS_PLIST_DRAWING_H
#define MORVANTILE_TESTS_PLIST_DRAWING_H

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "plist/plistDict.h"

namespace morvantile {

// Fills nodes with entries of every type, some levels deep. The same seed draws the same tree.
class Drawing {
 public:
  // What keys and texts are made of: all that the library's own reader takes unchanged, or only
  // what is well-formed XML as the library writes it, with the types of a property list.
  enum class Alphabet { kAnything, kXml };

  Drawing(unsigned seed, Alphabet alphabet) : random_(seed), alphabet_(alphabet) {}

  void Fill(plistDict& root) { Fill(root, 0); }

 private:
  void Fill(plistDict& node, int depth);
  void Set(plistDict& node, const std::string& key, int depth);
  void Append(plistDict& node, int depth);
  std::int64_t Below(std::int64_t bound);
  std::string TextOf(const std::vector<std::string>& pieces);
  std::string Text();
  std::string Key(std::int64_t number);
  double Half() { return static_cast<double>(Below(1000)) + 0.5; }
  Ref<Date> ADate();

  std::mt19937_64 random_;
  Alphabet alphabet_;
};

}  // namespace morvantile

#endif  // MORVANTILE_TESTS_PLIST_DRAWING_H
