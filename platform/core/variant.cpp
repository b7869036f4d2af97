#include "platform/core/variant.h"

#include "platform/core/number.h"
#include "platform/text/text.h"

namespace morvantile {

bool Variant::IsNumeric() const {
  const auto* text = std::get_if<std::string>(&value_);
  return text == nullptr || ReadsAsNumber(*text);
}

std::int64_t Variant::Integer() const {
  const auto* text = std::get_if<std::string>(&value_);
  return text == nullptr ? std::get<std::int64_t>(value_) : Truncate(CDbl(*text));
}

std::string Variant::String() const {
  const auto* text = std::get_if<std::string>(&value_);
  return text == nullptr ? Str(std::get<std::int64_t>(value_)) : *text;
}

}  // namespace morvantile
