#include "plist/xml/reader.h"

#include <algorithm>
#include <utility>

#include "platform/core/background.h"
#include "platform/core/bulk_memory.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "platform/text/text_search.h"
#include "plist/plist.h"
#include "plist/xml/brackets.h"

namespace morvantile {
namespace {

constexpr char kLineSeparator = '\r';

std::string_view WithoutLeadingBlanks(std::string_view line) {
  while (!line.empty() && static_cast<unsigned char>(line.front()) <= ' ') {
    line.remove_prefix(1);
    RuntimeBackgroundTask();
  }
  return line;
}

// Where the first field of a line ends: in front of the first "<" that follows a ">" and doesn't
// begin a closing tag. The first ">" of the line is at `at`.
std::size_t EndOfField(std::string_view line, std::size_t at) {
  while (at != std::string_view::npos && at + 1 < line.size()) {
    if (line[at + 1] == '<' && (at + 2 == line.size() || line[at + 2] != '/')) return at + 1;
    at = line.find('>', at + 1);
  }
  return line.size();
}

// Where "</", `name` and then `end` first occur in the line, in any letter case;
// npos if they don't. Long names, which nothing but broken files have, are left to the general
// search.
std::size_t FindClosingTag(std::string_view line, std::string_view name, std::string_view end) {
  constexpr std::size_t kLongName = 64;
  if (name.size() > kLongName) {
    Occurrences tags(line, std::string("</").append(name).append(end));
    return tags.Next() ? tags.Begin() : std::string_view::npos;
  }
  for (std::size_t at = line.find("</"); at != std::string_view::npos;
       at = line.find("</", at + 1)) {
    const std::string_view rest = line.substr(at + 2);
    const std::size_t length = LengthOfPrefix(rest, name);
    if ((length > 0 || name.empty()) && rest.substr(length).starts_with(end)) return at;
  }
  return std::string_view::npos;
}

bool BeginsClosingTag(std::string_view line) {
  return line.size() >= 2 && line[0] == '<' && line[1] == '/';
}

bool IsClosingTag(std::string_view line, std::string_view name) {
  return BeginsClosingTag(line) && line.ends_with('>') &&
         SameText(line.substr(2, line.size() - 3), name);
}

// How many bytes the last six characters of the line have if they are "</key>"; else 0.
std::size_t LengthOfKeyEnd(std::string_view line) {
  constexpr std::string_view kEnd = "</key>";
  constexpr std::size_t kMostBytes = 4 * kEnd.size();
  if (line.ends_with(kEnd)) return kEnd.size();
  if (!line.ends_with('>')) return 0;
  const std::string_view tail = line.substr(line.size() - std::min(line.size(), kMostBytes));
  const std::string end = Right(tail, static_cast<std::int64_t>(kEnd.size()));
  return SameText(end, kEnd) ? end.size() : 0;
}

// The bytes of the "<key>" that the line begins with, or 0.
std::size_t LengthOfKeyTag(std::string_view line) {
  constexpr std::string_view kTag = "<key>";
  if (line.size() < kTag.size() || !MayBeLetter(line[1], kTag[1])) return 0;
  return LengthOfPrefix(line, kTag);
}

bool IsEndTag(std::string_view line, std::string_view end_tag) {
  return BeginsClosingTag(line) && SameText(line, end_tag);
}

bool IsEmptyDict(std::string_view line) {
  return line.ends_with('>') && line.size() > 1 && line[line.size() - 2] == '/' &&
         SameText(line, "<dict/>");
}

// Whether the line is an element, as the writer lays it out, whose text holds neither a tag nor an
// entity; then that is in `text`.
inline bool IsUsual(std::string_view line, std::string_view opening, std::string_view closing,
                    std::string_view& text) {
  const std::size_t tags = opening.size() + closing.size();
  if (line.size() < tags || !line.starts_with(opening) || !line.ends_with(closing)) return false;
  text = line.substr(opening.size(), line.size() - tags);
  return text.find('<') == std::string_view::npos && text.find('&') == std::string_view::npos;
}

// The type of the scalar that the line is as the writer lays it out, with its text in `text`; or
// kNone.
TypeWord::Known UsualType(std::string_view line, std::string_view& text) {
  if (IsUsual(line, "<string>", "</string>", text)) return TypeWord::kString;
  if (IsUsual(line, "<integer>", "</integer>", text)) return TypeWord::kInteger;
  if (IsUsual(line, "<real>", "</real>", text)) return TypeWord::kReal;
  if (IsUsual(line, "<date>", "</date>", text)) return TypeWord::kDate;
  return TypeWord::kNone;
}

}  // namespace

void plistDict::Load(TextInputStream* stream, std::string_view own_name, bool as_array,
                     const BackRef<plistDict>& above, const BackRef<plist>& document, bool read) {
  types.Clear();
  values.Clear();
  name = own_name;
  parent = above;
  rootClass = document;
  indexOf = -1;
  isArray = as_array;
  if (!read) return;
  const BulkScope scope;
  Reader(*stream).Read(*this);
}

std::string plistDict::StripAll(std::string_view text) const {
  return std::string(WithoutLeadingBlanks(text));
}

void Reader::Read(plistDict& root) {
  Enter(root);
  while (innermost_ != nullptr) {
    Activation& in = *innermost_;
    if (in.has_fields) {
      ReadField(in);
    } else if (in.has_ended || stream_.AtEOF()) {
      Leave();
    } else {
      ReadLine(in);
    }
  }
}

void Reader::Activation::Begin(plistDict& read) {
  held = Ref<plistDict>(&read);
  node = &read;
  end_tag = read.isArray ? "</array>" : "</dict>";
  for (std::string* text : {&key, &value, &tag, &kept_fields}) text->clear();
  type = TypeWord();
  in_value = self_closed = has_fields = has_ended = false;
  fields = {};
}

void Reader::Enter(plistDict& node) {
  if (depth_ == activations_.size()) activations_.emplace_back();
  innermost_ = &activations_[depth_++];
  innermost_->Begin(node);
}

void Reader::Leave() {
  innermost_->held = nullptr;
  --depth_;
  innermost_ = depth_ > 0 ? &activations_[depth_ - 1] : nullptr;
}

void Reader::ReadLine(Activation& in) {
  if (in.node->isArray && !in.in_value) in.key = Str(++in.node->indexOf);
  std::string_view line;
  stream_.ReadLine(line);
  in.fields = WithoutLeadingBlanks(line);
  in.has_fields = in.in_value || !ReadUsualLine(in, in.fields);
  if (!in.kept_fields.empty()) in.kept_fields = std::string();
  RuntimeBackgroundTask();
}

// A shortcut for the lines that most files consist of, a key or a scalar on one line, with the same
// result as ReadField. Returns whether the line was one.
bool Reader::ReadUsualLine(Activation& in, std::string_view line) {
  std::string_view text;
  if (IsUsual(line, "<key>", "</key>", text)) {
    RuntimeBackgroundTask();
    in.key = text;
    return true;
  }
  const TypeWord::Known type = UsualType(line, text);
  if (type == TypeWord::kNone) return false;
  RuntimeBackgroundTask();
  in.self_closed = false;
  in.type = TypeWord(type);
  Entry& entry = in.node->entries_.List(in.key);
  entry.SetType(in.type);
  entry.SetText(text);
  in.value = text;
  return true;
}

void Reader::ReadField(Activation& in) {
  const std::size_t bracket = in.fields.find('>');
  std::string_view line = in.fields.substr(0, EndOfField(in.fields, bracket));
  in.fields.remove_prefix(line.size());
  in.has_fields = !in.fields.empty();
  plistDict* const opened = StepField(in, line, bracket);
  if (!in.has_fields) in.has_ended = IsEndTag(line, in.end_tag) || IsEmptyDict(line);
  // The child's lines take the place of this one in the stream.
  if (opened != nullptr && in.has_fields && in.kept_fields.empty()) {
    in.kept_fields = in.fields;
    in.fields = in.kept_fields;
  }
  if (opened != nullptr) Enter(*opened);
  RuntimeBackgroundTask();
}

// Returns the node to be read next, or null. The first ">" of the line is at `bracket`.
plistDict* Reader::StepField(Activation& in, std::string_view& line, std::size_t bracket) {
  if (const std::size_t length = LengthOfKeyTag(line)) {
    ReadKey(in, line, length);
    return nullptr;
  }
  if (IsEndTag(line, in.end_tag)) return nullptr;
  if (in.in_value && !IsClosingTag(line, in.tag)) {
    Continue(in, line);
    return nullptr;
  }
  return bracket == std::string_view::npos ? nullptr : ReadTag(in, line, bracket);
}

void Reader::ReadKey(Activation& in, std::string_view& line, std::size_t length) {
  line.remove_prefix(length);
  line.remove_suffix(LengthOfKeyEnd(line));
  in.key = line;
}

void Reader::Continue(Activation& in, std::string_view& line) {
  const std::size_t end = FindClosingTag(line, in.tag, ">");
  if (end != std::string_view::npos) {
    line = line.substr(0, end);
    in.in_value = false;
  }
  AppendDecoded(in.value, line);
  if (!SameText(in.tag, "data")) in.value += kLineSeparator;
  if (!in.in_value) StoreValue(in, in.node->entries_.FindOrAdd(in.key));
}

plistDict* Reader::ReadTag(Activation& in, std::string_view& line, std::size_t bracket) {
  std::string_view tag = line.substr(0, bracket);
  if (tag.starts_with('<')) tag.remove_prefix(1);
  const bool is_self_closed = tag.ends_with('/');
  const bool is_closing = tag.starts_with('/');
  if (is_self_closed && SameText(tag, "false/")) {
    ReadBoolean(in, "false");
  } else if (is_self_closed && SameText(tag, "true/")) {
    ReadBoolean(in, "true");
  } else if (is_closing && (SameText(tag.substr(1), in.type.View()) || SameText(tag, "/key"))) {
    CloseValue(in);
  } else {
    OpenElement(in, tag, line);
  }
  return OpenChild(in, line);
}

void Reader::ReadBoolean(Activation& in, std::string_view word) {
  Entry& entry = in.node->entries_.List(in.key);
  in.type = TypeWord(TypeWord::kBoolean);
  entry.SetType(in.type);
  entry.SetText(word);
}

void Reader::CloseValue(Activation& in) {
  in.in_value = false;
  StoreValue(in, in.node->entries_.FindOrAdd(in.key));
  in.value.clear();
}

void Reader::OpenElement(Activation& in, std::string_view tag, std::string_view& line) {
  std::string_view type = tag;
  in.self_closed = type.ends_with('/');
  if (in.self_closed) type.remove_suffix(1);
  in.type = TypeWord(type);
  Entry& entry = in.node->entries_.List(in.key);
  entry.SetType(in.type);
  if (entry.is_container || (in.self_closed && SameText(type, "dict/"))) return;

  line.remove_prefix(static_cast<std::size_t>(tag.end() - line.begin()) + 1);
  const std::size_t end = FindClosingTag(line, type, "");
  if (end == std::string_view::npos) {
    OpenValue(in, tag, line);
  } else {
    in.value = line.substr(0, end);
    StoreValue(in, entry);
  }
}

// Begins a value that goes on in the next lines. Of its first line the text is lost if it holds a
// ">".
void Reader::OpenValue(Activation& in, std::string_view tag, std::string_view line) {
  in.in_value = true;
  in.tag = tag;
  in.value.clear();
  if (line.find('>') != std::string_view::npos) return;
  AppendDecoded(in.value, line);
  if (!in.type.Is(TypeWord::kData)) in.value += kLineSeparator;
}

// Makes the node of a container, and returns it if it is to be read.
plistDict* Reader::OpenChild(Activation& in, std::string_view& line) {
  if (!in.type.IsContainer()) return nullptr;
  const bool is_dict = in.type.Is(TypeWord::kDict);
  in.node->NewChild(in.node->entries_.FindOrAdd(in.key), in.key, !is_dict);
  if (!in.self_closed) return in.node->children.back().get();
  if (is_dict) line = {};
  return nullptr;
}

void Reader::StoreValue(Activation& in, Entry& entry) {
  if (in.value.find('&') == std::string::npos) {
    entry.SetText(in.value);
  } else {
    std::string decoded;
    AppendDecoded(decoded, in.value);
    entry.SetText(decoded);
  }
}

}  // namespace morvantile
