#include "platform/plutil/encoding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/plutil/unicode.h"
#include "platform/plutil/xml_scanner.h"
#include "platform/text/characters.h"
#include "platform/text/folding.h"

namespace morvantile::plutil {
namespace {

using namespace std::string_view_literals;

bool IsUtf32(std::string_view content) {
  return content.starts_with("\0\0"sv) || content.starts_with("\xFF\xFE\0\0"sv) ||
         content.starts_with("<\0\0\0"sv);
}

// The byte order of a file in UTF-16, by its mark or by the "<" that it begins with.
std::optional<std::endian> OrderOfUtf16(std::string_view content) {
  if (content.starts_with("\xFE\xFF"sv) || content.starts_with("\0<"sv)) return std::endian::big;
  if (content.starts_with("\xFF\xFE"sv) || content.starts_with("<\0"sv)) return std::endian::little;
  return std::nullopt;
}

// The name of the encoding that the file declares; empty if it declares none.
std::string DeclaredEncoding(std::string& content) {
  XmlScanner scanner(content);
  return std::string(scanner.Next() ? scanner.Encoding() : "");
}

bool IsAnyOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::ranges::any_of(names, [&](auto known) { return SameText(name, known); });
}

// The characters of windows-1252 from 80 to 9F; those that it leaves open are as in ISO-8859-1, as
// the WHATWG's encoding standard has them.
constexpr std::array<std::uint32_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint32_t FromLatin1(unsigned char byte) { return byte; }

std::uint32_t FromWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - std::size_t{0x80}] : byte;
}

template <typename Decode>
std::string Utf8FromBytes(std::string_view bytes, const Decode& decode) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) AppendCharacter(decode(static_cast<unsigned char>(byte)), text);
  return text;
}

std::optional<std::string> DecodeUtf16(std::string& content, std::endian order) {
  const bool has_odd_nul = content.size() % 2 != 0 && content.ends_with('\0');
  if (has_odd_nul) content.pop_back();
  std::optional<std::string> converted = Utf8FromUtf16(content, order);
  if (!converted) return "not sound UTF-16";
  content = *std::move(converted);
  return std::nullopt;
}

std::optional<std::string> DecodeDeclared(std::string& content) {
  if (IsAscii(content) || content.starts_with("\xEF\xBB\xBF")) return std::nullopt;
  const std::string encoding = DeclaredEncoding(content);
  if (IsAnyOf(encoding, {"", "utf-8", "utf8", "utf-16", "utf-16le", "utf-16be"})) {
    return std::nullopt;
  }
  if (IsAnyOf(encoding, {"iso-8859-1", "latin1"})) {
    content = Utf8FromBytes(content, FromLatin1);
  } else if (IsAnyOf(encoding, {"windows-1252", "cp1252"})) {
    content = Utf8FromBytes(content, FromWindows1252);
  } else {
    return "XML in " + encoding;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> MakeUtf8(std::string& content) {
  if (IsUtf32(content)) return "XML in UTF-32";
  const std::optional<std::endian> order = OrderOfUtf16(content);
  if (auto problem = order ? DecodeUtf16(content, *order) : DecodeDeclared(content)) {
    return problem;
  }
  content.erase(content.find_last_not_of('\0') + 1);
  if (content.find('\0') != std::string::npos) return "a NUL in an XML file";
  return std::nullopt;
}

}  // namespace morvantile::plutil
