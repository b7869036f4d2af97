#include "platform/plutil/xml_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/core/huge_pages.h"
#include "platform/plutil/encoding.h"
#include "platform/plutil/scalar_text.h"
#include "platform/plutil/xml_scanner.h"
#include "platform/plutil/xml_text.h"
#include "platform/text/folding.h"

namespace morvantile::plutil {
namespace {

struct Element {
  std::string_view name;
  Kind kind;
};

constexpr std::array<Element, 11> kElements = {{
    {"key", Kind::kText},
    {"string", Kind::kText},
    {"integer", Kind::kInteger},
    {"real", Kind::kReal},
    {"date", Kind::kDate},
    {"data", Kind::kData},
    {"true", Kind::kTrue},
    {"false", Kind::kFalse},
    {"array", Kind::kArray},
    {"dict", Kind::kDict},
    {"double", Kind::kReal},
}};

constexpr const Element* kKey = kElements.data();

constexpr std::string_view kNotAlone = "not a property list: there is not just one topmost element";

// The element of that name in any letter case, or null.
const Element* ElementOf(std::string_view name) {
  const auto* const found = std::ranges::find_if(
      kElements, [&](const Element& element) { return SameText(name, element.name); });
  return found == kElements.end() ? nullptr : found;
}

bool AreBlanks(std::span<const char> text) { return std::ranges::all_of(text, IsBlank); }

// The text of an element, put together in the file's content from the pieces that comments and
// CDATA cut it into. Each piece moves towards the beginning, so none is overwritten.
class TextInPlace {
 public:
  // Adds a piece as it is.
  void AddPlain(std::span<char> piece) { Append(piece.data(), piece.size()); }
  // Adds a piece that may hold references; returns what is wrong, or an empty text.
  std::string_view AddDecoded(std::span<char> piece, const EntityNames& entities);
  // Adds a piece that holds none.
  void AddVerbatim(std::span<char> piece);

  [[nodiscard]] char* Begin() const { return begin_; }
  [[nodiscard]] std::size_t Size() const { return size_; }
  [[nodiscard]] std::string_view View() const { return {begin_, size_}; }

 private:
  void Append(char* piece, std::size_t size);

  char* begin_ = nullptr;
  std::size_t size_ = 0;
};

class XmlReader {
 public:
  XmlReader(std::string& content, Document& document)
      : content_(content), scanner_(content), document_(document) {}

  std::optional<std::string> Read();

 private:
  // A container whose children are being read.
  struct Level {
    ObjectIndex index;
    bool is_dict;
    bool has_key;
    std::size_t first_child;
  };

  void MakeRoom();
  bool ReadFile();
  bool ExpectAlone(Markup markup);
  bool ReadTree();
  bool NextTag(std::string_view problem);
  bool NextMarkup();
  bool IsAtElement() const;
  bool ReadElement();
  bool MayStandHere(bool is_key);
  bool ReadScalar(Kind kind);
  bool ReadText(TextInPlace& text);
  void OpenContainer(Kind kind);
  bool CloseContainer();
  bool MakeUid(const Level& level);
  void AppendObject(const Object& object);
  bool Fail(std::string_view problem);

