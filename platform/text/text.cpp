#include "platform/text/text.h"

#include <algorithm>

#include "platform/text/characters.h"
#include "platform/text/text_search.h"

namespace morvantile {
namespace {

// The byte offset `count` characters behind the offset `from`, or the end of the text.
std::size_t Advance(std::string_view text, std::size_t from, std::int64_t count) {
  for (; count > 0 && from < text.size(); --count) from += CharacterAt(text, from).length;
  return from;
}

}  // namespace

std::int64_t Len(std::string_view text) {
  std::int64_t count = 0;
  for (std::size_t at = 0; at < text.size(); at += CharacterAt(text, at).length) ++count;
  return count;
}

std::string Left(std::string_view text, std::int64_t count) {
  return std::string(text.substr(0, Advance(text, 0, count)));
}

std::string Right(std::string_view text, std::int64_t count) {
  if (count <= 0) return "";
  return std::string(text.substr(Advance(text, 0, Len(text) - count)));
}

std::string Mid(std::string_view text, std::int64_t start) {
  return std::string(text.substr(Advance(text, 0, std::max<std::int64_t>(start, 1) - 1)));
}

std::string Mid(std::string_view text, std::int64_t start, std::int64_t count) {
  return Left(text.substr(Advance(text, 0, std::max<std::int64_t>(start, 1) - 1)), count);
}

std::int64_t InStr(std::string_view text, std::string_view part) { return InStr(1, text, part); }

std::int64_t InStr(std::int64_t start, std::string_view text, std::string_view part) {
  start = std::max<std::int64_t>(start, 1);
  if (part.empty()) return start;
  Occurrences occurrences(text, part);
  occurrences.SkipCharacters(start - 1);
  return occurrences.Next() ? occurrences.Position() : 0;
}

std::int64_t CountFields(std::string_view text, std::string_view separator) {
  Occurrences separators(text, separator);
  std::int64_t count = 1;
  while (separators.Next()) ++count;
  return count;
}

std::string NthField(std::string_view text, std::string_view separator, std::int64_t number) {
  if (number < 1) return "";
  Occurrences separators(text, separator);
  for (std::int64_t i = 1; i < number; ++i) {
    if (!separators.Next()) return "";
  }
  const std::size_t begin = separators.End();
  const std::size_t end = separators.Next() ? separators.Begin() : text.size();
  return std::string(text.substr(begin, end - begin));
}

std::string ReplaceAll(std::string_view text, std::string_view part, std::string_view replacement) {
  Occurrences occurrences(text, part);
  std::string result;
  std::size_t end = 0;
  while (occurrences.Next()) {
    result.append(text, end, occurrences.Begin() - end);
    result.append(replacement);
    end = occurrences.End();
  }
  result.append(text, end);
  return result;
}

std::string Chr(std::int64_t code) {
  std::string text;
  if (IsCodePoint(code)) AppendCharacter(static_cast<std::uint32_t>(code), text);
  return text;
}

std::int64_t Asc(std::string_view text) {
  if (text.empty()) return -1;
  const std::uint32_t code = CharacterAt(text, 0).code;
  return code >= kStrayByte ? code - kStrayByte : code;
}

}  // namespace morvantile
