#include "platform/plutil/xml_writer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/plutil/scalar_text.h"
#include "platform/plutil/xml_text.h"

namespace morvantile::plutil {
namespace {

constexpr std::string_view kTabs =
    "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t"
    "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

class XmlWriter {
 public:
  XmlWriter(const Document& document, std::uint64_t most_bytes, Output& output)
      : document_(document), most_bytes_(most_bytes), output_(output) {}

  std::optional<std::string> Write();

 private:
  // A container that is being written.
  struct Level {
    ObjectIndex container;
    std::size_t next;
  };

  bool WriteTree();
  bool WriteNext();
  bool WriteKey(std::string_view key);
  bool WriteObject(ObjectIndex index);
  void OpenContainer(ObjectIndex index);
  void CloseContainer();
  bool WriteScalar(const Object& object);
  bool WriteText(std::string_view text);
  bool WriteDate(const Object& date);
  void WriteData(std::string_view bytes);
  void WriteUid(const Object& uid);
  void WriteElement(std::string_view opening, std::string_view text, std::string_view closing);
  void WriteLine(std::string_view line);
  void Indent();
  bool Fail(std::string problem);

  const Document& document_;
  std::uint64_t most_bytes_;
  Output& output_;
  std::string problem_;
  std::vector<Level> open_;
};

std::string_view OpeningTag(Kind kind) { return kind == Kind::kDict ? "<dict>" : "<array>"; }
std::string_view ClosingTag(Kind kind) { return kind == Kind::kDict ? "</dict>" : "</array>"; }
std::string_view EmptyTag(Kind kind) { return kind == Kind::kDict ? "<dict/>" : "<array/>"; }

std::optional<std::string> XmlWriter::Write() {
  output_.Append(kHead);
  if (!WriteTree()) return problem_;
  output_.Append("</plist>\n");
  return std::nullopt;
}

bool XmlWriter::WriteTree() {
  const Object& top = document_.objects[0];
  if (!IsContainer(top.Is())) return WriteScalar(top);
  OpenContainer(0);
  while (!open_.empty()) {
    if (!WriteNext()) return false;
    if (output_.Size() > most_bytes_) {
      return Fail("its XML text would be of more than " + std::to_string(most_bytes_) + " bytes");
    }
  }
  return true;
}

bool XmlWriter::WriteNext() {
  Level& level = open_.back();
  const Object& container = document_.objects[level.container];
  const auto references = document_.ReferencesOf(container);
  if (level.next == references.size()) {
    CloseContainer();
    return true;
  }
  if (container.Is() == Kind::kDict) {
    const Object& key = document_.objects[references[level.next++]];
    if (!WriteKey(key.AsBytes())) return false;
  }
  return WriteObject(references[level.next++]);
}

bool XmlWriter::WriteKey(std::string_view key) {
  Indent();
  output_.Append("<key>");
  if (!AppendEscapedKey(key, output_)) return Fail("a key with a NUL, which XML does not know");
  output_.Append("</key>\n");
  return true;
}

bool XmlWriter::WriteObject(ObjectIndex index) {
  const Object& object = document_.objects[index];
  if (!IsContainer(object.Is())) return WriteScalar(object);
  if (object.Size() == 0) {
    WriteLine(EmptyTag(object.Is()));
  } else {
    OpenContainer(index);
  }
  return true;
}

void XmlWriter::OpenContainer(ObjectIndex index) {
  WriteLine(OpeningTag(document_.objects[index].Is()));
  open_.push_back({index, 0});
}

void XmlWriter::CloseContainer() {
  const Kind kind = document_.objects[open_.back().container].Is();
  open_.pop_back();
  WriteLine(ClosingTag(kind));
}

bool XmlWriter::WriteScalar(const Object& object) {
  switch (object.Is()) {
    case Kind::kText:
      return WriteText(object.AsBytes());
    case Kind::kDate:
      return WriteDate(object);
    case Kind::kInteger:
    case Kind::kUnsigned:
      WriteElement("<integer>", TextOfInteger(object), "</integer>\n");
      break;
    case Kind::kReal:
      WriteElement("<real>", TextOfReal(object.AsReal()), "</real>\n");
      break;
    case Kind::kData:
      WriteData(object.AsBytes());
      break;
    case Kind::kUid:
      WriteUid(object);
      break;
    default:
      WriteLine(object.Is() == Kind::kTrue ? "<true/>" : "<false/>");
      break;
  }
  return true;
}

bool XmlWriter::WriteText(std::string_view text) {
  Indent();
  output_.Append("<string>");
  if (!AppendEscaped(text, output_)) return Fail("a text with a NUL, which XML does not know");
  output_.Append("</string>\n");
  return true;
}

bool XmlWriter::WriteDate(const Object& date) {
  const std::optional<std::string> text = TextOfDate(date.AsReal());
  if (!text) return Fail("a date outside the years 0 to 9999");
  WriteElement("<date>", *text, "</date>\n");
  return true;
}

void XmlWriter::WriteData(std::string_view bytes) {
  constexpr std::size_t kBytesOfALine = 57;
  WriteLine("<data>");
  std::string line;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), kBytesOfALine))) {
    line.clear();
    AppendBase64(bytes.substr(0, kBytesOfALine), line);
    WriteLine(line);
  }
  WriteLine("</data>");
}

void XmlWriter::WriteUid(const Object& uid) {
  WriteLine("<dict>");
  WriteElement("\t<key>", "CF$UID", "</key>\n");
  WriteElement("\t<integer>", std::to_string(uid.Bits()), "</integer>\n");
  WriteLine("</dict>");
}

void XmlWriter::WriteElement(std::string_view opening, std::string_view text,
                             std::string_view closing) {
  Indent();
  output_.Append(opening);
  output_.Append(text);
  output_.Append(closing);
}

void XmlWriter::WriteLine(std::string_view line) {
  Indent();
  output_.Append(line);
  output_.Append('\n');
}

void XmlWriter::Indent() { output_.Append(kTabs.substr(0, open_.size())); }

bool XmlWriter::Fail(std::string problem) {
  problem_ = std::move(problem);
  return false;
}

}  // namespace

std::optional<std::string> WriteXml(const Document& document, std::uint64_t most_bytes,
                                    Output& output) {
  return XmlWriter(document, most_bytes, output).Write();
}

}  // namespace morvantile::plutil
