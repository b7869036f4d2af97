// A value that is a number or a text.

#ifndef MORVANTILE_PLATFORM_CORE_VARIANT_H
#define MORVANTILE_PLATFORM_CORE_VARIANT_H

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/core/export.h"

namespace morvantile {

// An integer or a String, for arguments that take either.
class MORVANTILE_API Variant {
 public:
  template <std::integral Integer>
  Variant(Integer value) : value_(static_cast<std::int64_t>(value)) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}

  // Whether it is an integer, or a text that reads as a number as a whole.
  [[nodiscard]] bool IsNumeric() const;

  // The integer, or the number that the text begins with, without its fraction; 0 if it begins with
  // none.
  [[nodiscard]] std::int64_t Integer() const;

  // The text, or the integer in decimal digits.
  [[nodiscard]] std::string String() const;

 private:
  std::variant<std::int64_t, std::string> value_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_CORE_VARIANT_H
