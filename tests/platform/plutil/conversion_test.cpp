#include "platform/plutil/conversion.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "platform/plutil/unicode.h"
#include "tests/platform/plutil/convert.h"

namespace morvantile::plutil {
namespace {

struct Case {
  std::string document, elements;
};

// The file without line ends and indentation.
std::string Joined(const std::string& xml) {
  return std::regex_replace(xml, std::regex("\n\t*"), "");
}

// Holds the XML form of the document, and of its binary form, against the case.
void Expect(const Case& expected) {
  const auto& [document, elements] = expected;
  const std::string xml = ToXml(document);
  EXPECT_EQ(Joined(xml), Failed(elements) ? elements : Joined(XmlFile(elements))) << document;
  if (Failed(xml)) return;
  EXPECT_EQ(ToXml(ToBinary(xml)), xml) << document;
  EXPECT_EQ(ToXml(xml), xml) << document;
}

std::string Repeated(std::string_view text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

// The documents in a text that sets them apart by " | "; a new line is one blank.
std::vector<std::string> Split(std::string text) {
  text = std::regex_replace(text, std::regex("\n +"), " ");
  const std::regex bar(" \\| ");
  return {std::sregex_token_iterator(text.begin(), text.end(), bar, -1), {}};
}

// The binary property list of objects that are written in hexadecimal digits.
std::string Binary(const std::string& objects) {
  std::vector<std::string> all = Split(objects);
  for (std::string& object : all) object = Hex(object);
  return BinaryFile(all);
}

// A document with every type.
const std::string kSample = XmlFile(
    "<dict>\n\t<key>array</key>\n\t<array>\n\t\t<integer>1</integer>\n\t\t<integer>-1</integer>\n"
    "\t\t<integer>18446744073709551615</integer>\n\t\t<real>0.1</real>\n\t\t<true/>\n"
    "\t\t<date>2009-03-07T08:05:09Z</date>\n\t</array>\n\t<key>data</key>\n"
    "\t<data>\n\tQUJDREVG\n\t</data>\n\t<key>empty</key>\n\t<array>\n\t\t<string></string>\n"
    "\t\t<data>\n\t\t</data>\n\t\t<dict/>\n\t\t<array/>\n\t</array>\n\t<key>k&amp;e&lt;y></key>\n"
    "\t<string>a&gt;&lt;b &amp; \"'&#10;second line&#13;&#10;\t third</string>\n"
    "\t<key>]]&gt;\u00E4&#10;b&#13;></key>\n\t<dict>\n\t\t<key>CF$UID</key>\n"
    "\t\t<integer>3</integer>\n\t</dict>\n</dict>\n");

TEST(Conversion, WritesOneElementALine) {
  const std::string line(76, 'A');
  const std::string data = XmlFile("<data>\n" + line + "\n" + line + "\nAA==\n</data>\n");
  for (const std::string& xml :
       {kSample, data, XmlFile("<dict>\n</dict>\n"), XmlFile("<array>\n</array>\n")}) {
    EXPECT_EQ(ToXml(xml), xml);
    EXPECT_EQ(ToXml(ToBinary(xml)), xml);
  }
}

TEST(BinaryReader, ReadsObjectsAndRefusesWhatItCannotKeep) {
  const std::string zeros(323, '0');
  const std::vector<Case> cases = {
      {"08", "<false/>"},
      {"10 FF", "<integer>255</integer>"},
      {"13 8000000000000000", "<integer>-9223372036854775808</integer>"},
      {"14 FFFFFFFFFFFFFFFF FFFFFFFFFFFFFFFE", "<integer>-2</integer>"},
      {"22 3FC00000", "<real>1.5</real>"},
      {"23 412E848000000000", "<real>1000000</real>"},
      {"23 7FEFFFFFFFFFFFFF", "<real>1.7976931348623157e+308</real>"},
      {"23 8000000000000000", "<real>-0</real>"},
      {"23 7FF8000000000000", "<real>nan</real>"},
      {"33 BFE0000000000000", "<date>2000-12-31T23:59:59.5Z</date>"},
      {"33 41B0A7E0F0000001", "<date>2009-11-09T05:32:32.00000006Z</date>"},
      {"33 0000000000000001", "<date>2001-01-01T00:00:00." + zeros + "5Z</date>"},
      {"54 61C3A462", "<string>a\u00E4b</string>"},
      {"5F 13 0000000000000002 6162", "<string>ab</string>"},
      {"63 00E4 D83DDE00", "<string>\u00E4\U0001F600</string>"},
      {"8F 0000000000000000000000000000002A",
       "<dict><key>CF$UID</key><integer>42</integer></dict>"},
      {"00", "failed: a null, which property lists do not know"},
      {"14 0000000000000001 0000000000000000", "failed: an integer of more than 64 bits"},
      {"15 00", "failed: an integer of more than 16 bytes"},
      {"21 0000", "failed: a real of neither 4 nor 8 bytes"},
      {"33 7FF8000000000000", "failed: a date that is no time"},
      {"33 4415AF1D78B58C40", "failed: a date outside the years 0 to 9999"},
      {"51 E4", "failed: an ASCII text that holds other characters"},
      {"51 00", "failed: a text with a NUL, which XML does not know"},
      {"D1 01 02 | 54 005D5D3E | 09", "failed: a key with a NUL, which XML does not know"},
      {"61 D83D", "failed: a text that is not sound UTF-16"},
      {"62 DE00 0061", "failed: a text that is not sound UTF-16"},
      {"88 010000000000000000", "failed: a UID of more than 64 bits"},
      {"70", "failed: an object of a type that is not known"},
      {"D1 00 00", "failed: a key that is no text"},
      {"A1 00", "failed: a container that contains itself"},
      {"A1 01 | A2 02 03 | D1 03 04 | 51 61 | A1 01", "failed: a container that contains itself"},
      {"A1 01", "failed: a reference to an object that does not exist"},
      {"5F 13 7FFFFFFFFFFFFFFF", "failed: an object reaches beyond the file"},
      {"DF 13 8000000000000000", "failed: an object reaches beyond the file"},
      {"AF 14 00", "failed: a size that is no integer"},
  };
  for (const auto& [hex, elements] : cases) {
    const std::string file = Binary(hex);
    SCOPED_TRACE(hex);
    for (const char* end : {"", "20 0D 0A", "00 00 00"}) Expect({file + Hex(end), elements});
    if (elements.starts_with("<date>")) {
      EXPECT_EQ(ToBinary(ToXml(file)), file) << "no bit of a date is lost";
    }
  }
}

TEST(BinaryReader, ReadsEveryWidthOfOffsetAndReference) {
  for (std::size_t offset = 1; offset <= 8; ++offset) {
    for (std::size_t reference = 1; reference <= 8; ++reference) {
      const std::string dict = Hex("D1") + BigEndian(1, reference) + BigEndian(2, reference);
      const std::string set = Hex("C2") + BigEndian(1, reference) + BigEndian(1, reference);
      Expect({BinaryFile({dict, Hex("5161"), set}, offset, reference),
              "<dict><key>a</key><array><string>a</string><string>a</string></array></dict>"});
    }
  }
}

TEST(BinaryReader, ReadsNoBytesTwice) {
  std::string file = BinaryFile({Hex("A2 01 02"), Hex("4F 10 64") + std::string(100, 'x'), "\x08"});
  file[file.size() - 33] = file[file.size() - 34];  // the last object is where the second is
  EXPECT_EQ(ToXml(file), "failed: objects share bytes of the file");
}

TEST(Conversion, AReferenceBombIsRefusedAsXmlAndHarmlessAsBinary) {
  std::vector<std::string> objects;
  for (char level = 1; level <= 100; ++level) objects.push_back({'\xA2', level, level});
  objects.push_back(Hex("51 61"));
  const std::string bomb = BinaryFile(objects, 2);
  EXPECT_TRUE(ToXml(bomb).starts_with("failed: its XML text would be of more than "));
  EXPECT_EQ(ToBinary(bomb).size(), bomb.size());
}

TEST(BinaryWriter, SharesEqualScalarsAndTakesTheFewestBytes) {
  EXPECT_EQ(ToBinary("<array><string>a</string><dict><key>a</key><real>0.5</real></dict>"
                     "<real>0.5</real><integer>1</integer><integer>256</integer>"
                     "<integer>1</integer><real>0.1</real><data>YQ==</data>"
                     "<dict><key>CF$UID</key><integer>42</integer></dict></array>"),
            Binary("A9 01 02 03 04 05 04 06 07 08 | 51 61 | D1 01 03 | 22 3F000000 | 10 01 | "
                   "11 0100 | 23 3FB999999999999A | 41 61 | 80 2A"));
  std::string numbers;
  for (int i = 0; i < 255; ++i) numbers += "<integer>" + std::to_string(i) + "</integer>";
  const std::string binary = ToBinary("<array>" + numbers + "</array>");
  EXPECT_EQ(binary[binary.size() - 25], 1) << "the width of references to 256 objects";
}

TEST(XmlReader, ReadsWhatOthersWrite) {
  const std::string dict = "<dict><key>a b</key><string>x &amp; y</string></dict>";
  const std::string lines = "<string>a&#10;b&#10;&#10;c&#10;d</string>";
  const std::vector<Case> cases = {
      {"<plist><dict ><key >a b</key ><string a='1>2'>x &#38; y</string>\r\n</dict></plist>", dict},
      {"\xEF\xBB\xBF<?xml version='1.0'?><!-- c --><plist>\n" + dict + "</plist><!-- c -->", dict},
      {"<dict><key>a<!-- c --> b</key><!-- <string> --><string>x &amp; y</string></dict>", dict},
      {"<dict><key>a b</key><?pi ?><string><![CDATA[x & y]]></string></dict>", dict},
      {"<!DOCTYPE a SYSTEM '>' [<!ELEMENT a (b)> <!-- ] -->]><plist><true/></plist>", "<true/>"},
      {"<!DOCTYPE a [<!ENTITY a \">\"><!ENTITY % b ''><!-- '> --><?pi '>?>]><true/>", "<true/>"},
      {"<integer>\t7 </integer>", "<integer>7</integer>"},
      {"<INTEGER>0x1F</INTEGER>", "<integer>31</integer>"},
      {"<double> 2.50\n</double>", "<real>2.5</real>"},
      {"<real>1e999</real>", "<real>inf</real>"},
      {"<date>2009-03-07T08:05:09+02:00</date>", "<date>2009-03-07T06:05:09Z</date>"},
      {"<date>2009-03-07T23:05:09.5-0159</date>", "<date>2009-03-08T01:04:09.5Z</date>"},
      {"<date>2009-03-07T08:05+14</date>", "<date>2009-03-06T18:05:00Z</date>"},
      {"<date>987-3-7T08:05:09.250</date>", "<date>0987-03-07T08:05:09.25Z</date>"},
      {"<date>2009-03-07</date>", "<date>2009-03-07T00:00:00Z</date>"},
      {"<string>a & b &x; &#65 &lt;</string>", "<string>a &amp; b &amp;x; &amp;#65 &lt;</string>"},
      {"<string>\t <![CDATA[]]>a<!-- c -->&#10; </string>", "<string>\t a&#10; </string>"},
      {"<string>a\r\nb\r\rc\nd</string>", lines},
      {"<string>\r</string>", "<string>&#10;</string>"},
      {"<string><![CDATA[a\r\nb\r]]>\rc<!---->\r\nd</string >", lines},
      {"<dict><key>CF$UID</key><integer>-1</integer></dict>",
       "<dict><key>CF$UID</key><integer>-1</integer></dict>"},
  };
  for (const Case& expected : cases) Expect(expected);
}

TEST(XmlReader, TakesTheEncodingsThatAreMet) {
  const std::vector<Case> cases = {
      {"ISO-8859-1'?><string>\xE4\x80", "\u00E4\xC2\x80"},
      {"Windows-1252'?><string>\xE4\x80\x81", "\u00E4\u20AC\xC2\x81"},
      {"UTF8'?><string>\u00E4", "\u00E4"},
      {"UTF-16LE'?><string>\u00E4", "\u00E4"},
      {"Shift_JIS'?><string>ASCII alone", "ASCII alone"},
  };
  for (const auto& [xml, text] : cases) {
    Expect({"<?xml version='1.0' encoding='" + xml + "</string>\n" + '\0',
            "<string>" + text + "</string>"});
  }
}

TEST(XmlReader, TakesUtf16InBothOrdersWhateverItDeclares) {
  for (const std::string encoding : {"UTF-16", "UTF-16LE", "utf-16be", "ISO-8859-1"}) {
    const std::string element = "<string>\u00E4</string>";
    std::string declared = "<?xml version='1.0' encoding='";
    declared.append(encoding).append("'?>").append(element);
    const std::string big = *Utf16FromUtf8(declared);
    std::string little = big;
    for (std::size_t i = 0; i < little.size(); i += 2) std::swap(little[i], little[i + 1]);
    for (const std::string& xml : {big, little + '\0', "\xFE\xFF" + big, "\xFF\xFE" + little}) {
      Expect({xml, element});
    }
  }
}

// Not well-formed, and what no property list can hold.
constexpr const char* kMalformed =
    R"(< | <true | <true/ | < true/> | <true/ > | <1/> | <true a/> | <true a=1/> | <true a='1/> |
    <true a='1'b='2'/> | <true></true | <true></truex> | <true></> | </true> | <true/></plist> |
    <plist><true/> | <array><dict></array></dict> | <true/><!- | <true/><!--  | <true/><!-- -- |
    <true/><? | <true/><?pi | <true/><? ?> | <true/><!ELEMENT a> | <![CDATA[]]><true/> |
    <array><!DOCTYPE plist></array> | <!DOCTYPE plist | <!DOCTYPE plist '><true/> |
    <!DOCTYPE plist [<!-- ]><true/> | <!DOCTYPE plist [<?pi ]><true/> |
    <!DOCTYPE plist [<true/> | <string><![CDATA[a</string> | <true/><?xml version='1.0'?> |
    <?xml version='1.0'><true/> | <?xml version='1.0'encoding='UTF-8'?><true/> |
    <?xml version?><true/>)";
constexpr const char* kNoPropertyList =
    R"(text | <dict> | <dict></array> | <html/> | <plist/> | <plist>a</plist> | <true/><true/> |
    <plist><true/><true/></plist> | a<true/> | <key>a</key> | <array>a</array> | <true>a</true> |
    <array><true/>a</array> | <array><key>a</key></array> | <dict><true/></dict> |
    <dict><key>a</key></dict> | <dict><key>a</key><key>b</key></dict> |
    <string><true/></string> | <integer></integer> | <integer>1a</integer> |
    <integer>-9223372036854775809</integer> | <integer>--1</integer> | <real></real> |
    <real>1,5</real> | <date>today</date> | <date>2009-02-30T00:00:00Z</date> |
    <date>2009-02-03T24:00:00Z</date> | <date>12009-02-03T00:00:00Z</date> | <date>2009-02-03T23:00:00+24:00</date> |
    <date>2009-02-03T23:00:00+0160</date> | <date>2009-02-03-05:00</date> |
    <date>2009-02-03T23:00:00.5x</date> | <data>A</data> | <data>QUJ=D</data> |
    <data>Q*==</data> | <string>&#0;</string> | <string>&#xD800;</string> |
    <string>&#4294967296;</string> | <!DOCTYPE plist [<!ENTITY a 'x'>]><string>&a;</string>)";

TEST(XmlReader, RefusesWhatIsNotWellFormedAndWhatItCannotKeep) {
  for (const char* documents : {kMalformed, kNoPropertyList}) {
    for (const std::string& xml : Split(documents)) EXPECT_TRUE(Failed(ToXml(xml))) << xml;
  }
  EXPECT_TRUE(Failed(ToXml("<?xml version='1.0' encoding='Shift_JIS'?><string>\xE4</string>")));
  EXPECT_TRUE(Failed(ToXml(std::string("<string>a\0b</string>", 20))));
  for (const char* utf32 : {"3C 000000", "FF FE 0000", "0000 003C"}) {
    EXPECT_EQ(ToXml(Hex(utf32)), "failed: XML in UTF-32");
  }
  EXPECT_EQ(ToXml("<integer>18446744073709551616</integer>"),
            "failed: no <integer> of 64 bits: 18446744073709551616");
  EXPECT_EQ(ToBinary("<string>\xE4</string>"), "failed: a text that is not UTF-8");
}

TEST(Conversion, RefusesAFileThatIsTruncatedAtAnyByte) {
  for (const std::string& file : {kSample, ToBinary(kSample)}) {
    for (std::size_t size = 0; size < file.size() - 1; ++size) {
      EXPECT_TRUE(Failed(ToXml(file.substr(0, size)))) << size;
    }
  }
}

TEST(Conversion, NestingIsBoundedByMemoryAlone) {
  const std::string xml = Repeated("<array>", 200'000) + "<true/>" + Repeated("</array>", 200'000);
  const std::string binary = ToBinary(xml);
  const std::string again = ToXml(binary);
  ASSERT_FALSE(Failed(again)) << again;
  EXPECT_LT(again.size(), 200'000U * 2 * 80) << "indentation has an end";
  EXPECT_EQ(ToBinary(again), binary);
}

}  // namespace
}  // namespace morvantile::plutil