  const std::string& content_;
  XmlScanner scanner_;
  Document& document_;
  std::string problem_;
  std::vector<Level> open_;
  std::vector<ObjectIndex> children_;  // Those of all open containers, one after the other.
};

std::optional<std::string> XmlReader::Read() {
  MakeRoom();
  if (ReadFile()) return std::nullopt;
  return problem_;
}

// Room for one object in so many bytes of the file; few files hold more. What isn't needed of it
// costs no memory, since nothing touches it.
void XmlReader::MakeRoom() {
  constexpr std::size_t kBytesOfAnObject = 16;
  ReserveHugePages(document_.objects, content_.size() / kBytesOfAnObject);
  ReserveHugePages(document_.references, content_.size() / kBytesOfAnObject);
}

// The file's one element, in a <plist> or not.
bool XmlReader::ReadFile() {
  if (!NextTag(kNotAlone)) return false;
  const bool is_in_plist = scanner_.Is() == Markup::kStartTag && SameText(scanner_.Name(), "plist");
  if (is_in_plist && !NextTag(kNotAlone)) return false;
  if (!IsAtElement()) return Fail(kNotAlone);
  return ReadTree() && (!is_in_plist || ExpectAlone(Markup::kEndTag)) && ExpectAlone(Markup::kEnd);
}

bool XmlReader::ExpectAlone(Markup markup) {
  return NextTag(kNotAlone) && (scanner_.Is() == markup || Fail(kNotAlone));
}

// The element whose tag the scanner is at, and all in it.
bool XmlReader::ReadTree() {
  if (!ReadElement()) return false;
  while (!open_.empty()) {
    if (!NextTag("text between the elements of a container")) return false;
    if (!(IsAtElement() ? ReadElement() : CloseContainer())) return false;
  }
  return true;
}

// Goes to the next tag or the end of the file. What is before it may be blanks and markup that
// says nothing; else `problem` is what is wrong.
bool XmlReader::NextTag(std::string_view problem) {
  while (NextMarkup()) {
    const bool is_cdata = scanner_.Is() == Markup::kCData;
    if (!AreBlanks(scanner_.Text()) || (is_cdata && !AreBlanks(scanner_.CData()))) {
      return Fail(problem);
    }
    const bool says_nothing =
        is_cdata || scanner_.Is() == Markup::kXmlDeclaration || scanner_.Is() == Markup::kOther;
    if (!says_nothing) return true;
  }
  return false;
}

bool XmlReader::NextMarkup() {
  return scanner_.Next() ||
         Fail("neither a binary nor an XML property list: " + scanner_.Problem());
}

bool XmlReader::IsAtElement() const {
  return scanner_.Is() == Markup::kStartTag || scanner_.Is() == Markup::kEmptyElementTag;
}

bool XmlReader::ReadElement() {
  const Element* const element = ElementOf(scanner_.Name());
  if (element == nullptr) {
    return Fail("an element that property lists do not know: <" + std::string(scanner_.Name()) +
                ">");
  }
  if (!MayStandHere(element == kKey)) return false;
  if (!IsContainer(element->kind)) return ReadScalar(element->kind);
  OpenContainer(element->kind);
  return scanner_.Is() == Markup::kStartTag || CloseContainer();
}

bool XmlReader::MayStandHere(bool is_key) {
  const bool is_in_dict = !open_.empty() && open_.back().is_dict;
  const bool key_is_due = is_in_dict && !open_.back().has_key;
  if (is_in_dict) open_.back().has_key = key_is_due;
  if (key_is_due == is_key) return true;
  return Fail(key_is_due ? "a value without a <key>" : "a <key> where a value belongs");
}

bool XmlReader::ReadScalar(Kind kind) {
  const std::string_view name = scanner_.Name();
  TextInPlace text;
  if (scanner_.Is() == Markup::kStartTag && !ReadText(text)) return false;
  const auto wrong = [&] {
    constexpr std::size_t kMostShown = 40;
    const std::string_view limit = kind == Kind::kInteger ? " of 64 bits" : "";
    return Fail(std::string("no <").append(name).append(">").append(limit).append(": ").append(
        text.View().substr(0, kMostShown)));
  };
  std::optional<Object> object;
  switch (kind) {
    case Kind::kInteger:
      object = IntegerFromText(text.View());
      break;
    case Kind::kReal:
      if (const auto value = RealFromText(text.View())) object = Object::Real(Kind::kReal, *value);
      break;
    case Kind::kDate:
      if (const auto value = DateFromText(text.View())) object = Object::Real(Kind::kDate, *value);
      break;
    case Kind::kData:
      if (const auto size = DecodeBase64(text.Begin(), text.Size())) {
        object = Object::Bytes(Kind::kData, text.View().substr(0, *size));
      }
      break;
    case Kind::kTrue:
    case Kind::kFalse:
      if (AreBlanks(text.View())) object = Object::Boolean(kind == Kind::kTrue);
      break;
    default:
      object = Object::Bytes(Kind::kText, text.View());
      break;
  }
  if (!object) return wrong();
  AppendObject(*object);
  return true;
}

// The text up to the end tag of the element that the scanner is in.
bool XmlReader::ReadText(TextInPlace& text) {
  const std::string_view name = scanner_.Name();
  while (NextMarkup()) {
    if (scanner_.IsPlain()) {
      text.AddPlain(scanner_.Text());
    } else if (const auto problem = text.AddDecoded(scanner_.Text(), scanner_.Entities());
               !problem.empty()) {
      return Fail(problem);
    }
    switch (scanner_.Is()) {
      case Markup::kEndTag:
        return true;
      case Markup::kCData:
        text.AddVerbatim(scanner_.CData());
        break;
      case Markup::kOther:
        break;
      default:
        return Fail("an element in a <" + std::string(name) + ">");
    }
  }
  return false;
}

void XmlReader::OpenContainer(Kind kind) {
  const auto index = static_cast<ObjectIndex>(document_.objects.size());
  AppendObject(Object::Container(kind, 0, 0));
  open_.push_back({index, kind == Kind::kDict, false, children_.size()});
}

bool XmlReader::CloseContainer() {
  const Level level = open_.back();
  open_.pop_back();
  if (level.has_key) return Fail("a <key> without a value");
  if (MakeUid(level)) return true;
  const auto begin = children_.begin() + static_cast<std::ptrdiff_t>(level.first_child);
  const std::size_t first = document_.references.size();
  document_.references.insert(document_.references.end(), begin, children_.end());
  children_.erase(begin, children_.end());
  document_.objects[level.index] = Object::Container(level.is_dict ? Kind::kDict : Kind::kArray,
                                                     first, document_.references.size() - first);
  return true;
}

// Makes a dict with the one key "CF$UID" the UID that it encodes. Key and value are the last two
// objects of the document then.
bool XmlReader::MakeUid(const Level& level) {
  if (!level.is_dict || children_.size() - level.first_child != 2) return false;
  const Object& key = document_.objects[children_[level.first_child]];
  const Object value = document_.objects[children_.back()];
  const bool is_number =
      value.Is() == Kind::kUnsigned ||
      (value.Is() == Kind::kInteger && static_cast<std::int64_t>(value.Bits()) >= 0);
  if (!is_number || key.AsBytes() != "CF$UID") return false;
  document_.objects.pop_back();
  document_.objects.pop_back();
  document_.objects[level.index] = Object::Number(Kind::kUid, value.Bits());
  children_.resize(level.first_child);
  return true;
}

void XmlReader::AppendObject(const Object& object) {
  if (!open_.empty()) children_.push_back(static_cast<ObjectIndex>(document_.objects.size()));
  document_.objects.push_back(object);
}

bool XmlReader::Fail(std::string_view problem) {
  problem_ = problem;
  return false;
}

std::string_view TextInPlace::AddDecoded(std::span<char> piece, const EntityNames& entities) {
  const std::size_t size = NormalizeLineEnds(piece.data(), piece.size());
  const Decoded decoded = DecodeEntities(piece.data(), size, entities);
  Append(piece.data(), decoded.size);
  return decoded.problem;
}

void TextInPlace::AddVerbatim(std::span<char> piece) {
  Append(piece.data(), NormalizeLineEnds(piece.data(), piece.size()));
}

void TextInPlace::Append(char* piece, std::size_t size) {
  if (begin_ == nullptr) begin_ = piece;
  if (begin_ + size_ != piece) std::memmove(begin_ + size_, piece, size);
  size_ += size;
}

}  // namespace

std::optional<std::string> ReadXml(std::string& content, Document& document) {
  if (auto problem = MakeUtf8(content)) return problem;
  return XmlReader(content, document).Read();
}

}  // namespace morvantile::plutil
