// Values by key.

#ifndef MORVANTILE_PLIST_STORE_DICTIONARY_H
#define MORVANTILE_PLIST_STORE_DICTIONARY_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/core/bulk_memory.h"
#include "platform/core/exceptions.h"
#include "platform/core/hash_index.h"
#include "platform/text/folding.h"
#include "plist/store/compact_text.h"

namespace morvantile {

// Holds values under keys that are compared by SameText, without regard to letter case. A key keeps
// the spelling in which it came first, also when it is assigned again in another; the order is that
// of insertion.
//
// Operations take amortised constant time. A few keys are searched one by one, more through a hash
// table, and the keys "0", "1", "2" and so on, inserted in this order, need neither.
// References to values and views of keys hold until the next operation that is not const.
template <typename T>
class Dictionary {
 public:
  [[nodiscard]] std::size_t Count() const { return live_; }

  [[nodiscard]] bool HasKey(std::string_view key) const { return Find(key) != nullptr; }

  // The value under `key`; throws KeyNotFoundException if there is none.
  T& Value(std::string_view key) {
    T* const value = Find(key);
    if (value == nullptr) throw KeyNotFoundException(std::string(key));
    return *value;
  }

  // The value under `key`, or null.
  T* Find(std::string_view key) {
    const std::size_t at = PositionOf(key);
    return at == kNone ? nullptr : &slots_[at].value;
  }
  [[nodiscard]] const T* Find(std::string_view key) const {
    const std::size_t at = PositionOf(key);
    return at == kNone ? nullptr : &slots_[at].value;
  }

  // The value under `key`; a new one at the end if there is none.
  T& FindOrAdd(std::string_view key) {
    if (numbered_) {
      const std::size_t number = NumberIn(key);
      if (number < slots_.size()) return slots_[number].value;
      if (number == slots_.size()) return Append(key, 0);
      LeaveNumbering();
    }
    const std::uint32_t hash = HashOfText(key);
    const std::size_t at = PositionOf(key, hash);
    return at == kNone ? Append(key, hash) : slots_[at].value;
  }

  // Takes the key out and returns true, or returns false if it isn't there.
  bool Remove(std::string_view key);

  // Changes a key's spelling or text, at its place. Returns false, and changes nothing,
  // if `from` isn't there or `to` is another key that is.
  bool Rename(std::string_view from, std::string_view to);

  // The key at a position of the order, from 0 on; throws OutOfBoundsException outside it.
  std::string_view Key(std::size_t position) { return slots_[Nth(position)].key.View(); }

  // The value under that key.
  T& ValueAt(std::size_t position) { return slots_[Nth(position)].value; }

  // Whether the keys are just "0", "1" and so on, each at the position of its number. May be false
  // for keys that became so by removal or renaming.
  [[nodiscard]] bool IsNumbered() const { return numbered_; }

  void Clear() { *this = Dictionary(); }

 private:
  struct Slot {
    CompactText<16> key;
    T value{};
    std::uint32_t hash = 0;  // unless the keys are numbered
    bool is_removed = false;
  };

  // A place among the slots and the number of keys before it.
  struct Place {
    std::uint32_t slot = 0;
    std::uint32_t keys = 0;
  };

  static constexpr std::size_t kNone = HashIndex::kNone;
  static constexpr std::size_t kMostWithoutIndex = 16;
  static constexpr std::size_t kFirstRoom = 2;
  static constexpr std::size_t kSecondRoom = 8;

  // The number that the key is the text of, as Str prints it; or kNone.
  static std::size_t NumberIn(std::string_view key);

  [[nodiscard]] std::size_t PositionOf(std::string_view key) const;
  [[nodiscard]] std::size_t PositionOf(std::string_view key, std::uint32_t hash) const;
  T& Append(std::string_view key, std::uint32_t hash);
  void LeaveNumbering();
  void RebuildIndex();
  void RemoveAt(std::size_t at);
  void Trim();
  void CloseGaps();
  std::size_t Nth(std::size_t position);

