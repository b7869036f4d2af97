#include "platform/plutil/conversion.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/plutil/unicode.h"
#include "tests/platform/plutil/binary_file.h"
#include "tests/platform/plutil/convert.h"

namespace morvantile::plutil {
namespace {

std::string XmlOfObject(const std::string& object) { return ToXml(BinaryFile({object})); }

TEST(Conversion, WritesOneElementALine) {
  const std::string elements =
      "<dict>\n"
      "\t<key>array</key>\n"
      "\t<array>\n"
      "\t\t<integer>-5</integer>\n"
      "\t\t<real>1.5</real>\n"
      "\t\t<true/>\n"
      "\t\t<false/>\n"
      "\t\t<date>2009-03-07T08:05:09Z</date>\n"
      "\t</array>\n"
      "\t<key>data</key>\n"
      "\t<data>\n"
      "\tQUJDREVG\n"
      "\t</data>\n"
      "\t<key>empty</key>\n"
      "\t<array>\n"
      "\t\t<string></string>\n"
      "\t\t<data>\n"
      "\t\t</data>\n"
      "\t\t<dict/>\n"
      "\t\t<array/>\n"
      "\t</array>\n"
      "\t<key>k&amp;e&lt;y></key>\n"
      "\t<string>a&gt;&lt;b &amp; \"'&#10;second line&#13;&#10;\t third</string>\n"
      "\t<key>]]&gt;a&#10;b&#13;></key>\n"
      "\t<string></string>\n"
      "</dict>\n";
  EXPECT_EQ(ThroughBinary(XmlFile(elements)), XmlFile(elements));
  EXPECT_EQ(ToXml(XmlFile(elements)), XmlFile(elements));
}

TEST(Conversion, TheTopmostObjectMayBeAnyOne) {
  for (const std::string elements :
       {"<dict>\n</dict>\n", "<array>\n</array>\n", "<string>a</string>\n", "<true/>\n"}) {
    EXPECT_EQ(ThroughBinary(XmlFile(elements)), XmlFile(elements));
  }
}

TEST(Conversion, LongDataGoesOnLinesOfItsOwn) {
  const std::string line = std::string(76, 'A') + "\n";
  const std::string elements = "<data>\n" + line + line + "AA==\n</data>\n";
  EXPECT_EQ(ThroughBinary(XmlFile(elements)), XmlFile(elements));
}

TEST(BinaryReader, ReadsEveryWidthOfNumber) {
  const std::vector<std::pair<const char*, std::string>> cases = {
      {"08", "<false/>"},
      {"09", "<true/>"},
      {"10 FF", "<integer>255</integer>"},
      {"11 FFFF", "<integer>65535</integer>"},
      {"12 FFFFFFFF", "<integer>4294967295</integer>"},
      {"13 FFFFFFFFFFFFFFFF", "<integer>-1</integer>"},
      {"13 8000000000000000", "<integer>-9223372036854775808</integer>"},
      {"14 0000000000000000 FFFFFFFFFFFFFFFF", "<integer>18446744073709551615</integer>"},
      {"14 FFFFFFFFFFFFFFFF FFFFFFFFFFFFFFFE", "<integer>-2</integer>"},
      {"22 3FC00000", "<real>1.5</real>"},
      {"23 3FB999999999999A", "<real>0.1</real>"},
      {"23 412E848000000000", "<real>1000000</real>"},
      {"23 7FEFFFFFFFFFFFFF", "<real>1.7976931348623157e+308</real>"},
      {"23 8000000000000000", "<real>-0</real>"},
      {"23 7FF0000000000000", "<real>inf</real>"},
      {"23 FFF0000000000000", "<real>-inf</real>"},
      {"23 7FF8000000000000", "<real>nan</real>"},
      {"33 0000000000000000", "<date>2001-01-01T00:00:00Z</date>"},
      {"33 BFE0000000000000", "<date>2000-12-31T23:59:59.5Z</date>"},
      {"33 41B0A7E0F0000001", "<date>2009-11-09T05:32:32.00000006Z</date>"},
      {"33 0000000000000001", "<date>2001-01-01T00:00:00." + std::string(323, '0') + "5Z</date>"},
      {"42 0001", "<data>\nAAE=\n</data>"},
      {"52 6162", "<string>ab</string>"},
      {"54 61C3A462",
       "<string>a\xC3\xA4"
       "b</string>"},
      {"5F 10 02 6162", "<string>ab</string>"},
      {"5F 13 0000000000000002 6162", "<string>ab</string>"},
      {"63 00E4 D83DDE00", "<string>\xC3\xA4\xF0\x9F\x98\x80</string>"},
      {"A0", "<array>\n</array>"},
      {"C0", "<array>\n</array>"},
  };
  for (const auto& [object, element] : cases) {
    const std::string xml = XmlOfObject(Hex(object));
    EXPECT_EQ(xml, XmlFile(element + "\n")) << object;
    EXPECT_EQ(ThroughBinary(xml), xml);
    const bool keeps_bytes =
        !element.starts_with("<date>") || ToBinary(xml) == BinaryFile({Hex(object)});
    EXPECT_TRUE(keeps_bytes) << object;
  }
}

TEST(BinaryReader, PassesOverWhatTextProgramsAddAtTheEnd) {
  for (const std::string& end : {std::string("\n"), std::string(" \r\n"), std::string(40, '\0')}) {
    EXPECT_EQ(ToXml(BinaryFile({Hex("09")}) + end), XmlFile("<true/>\n"));
  }
}

TEST(BinaryReader, ReadsEveryWidthOfOffsetAndReference) {
  for (std::size_t offset = 1; offset <= 8; ++offset) {
    for (std::size_t reference = 1; reference <= 8; ++reference) {
      const std::string dict = Hex("D1") + BigEndian(1, reference) + BigEndian(2, reference);
      const std::string set = Hex("C2") + BigEndian(1, reference) + BigEndian(1, reference);
      EXPECT_EQ(ToXml(BinaryFile({dict, Hex("5161"), set}, {offset, reference})),
                XmlFile("<dict>\n\t<key>a</key>\n\t<array>\n\t\t<string>a</string>\n"
                        "\t\t<string>a</string>\n\t</array>\n</dict>\n"));
    }
  }
}

TEST(BinaryReader, AUidOfAnyWidthIsADictAndBack) {
  for (const char* uid : {"80 2A", "81 002A", "83 0000002A", "86 0000000000002A",
                          "8F 0000000000000000000000000000002A"}) {
    const std::string xml = XmlOfObject(Hex(uid));
    EXPECT_EQ(xml, XmlFile("<dict>\n\t<key>CF$UID</key>\n\t<integer>42</integer>\n</dict>\n"));
    EXPECT_EQ(ToBinary(xml), BinaryFile({Hex("80 2A")}));
  }
  const std::string near_miss =
      XmlFile("<dict>\n\t<key>CF$UID</key>\n\t<integer>-1</integer>\n</dict>\n");
  EXPECT_EQ(ThroughBinary(near_miss), near_miss);
}

TEST(BinaryReader, RefusesWhatItCannotKeep) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"00", "failed: a null, which property lists do not know"},
      {"14 0000000000000001 0000000000000000", "failed: an integer of more than 64 bits"},
      {"15 00", "failed: an integer of more than 16 bytes"},
      {"21 0000", "failed: a real of neither 4 nor 8 bytes"},
      {"33 7FF8000000000000", "failed: a date that is no time"},
      {"33 4415AF1D78B58C40", "failed: a date outside the years 0 to 9999"},
      {"51 E4", "failed: an ASCII text that holds other characters"},
      {"51 00", "failed: a text with a NUL, which XML does not know"},
      {"61 D83D", "failed: a text that is not sound UTF-16"},
      {"62 DE00 0061", "failed: a text that is not sound UTF-16"},
      {"88 010000000000000000", "failed: a UID of more than 64 bits"},
      {"70", "failed: an object of a type that is not known"},
      {"D1 00 00", "failed: a key that is no text"},
      {"A1 00", "failed: a container that contains itself"},
      {"A1 01", "failed: a reference to an object that does not exist"},
  };
  for (const auto& [object, problem] : cases) EXPECT_EQ(XmlOfObject(Hex(object)), problem);
}

