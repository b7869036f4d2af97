#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

#include "platform/core/number.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"

namespace morvantile {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

struct ReadNumber {
  double value;
  std::size_t length;  // of the characters that it took, its sign apart
};

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether the decimal number, too large or too small for a double, is at least 1: whether its first
// digit other than 0 is in front of the point once the exponent has moved the point.
bool IsAtLeastOne(std::string_view number) {
  const std::size_t exponent_at = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, exponent_at);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = digits.find_first_of("123456789");
  std::string_view exponent_text = number.substr(std::min(exponent_at + 1, number.size()));
  if (exponent_text.starts_with('+')) exponent_text.remove_prefix(1);
  double exponent = 0;
  std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);
  return static_cast<double>(point) - static_cast<double>(first) + exponent > 0;
}

std::optional<ReadNumber> ReadDecimal(std::string_view text) {
  if (text.empty() || !(IsDigit(text[0]) || text[0] == '.')) return std::nullopt;
  double value = 0;
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (status == std::errc::invalid_argument) return std::nullopt;
  const auto length = static_cast<std::size_t>(end - text.data());
  if (status == std::errc::result_out_of_range) {
    const bool is_large = IsAtLeastOne(text.substr(0, length));
    value = is_large ? std::numeric_limits<double>::infinity() : 0;
  }
  return ReadNumber{value, length};
}

std::optional<ReadNumber> ReadHexadecimal(std::string_view text) {
  if (!SameText(text.substr(0, 2), "&h")) return std::nullopt;
  double value = 0;
  std::size_t length = 2;
  for (; length < text.size(); ++length) {
    int digit = 0;
    const char* const at = text.data() + length;
    if (std::from_chars(at, at + 1, digit, 16).ec != std::errc()) break;
    value = value * 16 + digit;
  }
  if (length == 2) return std::nullopt;
  return ReadNumber{value, length};
}

std::optional<ReadNumber> ReadDigits(std::string_view text) {
  const std::optional<ReadNumber> hexadecimal = ReadHexadecimal(text);
  return hexadecimal ? hexadecimal : ReadDecimal(text);
}

std::optional<double> ReadWord(std::string_view text) {
  if (SameText(text, "inf") || SameText(text, "infinity")) {
    return std::numeric_limits<double>::infinity();
  }
  if (SameText(text, "nan")) return std::numeric_limits<double>::quiet_NaN();
  return std::nullopt;
}

struct SignedText {
  double sign;
  std::string_view magnitude;
};

SignedText SplitSign(std::string_view text) {
  const bool has_sign = text.starts_with('-') || text.starts_with('+');
  return {text.starts_with('-') ? -1.0 : 1.0, text.substr(has_sign ? 1 : 0)};
}

// The integer that the whole text is, without a plus or blanks.
std::optional<std::int64_t> ReadInteger(std::string_view text) {
  std::int64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, status] = std::from_chars(text.data(), end, value);
  if (status != std::errc() || stop != end) return std::nullopt;
  return value;
}

template <typename Number, typename... Layout>
std::string Digits(Number value, Layout... layout) {
  constexpr std::size_t kMostDigits = std::is_integral_v<Number> ? 24 : 350;
  std::array<char, kMostDigits> digits;  // NOLINT(*-member-init): filled as far as it is used
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value, layout...);
  return {digits.data(), result.ptr};
}

}  // namespace

std::string Str(std::int64_t value) { return Digits(value); }

std::string Str(int value) { return Digits(value); }

std::string Str(double value) {
  constexpr double kWithoutExponent = 1e15;
  if (std::isnan(value)) return "nan";
  const bool is_short_whole = std::trunc(value) == value && std::abs(value) < kWithoutExponent;
  return is_short_whole ? Digits(value, std::chars_format::fixed) : Digits(value);
}

double CDbl(std::string_view text) {
  const SignedText number = SplitSign(WithoutBlanks(text));
  if (const auto digits = ReadDigits(number.magnitude)) return number.sign * digits->value;
  if (const auto word = ReadWord(number.magnitude)) return number.sign * *word;
  return 0;
}

// A double has not enough bits for all integers, so plain digits are read as they are.
std::int64_t CInt64(std::string_view text) {
  if (const auto integer = ReadInteger(text)) return *integer;
  const SignedText number = SplitSign(WithoutBlanks(text));
  const auto magnitude = ReadInteger(number.magnitude);
  if (magnitude && *magnitude >= 0) return number.sign < 0 ? -*magnitude : *magnitude;
  return Truncate(CDbl(text));
}

bool ReadsAsNumber(std::string_view text) {
  const std::string_view magnitude = SplitSign(WithoutBlanks(text)).magnitude;
  const std::optional<ReadNumber> digits = ReadDigits(magnitude);
  return digits && digits->length == magnitude.size();
}

std::string Hex(std::int64_t value) {
  std::string digits = Digits(static_cast<std::uint64_t>(value), 16);
  for (char& digit : digits) {
    if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
  }
  return digits;
}

std::string Format(double value, std::string_view mask) {
  std::string digits = std::isfinite(value) ? Digits(std::trunc(value), std::chars_format::fixed)
                                            : Digits(Truncate(value));
  const bool is_negative = std::trunc(value) < 0;
  if (digits.starts_with('-')) digits.erase(0, 1);
  std::string result;
  for (const char c : mask) {
    if (c == '#') {
      result += digits;
    } else if (c != '-' || is_negative) {
      result += c;
    }
  }
  return result;
}

}  // namespace morvantile