  std::vector<Slot, BulkAllocator<Slot>>
      slots_;                // in order; removed keys leave gaps, but none at the end
  HashIndex index_;          // of the slots, if there are more than kMostWithoutIndex keys
  std::uint32_t live_ = 0;   // slots that are not removed
  std::uint32_t first_ = 0;  // the slots before are all removed
  Place last_asked_;         // where walks over gaps start
  bool numbered_ = true;
};

template <typename T>
std::size_t Dictionary<T>::NumberIn(std::string_view key) {
  constexpr std::size_t kMostDigits = 9;
  if (key.empty() || key.size() > kMostDigits || (key[0] == '0' && key.size() > 1)) return kNone;
  std::size_t number = 0;
  for (const char c : key) {
    if (c < '0' || c > '9') return kNone;
    number = number * 10 + static_cast<std::size_t>(c - '0');
  }
  return number;
}

template <typename T>
std::size_t Dictionary<T>::PositionOf(std::string_view key) const {
  if (numbered_) {
    const std::size_t number = NumberIn(key);
    return number < slots_.size() ? number : kNone;
  }
  return PositionOf(key, HashOfText(key));
}

template <typename T>
std::size_t Dictionary<T>::PositionOf(std::string_view key, std::uint32_t hash) const {
  const auto is_meant = [&](std::size_t at) { return SameText(slots_[at].key.View(), key); };
  if (!index_.IsEmpty()) return index_.Find(hash, is_meant);
  for (std::size_t at = first_; at < slots_.size(); ++at) {
    if (slots_[at].hash == hash && !slots_[at].is_removed && is_meant(at)) return at;
  }
  return kNone;
}

template <typename T>
T& Dictionary<T>::Append(std::string_view key, std::uint32_t hash) {
  if (slots_.size() == kNone) throw std::length_error("Dictionary");
  if (slots_.size() == slots_.capacity()) {
    slots_.reserve(slots_.empty() ? kFirstRoom : std::max(kSecondRoom, slots_.size() * 3 / 2));
  }
  Slot& slot = slots_.emplace_back();
  slot.key.Assign(key);
  slot.hash = hash;
  ++live_;
  if (!index_.IsEmpty()) {
    index_.Add(hash, static_cast<std::uint32_t>(slots_.size() - 1));
  } else if (!numbered_ && live_ > kMostWithoutIndex) {
    RebuildIndex();
  }
  return slot.value;
}

template <typename T>
void Dictionary<T>::LeaveNumbering() {
  if (!numbered_) return;
  numbered_ = false;
  for (std::size_t at = 0; at < slots_.size(); ++at) {
    slots_[at].hash = HashOfText(slots_[at].key.View());
  }
  RebuildIndex();
}

template <typename T>
void Dictionary<T>::RebuildIndex() {
  const bool is_wanted = live_ > kMostWithoutIndex;
  index_.Reset(is_wanted ? live_ : 0);
  if (!is_wanted) return;
  for (std::size_t at = first_; at < slots_.size(); ++at) {
    if (!slots_[at].is_removed) index_.Add(slots_[at].hash, static_cast<std::uint32_t>(at));
  }
}

template <typename T>
bool Dictionary<T>::Remove(std::string_view key) {
  const std::size_t at = PositionOf(key);
  if (at == kNone) return false;
  if (at + 1 < slots_.size()) LeaveNumbering();
  RemoveAt(at);
  return true;
}

template <typename T>
void Dictionary<T>::RemoveAt(std::size_t at) {
  if (!index_.IsEmpty()) index_.Remove(slots_[at].hash, static_cast<std::uint32_t>(at));
  slots_[at] = Slot();
  slots_[at].is_removed = true;
  --live_;
  if (at < last_asked_.slot) --last_asked_.keys;
  if (live_ == 0) {
    Clear();
  } else {
    Trim();
  }
}

template <typename T>
void Dictionary<T>::Trim() {
  constexpr std::size_t kGapsAlwaysAllowed = 16;
  while (slots_.back().is_removed) slots_.pop_back();
  while (slots_[first_].is_removed) ++first_;
  if (last_asked_.slot > slots_.size()) last_asked_ = {first_, 0};
  if (slots_.size() - live_ > live_ + kGapsAlwaysAllowed) CloseGaps();
}

template <typename T>
void Dictionary<T>::CloseGaps() {
  std::size_t kept = 0;
  for (std::size_t at = first_; at < slots_.size(); ++at) {
    if (!slots_[at].is_removed) std::swap(slots_[kept++], slots_[at]);
  }
  while (slots_.size() > kept) slots_.pop_back();
  first_ = 0;
  last_asked_ = {};
  RebuildIndex();
}

template <typename T>
bool Dictionary<T>::Rename(std::string_view from, std::string_view to) {
  const std::size_t at = PositionOf(from);
  const std::size_t taken = PositionOf(to);
  if (at == kNone || (taken != kNone && taken != at)) return false;
  LeaveNumbering();
  Slot& slot = slots_[at];
  const std::uint32_t old_hash = std::exchange(slot.hash, HashOfText(to));
  slot.key = CompactText<16>(to);
  if (!index_.IsEmpty()) {
    index_.Remove(old_hash, static_cast<std::uint32_t>(at));
    index_.Add(slot.hash, static_cast<std::uint32_t>(at));
  }
  return true;
}

// The slot of the key at a position. Over gaps it walks from where the last call ended, so that
// walking all keys, and removing some on the way, takes linear time; for a jump it closes the gaps.
template <typename T>
std::size_t Dictionary<T>::Nth(std::size_t position) {
  constexpr std::size_t kLongestWalk = 8;
  if (position >= live_) throw OutOfBoundsException();
  if (slots_.size() - first_ == live_) return first_ + position;
  Place place = last_asked_.slot < first_ ? Place{first_, 0} : last_asked_;
  const std::size_t distance =
      std::max<std::size_t>(position, place.keys) - std::min<std::size_t>(position, place.keys);
  if (distance > kLongestWalk) {
    CloseGaps();
    return position;
  }
  while (place.keys > position) place.keys -= slots_[--place.slot].is_removed ? 0U : 1U;
  while (place.keys < position) place.keys += slots_[place.slot++].is_removed ? 0U : 1U;
  while (slots_[place.slot].is_removed) ++place.slot;
  last_asked_ = place;
  return place.slot;
}

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_STORE_DICTIONARY_H
