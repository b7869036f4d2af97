#include "plist/xml/tree_text.h"

#include <algorithm>
#include <unordered_map>

#include "platform/core/background.h"
#include "platform/text/folding.h"
#include "platform/ui/clipboard.h"
#include "plist/plist.h"
#include "plist/store/prefetch.h"
#include "plist/xml/brackets.h"

namespace morvantile {

namespace {

constexpr std::size_t kPieceSize = std::size_t{512} * 1024;  // beyond what a file buffers

}  // namespace

void plistDict::Write(TextOutputStream& out, std::int64_t depth) const {
  TreeText text(TreeText::Form::kFile, [&out](std::string_view piece) { out.Write(piece); });
  text.Write(*this, depth);
}

void plistDict::Dump(std::int64_t depth) const {
  std::string dump = Clipboard().Text();
  TreeText text(TreeText::Form::kDump, [&dump](std::string_view piece) { dump += piece; });
  text.Write(*this, depth);
  Clipboard clipboard;
  clipboard.SetText(dump);
  clipboard.Close();
}

void TreeText::Write(const plistDict& node, std::int64_t depth) {
  depth_ = depth;
  indentation_.assign(static_cast<std::size_t>(std::max<std::int64_t>(depth, 0)), '\t');
  Enter(node, {});
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.child != 0) {
      WriteChild(level);
    } else if (level.position < level.node->entries_.Count()) {
      WriteEntry(level);
    } else {
      Leave();
    }
    RuntimeBackgroundTask();
    Flush(kPieceSize);
  }
  Flush(1);
}

void TreeText::WriteEntry(Level& level) {
  Dictionary<Entry>& entries = level.node->entries_.Listed();
  const Entry& entry = entries.ValueAt(level.position);
  if (!level.node->isArray) WriteKey(entries.Key(level.position), entry.has_mark);
  ++level.position;
  if (entry.is_container) {
    level.child_name = entry.type.Is(TypeWord::kDict) ? "dict" : "array";
    level.child = entry.child;
  } else {
    WriteScalar(entry);
  }
}

void TreeText::WriteKey(std::string_view key, bool has_mark) {
  WriteLine("<key>", key, "</key>");
  if (form_ == Form::kDump) has_mark ? WriteLine("<search/>") : WriteLine("<nosearch/>");
}

void TreeText::WriteScalar(const Entry& entry) {
  const std::string_view type = entry.type.View();
  const std::string_view text = Encoded(entry.text.View());
  if (entry.type.Is(TypeWord::kData)) {
    WriteLine("<data>");
    WriteLine(text);
    WriteLine("</data>");
  } else if (entry.type.Is(TypeWord::kBoolean)) {
    SameText(text, "true") ? WriteLine("<true/>") : WriteLine("<false/>");
  } else {
    WriteLine("<", type, ">", text, "</", type, ">");
  }
}

// Writes the child at the level's place, and every further one of the same name after it.
void TreeText::WriteChild(Level& level) {
  const std::size_t place = level.child;
  level.child = place < level.repeats.size() ? level.repeats[place] : 0;
  if (place >= level.node->children.size()) return;
  const Ref<plistDict> child = level.node->children[place];
  ExpectChild(*level.node, place + 1);
  if (!child) return;
  if (child->count() == 0) {
    WriteLine("<", level.child_name, "/>");
    return;
  }
  WriteLine("<", level.child_name, ">");
  if (++depth_ > 0) indentation_ += '\t';
  Enter(*child, level.child_name);
}

void TreeText::Enter(const plistDict& node, std::string_view name) {
  Level& level = levels_.emplace_back();
  level.node = Ref<const plistDict>(&node);
  level.name = name;
  if (node.childrenNames.size() > 1) level.repeats = Repeats(node);
}

std::vector<std::uint32_t> TreeText::Repeats(const plistDict& node) {
  if (!node.HasRepeatedNames()) return {};
  const ListFromOne<std::string>& names = node.childrenNames;
  std::vector<std::uint32_t> next(names.size());
  std::unordered_map<const Entry*, std::uint32_t> seen;
  for (std::size_t place = names.size() - 1; place > 0; --place) {
    const auto [at, is_new] = seen.try_emplace(node.entries_.Find(names[place]), 0);
    next[place] = std::exchange(at->second, static_cast<std::uint32_t>(place));
  }
  return next;
}

void TreeText::Leave() {
  const std::string_view name = levels_.back().name;
  levels_.pop_back();
  if (levels_.empty()) return;
  if (depth_-- > 0) indentation_.pop_back();
  WriteLine("</", name, ">");
}

// The text with its brackets escaped, until the next call.
std::string_view TreeText::Encoded(std::string_view text) {
  if (!HasBracket(text)) return text;
  encoded_.clear();
  AppendEncoded(encoded_, text);
  return encoded_;
}

template <typename... Parts>
void TreeText::WriteLine(const Parts&... parts) {
  text_ += indentation_;
  ((text_ += parts), ...);
  text_ += form_ == Form::kFile ? '\n' : '\r';
}

void TreeText::Flush(std::size_t size) {
  if (text_.size() < size) return;
  sink_(text_);
  text_.clear();
}

}  // namespace morvantile
