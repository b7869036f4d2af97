#include "platform/plutil/xml_scanner.h"

#include <cstddef>
#include <cstring>

#include "platform/text/characters.h"
#include "platform/text/folding.h"

namespace morvantile::plutil {
namespace {

// By XML 1.0, but that all characters beyond ASCII may stand in a name.
bool BeginsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || !IsAscii(c);
}

bool ContinuesName(char c) {
  return BeginsName(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

}  // namespace

XmlScanner::XmlScanner(std::string& content)
    : begin_(content.data()),
      end_(begin_ + content.size()),
      at_(begin_),
      next_return_(begin_),
      next_ampersand_(begin_) {
  Take("\xEF\xBB\xBF");
}

bool XmlScanner::Next() {
  const auto rest = static_cast<std::size_t>(end_ - at_);
  auto* markup = static_cast<char*>(std::memchr(at_, '<', rest));
  if (markup == nullptr) markup = end_;
  text_ = {at_, markup};
  const bool has_return = LiesInText('\r', next_return_);
  const bool has_ampersand = LiesInText('&', next_ampersand_);
  is_plain_ = !has_return && !has_ampersand;
  at_ = markup;
  if (at_ == end_) return open_.empty() ? Found(Markup::kEnd) : Fail("an element is not closed");
  switch (*++at_) {
    case '/':
      return TakeEndTag();
    case '?':
      return TakeInstruction();
    case '!':
      return TakeDeclaration();
    default:
      return TakeStartTag();
  }
}

bool XmlScanner::TakeStartTag() {
  name_ = TakeName();
  if (name_.empty()) return Fail("a tag without a name");
  may_be_declared_ = false;
  for (;;) {
    const bool may_be_attribute = SkipBlanks();
    if (Take(">")) {
      open_.push_back(name_);
      return Found(Markup::kStartTag);
    }
    if (Take("/>")) return Found(Markup::kEmptyElementTag);
    std::string_view name;
    std::string_view value;
    if (!may_be_attribute || !TakeAttribute(name, value)) return Fail("a start tag is broken");
  }
}

bool XmlScanner::TakeEndTag() {
  ++at_;
  if (open_.empty() || !Take(open_.back())) return Fail("an end tag closes another element");
  SkipBlanks();
  if (!Take(">")) return Fail("an end tag is broken");
  name_ = open_.back();
  open_.pop_back();
  return Found(Markup::kEndTag);
}

bool XmlScanner::TakeInstruction() {
  ++at_;
  const std::string_view target = TakeName();
  if (target.empty()) return Fail("a processing instruction without a target");
  if (SameText(target, "xml")) return TakeXmlDeclaration();
  return SkipPast("?>") ? Found(Markup::kOther) : Fail("a processing instruction is not closed");
}

bool XmlScanner::TakeXmlDeclaration() {
  if (!may_be_declared_) return Fail("an XML declaration that is not the first");
  may_be_declared_ = false;
  for (;;) {
    const bool may_be_attribute = SkipBlanks();
    if (Take("?>")) return Found(Markup::kXmlDeclaration);
    std::string_view name;
    std::string_view value;
    if (!may_be_attribute || !TakeAttribute(name, value))
      return Fail("the XML declaration is broken");
    if (name == "encoding") encoding_ = value;
  }
}

bool XmlScanner::TakeDeclaration() {
  if (Take("!--")) {
    return SkipPast("-->") ? Found(Markup::kOther) : Fail("a comment is not closed");
  }
  if (Take("![CDATA[")) return TakeCData();
  if (!open_.empty() || !Take("!DOCTYPE")) return Fail("a declaration that is not known here");
  return TakeDocumentType() ? Found(Markup::kOther) : Fail("the document type is not closed");
}

bool XmlScanner::TakeCData() {
  constexpr std::string_view kClosing = "]]>";
  char* begin = at_;
  if (!SkipPast(kClosing)) return Fail("a CDATA section is not closed");
  if (open_.empty()) return Fail("a CDATA section outside of the topmost element");
  cdata_ = {begin, at_ - kClosing.size()};
  return Found(Markup::kCData);
}

// Declarations within it stand in brackets of the same kind; a quoted text or a comment may hold
// one.
bool XmlScanner::TakeDocumentType() {
  for (std::size_t depth = 1; at_ < end_;) {
    const char* character = at_++;
    switch (*character) {
      case '"':
      case '\'':
        if (!SkipPast({character, 1})) return false;
        break;
      case '<':
        if (Take("!--")) {
          if (!SkipPast("-->")) return false;
        } else if (Take("?")) {
          if (!SkipPast("?>")) return false;
        } else if (Take("!")) {
          ++depth;
          TakeEntityName();
        } else {
          return false;
        }
        break;
      case '>':
        if (--depth == 0) return true;
        break;
      default:
        break;
    }
  }
  return false;
}

void XmlScanner::TakeEntityName() {
  if (!Take("ENTITY") || !SkipBlanks()) return;
  const std::string_view name = TakeName();
  if (!name.empty()) entities_.insert(name);
}

// `next` is kept from text to text, so that the file is searched once, not each short text.
bool XmlScanner::LiesInText(char character, char*& next) {
  if (next < text_.data()) {
    const auto rest = static_cast<std::size_t>(end_ - text_.data());
    next = static_cast<char*>(std::memchr(text_.data(), character, rest));
    if (next == nullptr) next = end_;
  }
  return next < text_.data() + text_.size();
}

bool XmlScanner::Take(std::string_view expected) {
  if (!std::string_view(at_, end_).starts_with(expected)) return false;
  at_ += expected.size();
  return true;
}

std::string_view XmlScanner::TakeName() {
  const char* begin = at_;
  if (BeginsName(*at_)) {
    while (ContinuesName(*at_)) ++at_;
  }
  return {begin, at_};
}

bool XmlScanner::TakeAttribute(std::string_view& name, std::string_view& value) {
  name = TakeName();
  SkipBlanks();
  if (name.empty() || !Take("=")) return false;
  SkipBlanks();
  const char* quote = at_;
  if (!Take("\"") && !Take("'")) return false;
  if (!SkipPast({quote, 1})) return false;
  value = {quote + 1, at_ - 1};
  return true;
}

// Returns whether there were any.
bool XmlScanner::SkipBlanks() {
  const char* begin = at_;
  while (IsBlank(*at_)) ++at_;
  return at_ != begin;
}

bool XmlScanner::SkipPast(std::string_view end) {
  const std::size_t place = std::string_view(at_, end_).find(end);
  if (place == std::string_view::npos) return false;
  at_ += place + end.size();
  return true;
}

bool XmlScanner::Found(Markup markup) {
  markup_ = markup;
  return true;
}

bool XmlScanner::Fail(std::string_view problem) {
  problem_ = std::string(problem) + " near byte " + std::to_string(at_ - begin_);
  return false;
}

}  // namespace morvantile::plutil
