#include "platform/plutil/scalar_text.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace morvantile::plutil {
namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::chrono::sys_seconds kEpoch = std::chrono::sys_days(std::chrono::January / 1 / 2001);

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

bool TakePrefix(std::string_view prefix, std::string_view& text) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

// Takes a number of at most `most_digits` decimal digits.
std::optional<unsigned> TakeField(std::size_t most_digits, std::string_view& text) {
  unsigned value = 0;
  const std::string_view field = text.substr(0, most_digits);
  const auto [end, error] = std::from_chars(field.begin(), field.end(), value);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - field.begin()));
  return value;
}

std::optional<std::chrono::sys_days> TakeDay(std::string_view& text) {
  const auto year = TakeField(4, text);
  if (!year || !TakePrefix("-", text)) return std::nullopt;
  const auto month = TakeField(2, text);
  if (!month || !TakePrefix("-", text)) return std::nullopt;
  const auto day = TakeField(2, text);
  if (!day) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*year)),
                                         std::chrono::month(*month), std::chrono::day(*day));
  if (!date.ok()) return std::nullopt;
  return std::chrono::sys_days(date);
}

// Takes hours, minutes and, if they are there, seconds; a second of 60 is a leap second.
std::optional<std::chrono::seconds> TakeTime(std::string_view& text) {
  const auto hours = TakeField(2, text);
  if (!hours || *hours > 23 || !TakePrefix(":", text)) return std::nullopt;
  const auto minutes = TakeField(2, text);
  if (!minutes || *minutes > 59) return std::nullopt;
  unsigned seconds = 0;
  if (TakePrefix(":", text)) {
    const auto taken = TakeField(2, text);
    if (!taken || *taken > 60) return std::nullopt;
    seconds = *taken;
  }
  return std::chrono::hours(*hours) + std::chrono::minutes(*minutes) +
         std::chrono::seconds(seconds);
}

// Takes the decimal digits that come next.
std::string TakeDigits(std::string_view& text) {
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  text.remove_prefix(digits.size());
  return std::string(digits);
}

// Takes the offset from UTC: "Z", "+hh:mm", "+hhmm" or "+hh", or these with a "-"; none is 0.
std::optional<std::chrono::seconds> TakeOffset(std::string_view& text) {
  const bool is_behind = text.starts_with('-');
  if (TakePrefix("Z", text) || (!TakePrefix("-", text) && !TakePrefix("+", text))) {
    return std::chrono::seconds(0);
  }
  const auto hours = TakeField(2, text);
  if (!hours || *hours > 23) return std::nullopt;
  std::optional<unsigned> minutes = 0;
  if (TakePrefix(":", text) || !text.empty()) minutes = TakeField(2, text);
  if (!minutes || *minutes > 59) return std::nullopt;
  const std::chrono::seconds offset = std::chrono::hours(*hours) + std::chrono::minutes(*minutes);
  return is_behind ? -offset : offset;
}

// The digits behind the point of 1 - 0.`digits`, whose last digit is not 0.
std::string Complement(std::string digits) {
  for (char& digit : digits) digit = static_cast<char>('0' + '9' - digit);
  if (!digits.empty()) ++digits.back();
  return digits;
}

// The number nearest to `seconds` and the decimal fraction `digits` of one more.
double WithFraction(std::int64_t seconds, std::string digits) {
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.empty()) return static_cast<double>(seconds);
  const bool is_negative = seconds < 0;
  const std::string text = std::to_string(is_negative ? -(seconds + 1) : seconds) + "." +
                           (is_negative ? Complement(std::move(digits)) : digits);
  double magnitude = 0;
  std::from_chars(text.data(), text.data() + text.size(), magnitude);
  return is_negative ? -magnitude : magnitude;
}

// The decimal digits behind the point of `seconds` - floor(`seconds`), as few as tell it from other
// numbers.
std::string FractionOf(double seconds) {
  std::array<char, 512> text{};
  const auto end =
      std::to_chars(text.begin(), text.end(), std::abs(seconds), std::chars_format::fixed);
  const std::string_view number(text.begin(), end.ptr);
  const std::size_t point = number.find('.');
  if (point == std::string_view::npos) return "";
  std::string digits(number.substr(point + 1));
  return seconds < 0 ? Complement(std::move(digits)) : digits;
}

constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kSkip = 64;
constexpr std::uint8_t kPadding = 65;
constexpr std::uint8_t kNoDigit = 66;

// The value of each base64 digit by its character.
constexpr std::array<std::uint8_t, 256> MakeBase64Values() {
  std::array<std::uint8_t, 256> values{};
  values.fill(kNoDigit);
  for (std::size_t i = 0; i < kBase64.size(); ++i) {
    values[static_cast<unsigned char>(kBase64[i])] = static_cast<std::uint8_t>(i);
  }
  for (const char space : kWhiteSpace) values[static_cast<unsigned char>(space)] = kSkip;
  values['='] = kPadding;
  return values;
}