TEST(BinaryWriter, SharesEqualScalarsAndTakesTheFewestBytes) {
  EXPECT_EQ(ToBinary("<array><string>a</string><dict><key>a</key><real>0.5</real></dict>"
                     "<real>0.5</real><integer>1</integer><integer>256</integer>"
                     "<integer>1</integer><real>0.1</real><data>YQ==</data></array>"),
            BinaryFile({Hex("A8 01 02 03 04 05 04 06 07"), Hex("51 61"), Hex("D1 01 03"),
                        Hex("22 3F000000"), Hex("10 01"), Hex("11 0100"),
                        Hex("23 3FB999999999999A"), Hex("41 61")}));
}

TEST(XmlReader, TakesAnyLayout) {
  const std::string expected = XmlFile(
      "<dict>\n\t<key>a b</key>\n\t<string>x &amp; y</string>\n"
      "\t<key>n</key>\n\t<integer>7</integer>\n</dict>\n");
  for (const std::string xml :
       {"<dict><key>a b</key><string>x &amp; y</string><key>n</key><integer>7</integer></dict>",
        "<plist><dict ><key >a b</key ><string a='1>2'>x &#38; y</string>\r\n<key>n</key>"
        "<integer>\t7 </integer></dict></plist>",
        "\xEF\xBB\xBF<?xml version='1.0'?><!-- c --><plist>\n<dict><key>a<!-- c --> b</key>"
        "<!-- <string> --><string><![CDATA[x & y]]></string><?pi ?><key>n</key>"
        "<integer>7</integer></dict></plist><!-- c -->",
        "<!DOCTYPE plist [<!ELEMENT plist (dict)> <!-- ] -->]><plist><dict><key>a b</key>"
        "<string> <![CDATA[]]></string></dict></plist>",
        "<dict><key>a b</key><String>x & y</String><key>n</key><INTEGER>0x7</INTEGER></dict>"}) {
    if (xml.find("[<!ELEMENT") != std::string::npos) {
      EXPECT_EQ(ToXml(xml), XmlFile("<dict>\n\t<key>a b</key>\n\t<string> </string>\n</dict>\n"));
    } else {
      EXPECT_EQ(ToXml(xml), expected) << xml;
    }
  }
}

