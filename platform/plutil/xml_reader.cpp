#include "platform/plutil/xml_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <pugixml.hpp>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/plutil/scalar_text.h"
#include "platform/plutil/unicode.h"
#include "platform/plutil/xml_text.h"

namespace morvantile::plutil {
namespace {

enum class Element {
  kKey,
  kString,
  kInteger,
  kReal,
  kDate,
  kData,
  kTrue,
  kFalse,
  kArray,
  kDict,
  kUnknown,
};

constexpr std::array<std::pair<std::string_view, Element>, 11> kElements = {{
    {"key", Element::kKey},
    {"string", Element::kString},
    {"integer", Element::kInteger},
    {"real", Element::kReal},
    {"date", Element::kDate},
    {"data", Element::kData},
    {"true", Element::kTrue},
    {"false", Element::kFalse},
    {"array", Element::kArray},
    {"dict", Element::kDict},
    {"double", Element::kReal},
}};

bool EqualWithoutCase(std::string_view name, std::string_view lower) {
  const auto to_lower = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  };
  return std::ranges::equal(name, lower, {}, to_lower);
}

Element ElementOf(std::string_view name) {
  for (const auto& [known, element] : kElements) {
    if (name == known) return element;
  }
  for (const auto& [known, element] : kElements) {
    if (EqualWithoutCase(name, known)) return element;
  }
  return Element::kUnknown;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// Whether a text may be cut in pieces by something that is no part of it. The parser is faster, and
// its tree half the size, where it needn't keep the white space around such pieces.
bool MayCutTexts(std::string_view content) {
  for (std::size_t at = 1; (at = content.find('!', at)) != std::string_view::npos; ++at) {
    if (content[at - 1] == '<' && !content.substr(at).starts_with("!DOCTYPE")) return true;
  }
  for (std::size_t at = 2; (at = content.find('?', at)) != std::string_view::npos; ++at) {
    if (content[at - 1] == '<') return true;
  }
  return false;
}

class XmlReader {
 public:
  XmlReader(std::string& content, Document& document) : content_(content), document_(document) {}

  std::optional<std::string> Read();

 private:
  // A container whose children are being read.
  struct Level {
    pugi::xml_node next;
    ObjectIndex index;
    bool is_dict;
    bool has_key;
    std::size_t first_child;
  };

  bool Parse();
  bool FindTop(pugi::xml_node& top);
  bool FindOnlyElement(pugi::xml_node parent, pugi::xml_node& element);
  bool ReadTree(pugi::xml_node top);
  bool ReadNode(pugi::xml_node node);
  bool ReadElement(pugi::xml_node node);
  bool MayStandHere(Element element);
  bool ReadScalar(Element element, pugi::xml_node node);
  void OpenContainer(Element element, pugi::xml_node node);
  bool CloseContainer();
  bool MakeUid(const Level& level);
  void AppendObject(const Object& object);
  bool Fail(std::string problem);

  std::string& content_;
  Document& document_;
  std::string problem_;
  pugi::xml_document tree_;
  std::vector<Level> open_;
  std::vector<ObjectIndex> children_;  // Those of all open containers, one after the other.
};

// The text of an element, put together in the file's content from the pieces that comments and
// CDATA cut it into. Each piece moves towards the beginning, so none is overwritten.
class TextInPlace {
 public:
  // Adds the text of `node`; returns what is wrong with it, if anything is.
  std::optional<std::string> Add(pugi::xml_node node);

  char* Begin() const { return begin_; }
  std::size_t Size() const { return size_; }
  std::string_view View() const { return {begin_, size_}; }

 private:
  bool AddPiece(const char* piece, bool has_entities);

  char* begin_ = nullptr;
  std::size_t size_ = 0;
};

std::optional<std::string> XmlReader::Read() {
  if (auto problem = MakeUtf8(content_)) return problem;
  pugi::xml_node top;
  if (Parse() && FindTop(top) && ReadTree(top)) return std::nullopt;
  return problem_;
}

bool XmlReader::Parse() {
  constexpr unsigned kAlways =
      pugi::parse_cdata | pugi::parse_eol | pugi::parse_declaration | pugi::parse_fragment;
  constexpr unsigned kWholeTexts = pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata;
  const unsigned options =
      kAlways | (MayCutTexts(content_) ? unsigned{pugi::parse_ws_pcdata} : kWholeTexts);
  const pugi::xml_parse_result result =
      tree_.load_buffer_inplace(content_.data(), content_.size(), options, pugi::encoding_utf8);
  if (result.status == pugi::status_out_of_memory) return Fail("not enough memory");
  if (result) return true;
  return Fail("neither a binary nor an XML property list: " + std::string(result.description()) +
              " near byte " + std::to_string(result.offset));
}

bool XmlReader::FindTop(pugi::xml_node& top) {
  for (const pugi::xml_node node : tree_.children()) {
    if (node.type() != pugi::node_declaration) continue;
    const std::string_view encoding = node.attribute("encoding").value();
    const bool is_known = encoding.empty() || EqualWithoutCase(encoding, "utf-8") ||
                          EqualWithoutCase(encoding, "utf-16");
    if (!is_known && !IsAscii(content_)) return Fail("XML in " + std::string(encoding));
  }
  if (!FindOnlyElement(tree_, top)) return false;
  return !EqualWithoutCase(top.name(), "plist") || FindOnlyElement(pugi::xml_node(top), top);
}

bool XmlReader::FindOnlyElement(pugi::xml_node parent, pugi::xml_node& element) {
  element = pugi::xml_node();
  bool is_alone = IsBlank(parent.value());
  for (const pugi::xml_node node : parent.children()) {
    if (node.type() == pugi::node_element) {
      is_alone = is_alone && !element;
      element = node;
    } else if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
      is_alone = is_alone && IsBlank(node.value());
    }
  }
  if (is_alone && element) return true;
  return Fail("not a property list: there is not just one topmost element");
}

bool XmlReader::ReadTree(pugi::xml_node top) {
  if (!ReadElement(top)) return false;
  while (!open_.empty()) {
    const pugi::xml_node node = open_.back().next;
    open_.back().next = node.next_sibling();
    if (!(node ? ReadNode(node) : CloseContainer())) return false;
  }
  return true;
}

bool XmlReader::ReadNode(pugi::xml_node node) {
  if (node.type() == pugi::node_element) return ReadElement(node);
  return IsBlank(node.value()) || Fail("text between the elements of a container");
}

bool XmlReader::ReadElement(pugi::xml_node node) {
  const Element element = ElementOf(node.name());
  if (element == Element::kUnknown) {
    return Fail("an element that property lists do not know: <" + std::string(node.name()) + ">");
  }
  if (!MayStandHere(element)) return false;
  if (element != Element::kArray && element != Element::kDict) return ReadScalar(element, node);
  OpenContainer(element, node);
  return IsBlank(node.value()) || Fail("text between the elements of a container");
}

bool XmlReader::MayStandHere(Element element) {
  const bool is_in_dict = !open_.empty() && open_.back().is_dict;
  const bool key_is_due = is_in_dict && !open_.back().has_key;
  if (is_in_dict) open_.back().has_key = key_is_due;
  if (key_is_due == (element == Element::kKey)) return true;
  return Fail(key_is_due ? "a value without a <key>" : "a <key> where a value belongs");
}

bool XmlReader::ReadScalar(Element element, pugi::xml_node node) {
  TextInPlace text;
  if (auto problem = text.Add(node)) return Fail(*std::move(problem));
  const auto wrong = [&] {
    constexpr std::size_t kMostShown = 40;
    return Fail("no <" + std::string(node.name()) +
                ">: " + std::string(text.View().substr(0, kMostShown)));
  };
  std::optional<Object> object;
  switch (element) {
    case Element::kInteger:
      object = IntegerFromText(text.View());
      break;
    case Element::kReal:
      if (const auto value = RealFromText(text.View())) object = Object::Real(Kind::kReal, *value);
      break;
    case Element::kDate:
      if (const auto value = DateFromText(text.View())) object = Object::Real(Kind::kDate, *value);
      break;
    case Element::kData:
      if (const auto size = DecodeBase64(text.Begin(), text.Size())) {
        object = Object::Bytes(Kind::kData, text.View().substr(0, *size));
      }
      break;
    case Element::kTrue:
    case Element::kFalse:
      if (IsBlank(text.View())) object = Object::Boolean(element == Element::kTrue);
      break;
    default:
      object = Object::Bytes(Kind::kText, text.View());
      break;
  }
  if (!object) return wrong();
  AppendObject(*object);
  return true;
}

void XmlReader::OpenContainer(Element element, pugi::xml_node node) {
  const bool is_dict = element == Element::kDict;
  const auto index = static_cast<ObjectIndex>(document_.objects.size());
  AppendObject(Object::Container(is_dict ? Kind::kDict : Kind::kArray, 0, 0));
  open_.push_back({node.first_child(), index, is_dict, false, children_.size()});
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

// Makes a dict with the one key "CF$UID" the UID that it stands for. Key and value are the last two
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

bool XmlReader::Fail(std::string problem) {
  problem_ = std::move(problem);
  return false;
}

std::optional<std::string> TextInPlace::Add(pugi::xml_node node) {
  bool is_sound = AddPiece(node.value(), true);
  for (pugi::xml_node piece = node.first_child(); piece; piece = piece.next_sibling()) {
    if (piece.type() == pugi::node_element) {
      return "an element in a <" + std::string(node.name()) + ">";
    }
    is_sound = is_sound && AddPiece(piece.value(), piece.type() == pugi::node_pcdata);
  }
  if (is_sound) return std::nullopt;
  return "a reference to a character that does not exist";
}

bool TextInPlace::AddPiece(const char* piece, bool has_entities) {
  auto* text = const_cast<char*>(piece);
  std::size_t size = std::strlen(piece);
  if (size == 0) return true;
  if (has_entities) {
    const std::optional<std::size_t> decoded = DecodeEntities(text, size);
    if (!decoded) return false;
    size = *decoded;
  }
  if (begin_ == nullptr) begin_ = text;
  std::memmove(begin_ + size_, text, size);
  size_ += size;
  return true;
}

}  // namespace

std::optional<std::string> ReadXml(std::string& content, Document& document) {
  return XmlReader(content, document).Read();
}

}  // namespace morvantile::plutil
