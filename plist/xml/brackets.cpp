#include "plist/xml/brackets.h"

#include "platform/text/folding.h"
#include "plist/plistDict.h"

namespace morvantile {
namespace {

constexpr std::string_view kLess = "&lt;";
constexpr std::string_view kGreater = "&gt;";

}  // namespace

std::string plistDict::BracketsToCode(std::string_view text) const {
  std::string result;
  AppendEncoded(result, text);
  return result;
}

std::string plistDict::CodeToBrackets(std::string_view text) const {
  std::string result;
  AppendDecoded(result, text);
  return result;
}

bool HasBracket(std::string_view text) {
  return text.find('<') != std::string_view::npos || text.find('>') != std::string_view::npos;
}

void AppendEncoded(std::string& result, std::string_view text) {
  while (true) {
    const std::size_t bracket = text.find_first_of("<>");
    result.append(text, 0, bracket);
    if (bracket == std::string_view::npos) return;
    result.append(text[bracket] == '<' ? kLess : kGreater);
    text.remove_prefix(bracket + 1);
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