constexpr std::array<std::uint8_t, 256> kBase64Values = MakeBase64Values();

}  // namespace

std::optional<Object> IntegerFromText(std::string_view text) {
  text = Trimmed(text);
  const bool is_negative = TakePrefix("-", text);
  if (!is_negative) TakePrefix("+", text);
  const int base = TakePrefix("0x", text) || TakePrefix("0X", text) ? 16 : 10;
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.begin(), text.end(), value, base);
  if (error != std::errc() || end != text.end()) return std::nullopt;
  constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63U;
  if (is_negative) {
    if (value > kTwoTo63) return std::nullopt;
    return Object::Number(Kind::kInteger, 0 - value);
  }
  return Object::Number(value < kTwoTo63 ? Kind::kInteger : Kind::kUnsigned, value);
}

std::optional<double> RealFromText(std::string_view text) {
  text = Trimmed(text);
  if (TakePrefix("+", text) && text.starts_with('-')) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.begin(), text.end(), value);
  if (end != text.end() || text.empty()) return std::nullopt;
  if (error == std::errc::result_out_of_range)
    return std::strtod(std::string(text).c_str(), nullptr);
  return error == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<double> DateFromText(std::string_view text) {
  text = Trimmed(text);
  const auto day = TakeDay(text);
  if (!day) return std::nullopt;
  std::optional<std::chrono::seconds> time(0);
  std::optional<std::chrono::seconds> offset(0);
  std::string fraction;
  if (TakePrefix("T", text)) {
    time = TakeTime(text);
    if (TakePrefix(".", text)) fraction = TakeDigits(text);
    offset = TakeOffset(text);
  } else {
    TakePrefix("Z", text);
  }
  if (!time || !offset || !text.empty()) return std::nullopt;
  return WithFraction((*day + *time - *offset - kEpoch).count(), std::move(fraction));
}

std::optional<std::size_t> DecodeBase64(char* text, std::size_t size) {
  std::size_t decoded = 0;
  std::uint32_t bits = 0;
  unsigned digits = 0;
  bool has_ended = false;
  for (std::size_t i = 0; i < size; ++i) {
    const std::uint8_t value = kBase64Values[static_cast<unsigned char>(text[i])];
    if (value == kSkip) continue;
    if (value == kNoDigit || (has_ended && value != kPadding)) return std::nullopt;
    has_ended = value == kPadding;
    if (has_ended) continue;
    bits = (bits << 6U) | value;
    ++digits;
    if (digits % 4 != 1) text[decoded++] = static_cast<char>(bits >> (6 - 2 * ((digits - 1) % 4)));
  }
  if (digits % 4 == 1) return std::nullopt;
  return decoded;
}

std::string TextOfInteger(const Object& integer) {
  if (integer.Is() == Kind::kInteger) {
    return std::to_string(static_cast<std::int64_t>(integer.Bits()));
  }
  return std::to_string(integer.Bits());
}

std::string TextOfReal(double value) {
  constexpr double kLeastFixed = 1e-5;
  constexpr double kMostFixed = 1e16;
  const double magnitude = std::abs(value);
  const bool is_fixed = magnitude == 0 || (magnitude >= kLeastFixed && magnitude < kMostFixed);
  std::array<char, 64> text{};
  const auto end =
      is_fixed ? std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed)
               : std::to_chars(text.begin(), text.end(), value, std::chars_format::scientific);
  return {text.begin(), end.ptr};
}

std::optional<std::string> TextOfDate(double seconds) {
  using std::chrono::floor;
  constexpr double kFarAway = 1e12;
  if (!(std::abs(seconds) < kFarAway)) return std::nullopt;
  const std::chrono::sys_seconds time =
      kEpoch + std::chrono::seconds(static_cast<std::int64_t>(std::floor(seconds)));
  const auto day = floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  const int year = static_cast<int>(date.year());
  if (year < 0 || year > 9999) return std::nullopt;
  std::array<char, 64> text{};
  const int length = std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d", year,
      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
      static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
      static_cast<int>(clock.seconds().count()));
  std::string result(text.data(), static_cast<std::size_t>(length));
  if (const std::string fraction = FractionOf(seconds); !fraction.empty()) result += "." + fraction;
  return result += 'Z';
}

void AppendBase64(std::string_view bytes, std::string& text) {
  const auto digit = [&](std::uint32_t bits, unsigned shift) {
    text += kBase64[(bits >> shift) & 0x3FU];
  };
  while (!bytes.empty()) {
    std::array<std::uint8_t, 3> three{};
    const std::size_t size = bytes.copy(reinterpret_cast<char*>(three.data()), three.size());
    const std::uint32_t bits =
        (std::uint32_t{three[0]} << 16U) | (std::uint32_t{three[1]} << 8U) | three[2];
    digit(bits, 18);
    digit(bits, 12);
    if (size > 1) digit(bits, 6);
    if (size > 2) digit(bits, 0);
    text.append(3 - size, '=');
    bytes.remove_prefix(size);
  }
}

}  // namespace morvantile::plutil
