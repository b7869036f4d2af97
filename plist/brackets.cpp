#include "plist/brackets.h"

#include <algorithm>

#include "platform/base/folding.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

constexpr std::string_view kLess = "&lt;";
constexpr std::string_view kGreater = "&gt;";

}  // namespace

std::string plistDict::BracketsToCode(std::string_view text) {
  std::string result;
  AppendEncoded(result, text);
  return result;
}

std::string plistDict::CodeToBrackets(std::string_view text) {
  std::string result;
  AppendDecoded(result, text);
  return result;
}

void AppendEncoded(std::string& result, std::string_view text) {
  while (true) {
    const auto bracket =
        std::find_if(text.begin(), text.end(), [](char c) { return c == '<' || c == '>'; });
    result.append(text.begin(), bracket);
    if (bracket == text.end()) return;
    result.append(*bracket == '<' ? kLess : kGreater);
    text = {bracket + 1, text.end()};
  }
}

void AppendDecoded(std::string& result, std::string_view text) {
  while (true) {
    const std::size_t mark = text.find('&');
    result.append(text, 0, mark);
    if (mark == std::string_view::npos) return;
    const std::string_view code = text.substr(mark, kLess.size());
    const bool is_less = SameText(code, kLess);
    const bool is_code = is_less || SameText(code, kGreater);
    result += !is_code ? '&' : is_less ? '<' : '>';
    text.remove_prefix(mark + (is_code ? code.size() : 1));
  }
}

}  // namespace morvantile