TEST(XmlReader, PassesOverWhatTheDocumentTypeHolds) {
  for (const std::string type : {"<!DOCTYPE plist>", "<!DOCTYPE plist SYSTEM '>'>",
                                 "<!DOCTYPE plist [<!ENTITY a \">\"><!ENTITY % b ''>]>",
                                 "<!DOCTYPE plist [<!-- '> --><?pi '>?>]>"}) {
    EXPECT_EQ(ToXml(type + "<true/>"), XmlFile("<true/>\n")) << type;
  }
}

TEST(XmlReader, TakesUtf16InBothOrdersWhateverItDeclares) {
  for (const std::string encoding : {"UTF-16", "UTF-16LE", "utf-16be", "ISO-8859-1"}) {
    const std::string big = *Utf16FromUtf8("<?xml version='1.0' encoding='" + encoding +
                                           "'?><string>\xC3\xA4</string>");
    std::string little = big;
    for (std::size_t i = 0; i < little.size(); i += 2) std::swap(little[i], little[i + 1]);
    for (const std::string& xml : {big, little, "\xFE\xFF" + big, "\xFF\xFE" + little}) {
      EXPECT_EQ(ToXml(xml), XmlFile("<string>\xC3\xA4</string>\n")) << encoding;
      EXPECT_EQ(ToXml(xml + '\0'), ToXml(xml));
    }
  }
}

TEST(XmlReader, TakesTheEncodingsThatAreMet) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"ISO-8859-1'?><string>\xE4\x80", "\xC3\xA4\xC2\x80"},
      {"Windows-1252'?><string>\xE4\x80\x81", "\xC3\xA4\xE2\x82\xAC\xC2\x81"},
      {"UTF8'?><string>\xC3\xA4", "\xC3\xA4"},
      {"UTF-16LE'?><string>\xC3\xA4", "\xC3\xA4"},
      {"Shift_JIS'?><string>ASCII alone", "ASCII alone"},
  };
  for (const auto& [xml, text] : cases) {
    EXPECT_EQ(ToXml("<?xml version='1.0' encoding='" + xml + "</string>\n" + '\0'),
              XmlFile("<string>" + text + "</string>\n"))
        << xml;
  }
}

TEST(XmlReader, TakesDatesWithAFractionOrAnOffset) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"2009-03-07T08:05:09.250Z", "2009-03-07T08:05:09.25Z"},
      {"1999-03-07T08:05:09.001Z", "1999-03-07T08:05:09.001Z"},
      {"2009-03-07T08:05:09.0", "2009-03-07T08:05:09Z"},
      {"2009-03-07T08:05:09+02:00", "2009-03-07T06:05:09Z"},
      {"2009-03-07T23:05:09.5-0130", "2009-03-08T00:35:09.5Z"},
      {"2009-03-07T08:05+14", "2009-03-06T18:05:00Z"},
  };
  for (const auto& [date, expected] : cases) {
    EXPECT_EQ(ThroughBinary("<date>" + date + "</date>"),
              XmlFile("<date>" + expected + "</date>\n"));
  }
}

TEST(XmlReader, KeepsTheWhiteSpaceOfTexts) {
  const std::string elements =
      "<array>\n\t<string>  </string>\n\t<string>\t a&#10; </string>\n</array>\n";
  EXPECT_EQ(ThroughBinary(XmlFile(elements)), XmlFile(elements));
  EXPECT_EQ(ToXml("<string> <!-- c --> </string>"), XmlFile("<string>  </string>\n"));
}

