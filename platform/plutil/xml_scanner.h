// The markup of an XML file.

#ifndef MORVANTILE_PLATFORM_PLUTIL_XML_SCANNER_H
#define MORVANTILE_PLATFORM_PLUTIL_XML_SCANNER_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plutil/xml_text.h"

namespace morvantile::plutil {

enum class Markup {
  kStartTag,
  kEmptyElementTag,
  kEndTag,
  kCData,
  kXmlDeclaration,  // Once at most, before the first element.
  kOther,           // A comment, a processing instruction, the document type.
  kEnd,             // The end of the file.
};

// Goes through an XML file from one piece of markup to the next, without a tree of it. Each element
// must be closed by a tag of its name, and all markup must be well-formed by the rules of XML 1.0,
// but attributes may repeat a name or hold a "<", a comment may hold "--", and of the inside of the
// document type only the names of entities are taken. It takes a few bytes for each level of
// nesting.
class XmlScanner {
 public:
  // `content` is UTF-8 without a NUL, with a byte order mark or not. Names and texts lie in it. The
  // texts that the scanner has given out may be changed, it doesn't come back to them.
  explicit XmlScanner(std::string& content);

  // Goes to the next piece of markup. Returns false where the file isn't well-formed; the scanner
  // can't go on then.
  bool Next();

  Markup Is() const { return markup_; }

  // The text between this piece of markup and the one before, as it is in the file.
  std::span<char> Text() const { return text_; }

  // Whether the text holds neither a carriage return nor an ampersand.
  bool IsPlain() const { return is_plain_; }

  // Of a tag, the name of its element.
  std::string_view Name() const { return name_; }

  // What a kCData holds, as it is in the file.
  std::span<char> CData() const { return cdata_; }

  // Of a kXmlDeclaration, the encoding that it names; empty if it names none.
  std::string_view Encoding() const { return encoding_; }

  // The entities that the document type has defined.
  const EntityNames& Entities() const { return entities_; }

  // After Next has returned false, what is wrong and where.
  const std::string& Problem() const { return problem_; }

 private:
  bool TakeStartTag();
  bool TakeEndTag();
  bool TakeInstruction();
  bool TakeXmlDeclaration();
  bool TakeDeclaration();
  bool TakeCData();
  bool TakeDocumentType();
  void TakeEntityName();

  bool LiesInText(char character, char*& next);
  bool Take(std::string_view expected);
  std::string_view TakeName();
  bool TakeAttribute(std::string_view& name, std::string_view& value);
  bool SkipBlanks();
  bool SkipPast(std::string_view end);
  bool Found(Markup markup);
  bool Fail(std::string_view problem);

  char* begin_;
  char* end_;  // There is a NUL, which ends every run of characters.
  char* at_;
  Markup markup_ = Markup::kOther;
  std::span<char> text_;
  bool is_plain_ = true;
  char* next_return_;  // Looked for anew once a text begins behind it.
  char* next_ampersand_;
  std::string_view name_;
  std::span<char> cdata_;
  std::string_view encoding_;
  bool may_be_declared_ = true;
  EntityNames entities_;
  std::vector<std::string_view> open_;  // The names of the elements that we are in.
  std::string problem_;
};

}  // namespace morvantile::plutil

#endif  // MORVANTILE_PLATFORM_PLUTIL_XML_SCANNER_H
