// What a node holds under its keys, as dictionaries.

#ifndef MORVANTILE_PLIST_KEY_TABLES_H
#define MORVANTILE_PLIST_KEY_TABLES_H

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/core/export.h"

namespace morvantile {

class Entries;

// The property `types` of a node: the type word of every key, in the order of the keys. It belongs
// to the node and lives as long. Keys are compared without regard to letter case, and keep the
// spelling in which they came first.
class MORVANTILE_API Types {
 public:
  explicit Types(Entries& entries) : entries_(entries) {}

  [[nodiscard]] std::size_t Count() const;
  [[nodiscard]] bool HasKey(std::string_view key) const;
  // Throws KeyNotFoundException for a key that isn't there.
  [[nodiscard]] std::string Value(std::string_view key) const;
  void SetValue(std::string_view key, std::string_view word);
  // The key at a position, from 0 on; throws OutOfBoundsException outside. Constant time.
  [[nodiscard]] std::string Key(std::size_t position) const;
  // Does nothing for a key that isn't there.
  void Remove(std::string_view key);
  void Clear();

 private:
  Entries& entries_;
};

// The property `values` of a node: the text of every scalar. As Types; Count takes linear time.
class MORVANTILE_API Values {
 public:
  explicit Values(Entries& entries) : entries_(entries) {}

  [[nodiscard]] std::size_t Count() const;
  [[nodiscard]] bool HasKey(std::string_view key) const;
  [[nodiscard]] std::string Value(std::string_view key) const;
  void SetValue(std::string_view key, std::string_view text);
  void Remove(std::string_view key);
  void Clear();

 private:
  Entries& entries_;
};

// The property `searched` of a node: whether the running search has delivered a key. As Values.
class MORVANTILE_API Searched {
 public:
  explicit Searched(Entries& entries) : entries_(entries) {}

  [[nodiscard]] std::size_t Count() const;
  [[nodiscard]] bool HasKey(std::string_view key) const;
  [[nodiscard]] bool Value(std::string_view key) const;
  void SetValue(std::string_view key, bool mark);
  void Remove(std::string_view key);
  void Clear();

 private:
  Entries& entries_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_KEY_TABLES_H
