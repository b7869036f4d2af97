#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/platform/plutil/binary_file.h"
#include "tests/platform/plutil/convert.h"

namespace morvantile::plutil {
namespace {

// A document with every type, in each form.
std::string SampleXml() {
  return XmlFile(
      "<dict>\n\t<key>a</key>\n\t<array>\n\t\t<integer>1</integer>\n\t\t<integer>-1</integer>\n"
      "\t\t<integer>18446744073709551615</integer>\n\t\t<real>0.1</real>\n\t\t<true/>\n"
      "\t\t<date>2009-03-07T08:05:09Z</date>\n\t\t<data>\n\t\tQUJD\n\t\t</data>\n\t</array>\n"
      "\t<key>\xC3\xA4 &amp; &#13;</key>\n\t<string>twenty characters or more</string>\n"
      "\t<key>u</key>\n\t<dict>\n\t\t<key>CF$UID</key>\n\t\t<integer>3</integer>\n\t</dict>\n"
      "</dict>\n");
}
std::string SampleBinary() { return ToBinary(SampleXml()); }

// A result that is a result must be readable and, once converted there and back, stay as it is.
void ExpectSound(const std::string& content) {
  const std::string xml = ToXml(content);
  if (Failed(xml)) return;
  const std::string binary = ToBinary(xml);
  if (Failed(binary)) {
    EXPECT_EQ(binary, "failed: a text that is not UTF-8");
  } else {
    EXPECT_EQ(ToXml(binary), xml);
  }
}

TEST(HostileFiles, ATruncatedFileIsRefused) {
  const std::string xml = SampleXml();
  const std::string binary = SampleBinary();
  ASSERT_FALSE(Failed(binary));
  for (std::size_t size = 0; size < binary.size(); ++size) {
    EXPECT_TRUE(Failed(ToXml(binary.substr(0, size)))) << size;
  }
  const std::size_t last_byte_that_matters = xml.rfind('>');
  for (std::size_t size = 0; size <= last_byte_that_matters; ++size) {
    EXPECT_TRUE(Failed(ToBinary(xml.substr(0, size)))) << size;
  }
}

TEST(HostileFiles, AChangedByteIsRefusedOrReadSoundly) {
  for (const std::string& file : {SampleBinary(), SampleXml()}) {
    for (std::size_t at = 0; at < file.size(); ++at) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string changed = file;
        changed[at] = static_cast<char>(byte);
        ExpectSound(changed);
      }
    }
  }
}

TEST(HostileFiles, AbsurdCountsAndOffsetsAreRefused) {
  for (const char* huge :
       {"5F 13 7FFFFFFFFFFFFFFF", "6F 13 FFFFFFFFFFFFFFFF", "AF 13 FFFFFFFFFFFFFFFF",
        "DF 13 8000000000000000", "4F 12 FFFFFFFF", "AF 14 00", "AF 22 00000000", "AF"}) {
    EXPECT_TRUE(Failed(ToXml(BinaryFile({Hex(huge)})))) << huge;
  }
  const std::string file = BinaryFile({Hex("09")});
  const std::size_t trailer = file.size() - 32;
  for (const std::size_t field : {trailer + 8, trailer + 16, trailer + 24}) {
    for (const std::uint64_t value :
         {std::uint64_t{1} << 63U, ~std::uint64_t{0}, std::uint64_t{100}}) {
      std::string changed = file;
      changed.replace(field, 8, BigEndian(value, 8));
      EXPECT_TRUE(Failed(ToXml(changed))) << field << " " << value;
    }
  }
}

TEST(HostileFiles, ACycleIsFoundWhereverItIs) {
  const std::string cycle =
      BinaryFile({Hex("A1 01"), Hex("A2 02 03"), Hex("D1 03 04"), Hex("51 61"), Hex("A1 01")});
  EXPECT_EQ(ToXml(cycle), "failed: a container that contains itself");
  EXPECT_EQ(ToBinary(cycle), "failed: a container that contains itself");
}

TEST(HostileFiles, AReferenceBombIsRefusedAsXmlAndHarmlessAsBinary) {
  std::vector<std::string> objects;
  for (std::uint64_t level = 1; level <= 100; ++level) {
    objects.push_back(Hex("A2") + BigEndian(level, 1) + BigEndian(level, 1));
  }
  objects.push_back(Hex("51 61"));
  const std::string bomb = BinaryFile(objects, {2, 1});
  EXPECT_TRUE(ToXml(bomb).starts_with("failed: its XML text would be of more than "));
  EXPECT_EQ(ToBinary(bomb).size(), BinaryFile(objects, {2, 1}).size());
}

TEST(HostileFiles, ObjectsThatShareBytesAreRefused) {
  constexpr std::size_t kCount = 200;
  std::string array = Hex("AF 10 C8");
  for (std::size_t i = 0; i < kCount; ++i) array += BigEndian(i, 1);
  std::string file = "bplist00" + array;
  const std::size_t table = file.size();
  for (std::size_t i = 0; i < kCount; ++i) file += BigEndian(8, 1);
  file += std::string(6, '\0') + Hex("01 01") + BigEndian(kCount, 8) + BigEndian(0, 8) +
          BigEndian(table, 8);
  EXPECT_EQ(ToXml(file), "failed: objects share bytes of the file");
}

TEST(HostileFiles, NestingIsBoundedByMemoryAlone) {
  constexpr std::size_t kDepth = 200'000;
  std::string xml;
  for (std::size_t i = 0; i < kDepth; ++i) xml += "<array>";
  xml += "<true/>";
  for (std::size_t i = 0; i < kDepth; ++i) xml += "</array>";
  const std::string binary = ToBinary(xml);
  ASSERT_FALSE(Failed(binary));
  const std::string again = ToXml(binary);
  ASSERT_FALSE(Failed(again));
  EXPECT_LT(again.size(), kDepth * 2 * 80);
  EXPECT_EQ(ToBinary(again), binary);
}

TEST(HostileFiles, ManyEqualEntriesAreConvertedInLinearTime) {
  constexpr std::size_t kCount = 300'000;
  std::string xml = "<dict>";
  for (std::size_t i = 0; i < kCount; ++i) xml += "<key>same</key><string>same</string>";
  xml += "</dict>";
  const std::string binary = ToBinary(xml);
  EXPECT_LT(binary.size(), kCount * 2 + 100);
  EXPECT_EQ(ToXml(binary), ToXml(xml));
}

}  // namespace
}  // namespace morvantile::plutil
