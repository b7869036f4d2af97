// Any bytes as the file that the converter is given, both ways. What it makes of them is held
// against what another reader sees in the files, where that accepts them too.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "fuzz/second_reader.h"
#include "platform/plutil/binary_reader.h"
#include "tests/platform/plutil/convert.h"

namespace morvantile::plutil {
namespace {

// Another reader sees the same in two files, as far as it accepts both.
void RequireSameForSecondReader(const std::string& one, const std::string& other) {
  const std::optional<std::string> want = SecondReading(one);
  const std::optional<std::string> got = SecondReading(other);
  if (want && got) RequireEqual(*got, *want, "the second reader sees the same document");
}

// Whether a date in an XML file has a fraction of a second, which the other reader does not take
// there.
bool HasFractionOfASecond(const std::string& xml) {
  constexpr std::string_view kEnd = "Z</date>";
  for (std::size_t at = xml.find(kEnd); at != std::string::npos; at = xml.find(kEnd, at + 1)) {
    const std::size_t before = xml.find_last_not_of("0123456789", at - 1);
    if (before != std::string::npos && xml[before] == '.') return true;
  }
  return false;
}

void ConvertBothWays(const std::string& content) {
  const std::string xml = ToXml(content);
  const std::string binary = ToBinary(content);
  if (Failed(xml)) return;
  if (!Failed(binary)) {
    if (!HasFractionOfASecond(xml)) RequireSameForSecondReader(xml, binary);
    if (LooksBinary(content)) {
      RequireSameForSecondReader(content, binary);
      RequireEqual(ToXml(binary), xml, "a binary file written anew holds the same");
    }
  }
  RequireEqual(ToXml(xml), xml, "the XML form of XML is the same");
  const std::string through_xml = ToBinary(xml);
  if (Failed(through_xml)) {
    RequireEqual(through_xml, "failed: a text that is not UTF-8",
                 "the only failure on the way back");
    return;
  }
  RequireEqual(ToXml(through_xml), xml, "the way there and back changes nothing");
}

}  // namespace
}  // namespace morvantile::plutil

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  morvantile::plutil::ConvertBothWays({reinterpret_cast<const char*>(data), size});
  return 0;
}
