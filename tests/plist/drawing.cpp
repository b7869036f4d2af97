#include "tests/plist/drawing.h"

#include "platform/text/text.h"

namespace morvantile {
namespace {

constexpr int kDeepest = 6;

}  // namespace

void Drawing::Fill(plistDict& node, int depth) {
  const std::int64_t entries = Below(depth == 0 ? 30 : 8);
  for (std::int64_t i = 0; i < entries; ++i) {
    if (node.isArray) {
      Append(node, depth);
    } else {
      Set(node, Key(i), depth);
    }
  }
}

void Drawing::Set(plistDict& node, const std::string& key, int depth) {
  switch (Below(depth < kDeepest ? 8 : 6)) {
    case 0:
      return node.SetString(key, Text());
    case 1:
      return node.SetInteger(key, static_cast<double>(Below(1 << 30) - (1 << 29)));
    case 2:
      return node.SetReal(key, Half());
    case 3:
      return node.SetBoolean(key, Below(2) == 0);
    case 4:
      return node.SetData(key, "QUJD");
    case 5:
      return node.SetDate(key, ADate());
    case 6:
      node.AddChild(key);
      break;
    default:
      node.AddArray(key);
  }
  Fill(*node.child(key), depth + 1);
}

void Drawing::Append(plistDict& node, int depth) {
  switch (Below(depth < kDeepest ? 9 : 7)) {
    case 0:
      return node.AppendString(Text());
    case 1:
      return node.AppendInteger(static_cast<std::int64_t>(random_()));
    case 2:
      return node.AppendReal(Half());
    case 3:
      return alphabet_ == Alphabet::kXml ? node.AppendReal(Half()) : node.AppendDouble(Half());
    case 4:
      return node.AppendBoolean(Below(2) == 0);
    case 5:
      return node.AppendData("QUJD");
    case 6:
      return node.AppendDate(ADate());
    case 7:
      node.AppendDict();
      break;
    default:
      node.AppendArray();
  }
  Fill(*node.index(node.count() - 1), depth + 1);
}

std::int64_t Drawing::Below(std::int64_t bound) {
  return static_cast<std::int64_t>(random_() % static_cast<std::uint64_t>(bound));
}

// One line; without "><", where the reader would cut it.
std::string Drawing::TextOf(const std::vector<std::string>& pieces) {
  std::string text = "t";
  for (std::int64_t i = Below(12); i > 0; --i) {
    text += pieces[static_cast<std::size_t>(Below(static_cast<std::int64_t>(pieces.size())))];
  }
  return text.find("><") == std::string::npos ? text : "t";
}

std::string Drawing::Text() {
  static const std::vector<std::string> anything = {"a",  "Größe", " ",   "<",     ">",  "€", "/",
                                                    "k>", "\t",    "&x;", "\xFF.", "\"", "Z"};
  static const std::vector<std::string> xml = {"a", "Größe", " ", "<", ">", "€", "/", "\"", "'"};
  return TextOf(alphabet_ == Alphabet::kXml ? xml : anything);
}

// Keys are not escaped.
std::string Drawing::Key(std::int64_t number) {
  static const std::vector<std::string> xml = {"a", "Größe", " ", "€", "/", "\"", "'", "Z"};
  return (alphabet_ == Alphabet::kXml ? TextOf(xml) : Text()) + "#" + Str(number);
}

Ref<Date> Drawing::ADate() {
  return New<Date>(1000 + Below(3000), Below(12), Below(31), Below(24), Below(60), Below(60));
}

}  // namespace morvantile
