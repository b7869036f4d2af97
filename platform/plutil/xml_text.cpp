#include "platform/plutil/xml_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <system_error>
#include <utility>

#include "platform/text/characters.h"

namespace morvantile::plutil {
namespace {

using namespace std::string_view_literals;

constexpr std::array kEntities = {std::pair{"amp;"sv, '&'}, std::pair{"lt;"sv, '<'},
                                  std::pair{"gt;"sv, '>'}, std::pair{"quot;"sv, '"'},
                                  std::pair{"apos;"sv, '\''}};

// The escape of a character in a key, and of a ">" if `greater` is one; empty if it needs none.
std::string_view EscapeOf(char character, std::string_view greater) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return greater;
    case '\r':
      return "&#13;";
    case '\n':
      return "&#10;";
    default:
      return {};
  }
}

bool AppendWith(std::string_view greater, std::string_view text, Output& output) {
  if (text.find('\0') != std::string_view::npos) return false;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view escape = EscapeOf(text[i], greater);
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
  EntityDecoder(char* text, std::size_t size, const EntityNames& defined)
      : text_(text), size_(size), defined_(defined) {}

  Decoded Decode();

 private:
  void CopyToNextAmpersand();
  bool DecodeReference();
  bool DecodeCharacter(std::string_view reference);
  [[nodiscard]] bool IsDefined(std::string_view reference) const;
  bool Fail(std::string_view problem);
  void Put(std::string_view bytes, std::size_t length_of_reference);

  char* text_;
  std::size_t size_;
  std::size_t read_ = 0;
  std::size_t written_ = 0;
  const EntityNames& defined_;
  std::string_view problem_;
};

Decoded EntityDecoder::Decode() {
  CopyToNextAmpersand();
  while (read_ < size_ && DecodeReference()) CopyToNextAmpersand();
  return {written_, problem_};
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
  if (IsDefined(reference)) return Fail("an entity of the document's own type");
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
  if (error != std::errc() || code_point == 0 || !IsCodePoint(code_point)) {
    return Fail("a reference to a character that does not exist");
  }
  std::string character;
  AppendCharacter(code_point, character);
  Put(character, static_cast<std::size_t>(end - reference.begin()) + 3);
  return true;
}

bool EntityDecoder::IsDefined(std::string_view reference) const {
  return !defined_.empty() && defined_.contains(reference.substr(0, reference.find(';')));
}

bool EntityDecoder::Fail(std::string_view problem) {
  problem_ = problem;
  return false;
}

void EntityDecoder::Put(std::string_view bytes, std::size_t length_of_reference) {
  std::memcpy(text_ + written_, bytes.data(), bytes.size());
  written_ += bytes.size();
  read_ += length_of_reference;
}

}  // namespace

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

Decoded DecodeEntities(char* text, std::size_t size, const EntityNames& defined) {
  return EntityDecoder(text, size, defined).Decode();
}

bool AppendEscaped(std::string_view text, Output& output) {
  return AppendWith("&gt;", text, output);
}

bool AppendEscapedKey(std::string_view key, Output& output) {
  constexpr std::string_view kForbidden = "]]>";
  for (std::size_t at = key.find(kForbidden); at != std::string_view::npos;
       at = key.find(kForbidden)) {
    if (!AppendWith("", key.substr(0, at), output)) return false;
    output.Append("]]&gt;");
    key.remove_prefix(at + kForbidden.size());
  }
  return AppendWith("", key, output);
}

}  // namespace morvantile::plutil