TEST(XmlReader, EachKindOfLineEndIsALineFeed) {
  const std::string expected = XmlFile("<string>a&#10;b&#10;&#10;c&#10;d</string>\n");
  EXPECT_EQ(ToXml("<string>a\r\nb\r\rc\nd</string>"), expected);
  EXPECT_EQ(ToXml("<string><![CDATA[a\r\nb\r]]>\rc<!---->\r\nd</string >"), expected);
}

TEST(XmlReader, ReadsWhatTheLibraryWrites) {
  EXPECT_EQ(ToXml("<array><double>2.50</double><string>a & b &x; &lt;</string>"
                  "<date>987-3-7T08:05:09Z</date><date>2009-03-07</date></array>"),
            XmlFile("<array>\n\t<real>2.5</real>\n\t<string>a &amp; b &amp;x; &lt;</string>\n"
                    "\t<date>0987-03-07T08:05:09Z</date>\n\t<date>2009-03-07T00:00:00Z</date>\n"
                    "</array>\n"));
}

TEST(XmlReader, RefusesMarkupThatIsNotWellFormed) {
  for (const std::string xml : {"<",
                                "<true",
                                "<true/",
                                "< true/>",
                                "<true/ >",
                                "<1/>",
                                "<true a/>",
                                "<true a=1/>",
                                "<true a='1/>",
                                "<true a='1'b='2'/>",
                                "<true></true",
                                "<true></truex>",
                                "<true></>",
                                "</true>",
                                "<true/></plist>",
                                "<plist><true/>",
                                "<array><dict></array></dict>",
                                "<true/><!-",
                                "<true/><!-- ",
                                "<true/><!-- --",
                                "<true/><?",
                                "<true/><?pi",
                                "<true/><? ?>",
                                "<true/><!ELEMENT a>",
                                "<array><!DOCTYPE plist></array>",
                                "<!DOCTYPE plist",
                                "<!DOCTYPE plist '><true/>",
                                "<!DOCTYPE plist [<!-- ]><true/>",
                                "<!DOCTYPE plist [<?pi ]><true/>",
                                "<!DOCTYPE plist [<true/>",
                                "<![CDATA[]]><true/>",
                                "<string><![CDATA[a</string>",
                                "<true/><?xml version='1.0'?>",
                                "<?xml version='1.0'><true/>",
                                "<?xml version='1.0'encoding='UTF-8'?><true/>",
                                "<?xml version?><true/>"}) {
    EXPECT_TRUE(Failed(ToXml(xml))) << xml;
  }
}

TEST(XmlReader, RefusesWhatItCannotKeep) {
  for (const std::string xml :
       {"",
        " ",
        "text",
        "<dict>",
        "<dict></array>",
        "<html/>",
        "<plist/>",
        "<plist>a</plist>",
        "<plist><true/><true/></plist>",
        "<true/><true/>",
        "a<true/>",
        "<key>a</key>",
        "<array>a</array>",
        "<array><true/>a</array>",
        "<array><key>a</key></array>",
        "<dict><true/></dict>",
        "<dict><key>a</key></dict>",
        "<dict><key>a</key><key>b</key></dict>",
        "<string><true/></string>",
        "<true>a</true>",
        "<integer></integer>",
        "<integer>1a</integer>",
        "<integer>18446744073709551616</integer>",
        "<integer>-9223372036854775809</integer>",
        "<integer>--1</integer>",
        "<real></real>",
        "<real>1,5</real>",
        "<date>today</date>",
        "<date>2009-02-30T00:00:00Z</date>",
        "<date>2009-02-03T24:00:00Z</date>",
        "<data>A</data>",
        "<data>QUJ=D</data>",
        "<data>Q*==</data>",
        "<string>&#0;</string>",
        "<string>&#xD800;</string>",
        "<string>&#4294967296;</string>",
        "<date>2009-02-03T23:00:00+24:00</date>",
        "<date>2009-02-03T23:00:00+0160</date>",
        "<date>2009-02-03-05:00</date>",
        "<date>2009-02-03T23:00:00.5x</date>",
        "<!DOCTYPE plist [<!ENTITY a 'x'>]><string>&a;</string>",
        "<?xml version='1.0' encoding='Shift_JIS'?><string>\xE4</string>"}) {
    EXPECT_TRUE(Failed(ToXml(xml))) << xml;
  }
  EXPECT_TRUE(Failed(ToXml(std::string("<string>a\0b</string>", 20))));
  EXPECT_TRUE(Failed(ToXml(std::string("<\0\0\0>\0\0\0", 8))));
  EXPECT_EQ(ToXml("<integer>18446744073709551616</integer>"),
            "failed: no <integer> of 64 bits: 18446744073709551616");
  EXPECT_EQ(ToBinary("<string>\xE4</string>"), "failed: a text that is not UTF-8");
}

}  // namespace
}  // namespace morvantile::plutil
