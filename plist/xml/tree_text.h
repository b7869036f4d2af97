// The text form of a tree.

#ifndef MORVANTILE_PLIST_XML_TREE_TEXT_H
#define MORVANTILE_PLIST_XML_TREE_TEXT_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plist/plistDict.h"
#include "plist/store/entries.h"

namespace morvantile {

// Lays out the entries of a node, and of all nodes below it, as lines of text: those of the XML
// file, or those of the debug dump, which has a mark behind each key. What a background turn adds
// or removes meanwhile is written or not.
class TreeText {
 public:
  enum class Form { kFile, kDump };

  // The text goes to `sink`, in pieces.
  TreeText(Form form, std::function<void(std::string_view)> sink)
      : form_(form), sink_(std::move(sink)) {}

  void Write(const plistDict& node, std::int64_t depth);

 private:
  // The writing of one node.
  struct Level {
    Ref<const plistDict> node;
    std::string_view name;               // of the node's element
    std::size_t position = 0;            // of the key to be written next
    std::string_view child_name;         // of the elements under the key before it
    std::uint32_t child = 0;             // the place of the next of them, 0 for none
    std::vector<std::uint32_t> repeats;  // see Repeats
  };

  void WriteEntry(Level& level);
  void WriteKey(std::string_view key, bool has_mark);
  void WriteScalar(const Entry& entry);
  void WriteChild(Level& level);
  void Enter(const plistDict& node, std::string_view name);
  // For each place in childrenNames, the next place of the same name, or 0. Empty if no name is
  // there twice, as in all trees but those of files that repeat a key.
  static std::vector<std::uint32_t> Repeats(const plistDict& node);
  void Leave();
  template <typename... Parts>
  void WriteLine(const Parts&... parts);
  std::string_view Encoded(std::string_view text);
  void Flush(std::size_t size);

  Form form_;
  std::function<void(std::string_view)> sink_;
  std::string text_;
  std::string encoded_;
  std::int64_t depth_ = 0;
  std::string indentation_;
  std::vector<Level> levels_;  // the innermost last
};

}  // namespace morvantile

#endif  // MORVANTILE_PLIST_XML_TREE_TEXT_H
