#include "platform/plutil/xml_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <system_error>
#include <utility>

#include "platform/plutil/unicode.h"

namespace morvantile::plutil {
namespace {

using namespace std::string_view_literals;

constexpr std::array kEntities = {std::pair{"amp;"sv, '&'}, std::pair{"lt;"sv, '<'},
                                  std::pair{"gt;"sv, '>'}, std::pair{"quot;"sv, '"'},
                                  std::pair{"apos;"sv, '\''}};

// The byte order of a file in UTF-16, by its mark or by the "<" that it begins with.
std::optional<std::endian> OrderOfUtf16(std::string_view content) {
  if (content.starts_with("\xFE\xFF"sv) || content.starts_with("\0<"sv)) return std::endian::big;
  if (content.starts_with("\xFF\xFE"sv) || content.starts_with("<\0"sv)) return std::endian::little;
  return std::nullopt;
}

bool IsUtf32(std::string_view content) {
  return content.starts_with("\0\0"sv) || content.starts_with("\xFF\xFE\0\0"sv) ||
         content.starts_with("<\0\0\0"sv);
}

// What stands for a character in an XML text; empty if the character may stand there itself.
using Escapes = std::array<std::string_view, 256>;

constexpr Escapes MakeEscapes() {
  Escapes escapes{};
  escapes['&'] = "&amp;";
  escapes['<'] = "&lt;";
  escapes['>'] = "&gt;";
  escapes['\r'] = "&#13;";
  return escapes;
}

constexpr Escapes MakeKeyEscapes() {
  Escapes escapes = MakeEscapes();
  escapes['\n'] = "&#10;";
  return escapes;
}

constexpr Escapes kEscapes = MakeEscapes();
constexpr Escapes kKeyEscapes = MakeKeyEscapes();

bool AppendWith(const Escapes& escapes, std::string_view text, Output& output) {
  if (text.find('\0') != std::string_view::npos) return false;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view escape = escapes[static_cast<unsigned char>(text[i])];
    if (escape.empty()) continue;
    output.Append(text.substr(begin, i - begin));
    output.Append(escape);
    begin = i + 1;
  }
  output.Append(text.substr(begin));
  return true;
}

// Replaces references in a text, from its beginning to its end.
class EntityDecoder {
 public:
  EntityDecoder(char* text, std::size_t size) : text_(text), size_(size) {}

  std::optional<std::size_t> Decode();

 private:
  void CopyToNextAmpersand();
  bool DecodeReference();
  bool DecodeCharacter(std::string_view reference);
  void Put(std::string_view bytes, std::size_t length_of_reference);

  char* text_;
  std::size_t size_;
  std::size_t read_ = 0;
  std::size_t written_ = 0;
};

std::optional<std::size_t> EntityDecoder::Decode() {
  CopyToNextAmpersand();
  while (read_ < size_) {
    if (!DecodeReference()) return std::nullopt;
    CopyToNextAmpersand();
  }
  return written_;
}

void EntityDecoder::CopyToNextAmpersand() {
  const char* begin = text_ + read_;
  const void* found = std::memchr(begin, '&', size_ - read_);
  const std::size_t length =
      found == nullptr ? size_ - read_
                       : static_cast<std::size_t>(static_cast<const char*>(found) - begin);
  if (read_ != written_) std::memmove(text_ + written_, begin, length);
  read_ += length;
  written_ += length;
}

bool EntityDecoder::DecodeReference() {
  const std::string_view reference = std::string_view(text_, size_).substr(read_ + 1);
  if (reference.starts_with('#')) return DecodeCharacter(reference.substr(1));
  for (const auto& [name, character] : kEntities) {
    if (!reference.starts_with(name)) continue;
    Put({&character, 1}, 1 + name.size());
    return true;
  }
  Put("&", 1);
  return true;
}

bool EntityDecoder::DecodeCharacter(std::string_view reference) {
  const bool is_hexadecimal = reference.starts_with('x');
  const char* digits = reference.data() + (is_hexadecimal ? 1 : 0);
  std::uint32_t code_point = 0;
  const auto [end, error] = std::from_chars(digits, reference.data() + reference.size(), code_point,
                                            is_hexadecimal ? 16 : 10);
  const bool is_reference = end != digits && end != reference.end() && *end == ';';
  if (!is_reference) {
    Put("&", 1);
    return true;
  }
  const bool is_surrogate = code_point >= 0xD800 && code_point < 0xE000;
  if (error != std::errc() || code_point == 0 || code_point > 0x10FFFF || is_surrogate)
    return false;
  std::string character;
  AppendUtf8(code_point, character);
  Put(character, static_cast<std::size_t>(end - reference.begin()) + 3);
  return true;
}

void EntityDecoder::Put(std::string_view bytes, std::size_t length_of_reference) {
  std::memcpy(text_ + written_, bytes.data(), bytes.size());
  written_ += bytes.size();
  read_ += length_of_reference;
}

}  // namespace

std::optional<std::string> MakeUtf8(std::string& content) {
  if (IsUtf32(content)) return "XML in UTF-32";
  if (const auto order = OrderOfUtf16(content)) {
    std::optional<std::string> converted = Utf8FromUtf16(content, *order);
    if (!converted) return "not sound UTF-16";
    content = *std::move(converted);
  }
  if (content.find('\0') != std::string::npos) return "a NUL in an XML file";
  return std::nullopt;
}

std::size_t NormalizeLineEnds(char* text, std::size_t size) {
  if (size == 0 || std::memchr(text, '\r', size) == nullptr) return size;
  std::size_t written = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const bool is_return = text[i] == '\r';
    text[written++] = is_return ? '\n' : text[i];
    if (is_return && i + 1 < size && text[i + 1] == '\n') ++i;
  }
  return written;
}

std::optional<std::size_t> DecodeEntities(char* text, std::size_t size) {
  return EntityDecoder(text, size).Decode();
}

bool AppendEscaped(std::string_view text, Output& output) {
  return AppendWith(kEscapes, text, output);
}

bool AppendEscapedKey(std::string_view key, Output& output) {
  return AppendWith(kKeyEscapes, key, output);
}

}  // namespace morvantile::plutil
