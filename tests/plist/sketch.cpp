#include "tests/plist/sketch.h"

#include <algorithm>

#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/store/entries.h"

namespace morvantile {
namespace {

std::string SketchOfEntry(plistDict& node, const std::string& key) {
  const std::string type = node.GetType(key);
  if (!IsContainer(type)) {
    const std::string word = type == "string" ? "" : type + " ";
    return word + (node.values.HasKey(key) ? "'" + node.values.Value(key) + "'" : "!");
  }
  const Ref<plistDict> child = node.child(key);
  const bool is_sound = child && child->name == key && child->parent == &node &&
                        child->isArray == SameText(type, "array") && !node.values.HasKey(key);
  return is_sound ? Sketch(*child) : "!";
}

// Reads a sketch from its front on.
class SketchReader {
 public:
  explicit SketchReader(std::string_view sketch) : rest_(sketch) {}

  void ReadInto(plistDict& node) {
    node.isArray = rest_[0] == '[';
    rest_.remove_prefix(1);
    while (rest_[0] != '}' && rest_[0] != ']') {
      const bool has_key = !node.isArray || (rest_[0] >= '0' && rest_[0] <= '9');
      ReadEntry(node, has_key ? Until(": ") : Str(node.count()));
      if (rest_.starts_with(", ")) rest_.remove_prefix(2);
    }
    rest_.remove_prefix(1);
  }

  // What is behind the tree.
  std::string Rest() const { return std::string(rest_.substr(rest_.empty() ? 0 : 1)); }

 private:
  void ReadEntry(plistDict& node, const std::string& key) {
    if (rest_[0] == '{' || rest_[0] == '[') {
      node.AddChild(key);
      node.types.SetValue(key, rest_[0] == '{' ? "dict" : "array");
      node.searched.Remove(key);
      return ReadInto(*node.children.back());
    }
    const std::string type = rest_[0] == '\'' ? "string" : Until(" ");
    rest_.remove_prefix(1);
    node.types.SetValue(key, type);
    node.values.SetValue(key, Until("'"));
  }

  std::string Until(std::string_view end) {
    const std::string text(rest_.substr(0, rest_.find(end)));
    rest_.remove_prefix(text.size() + end.size());
    return text;
  }

  std::string_view rest_;
};

}  // namespace

Ref<plist> NewDocument() {
  Ref<plist> document = New<plist>(New<FolderItem>("/no such file"), false);
  document->error = false;
  return document;
}

std::string Sketch(plistDict& node) {
  std::string sketch;
  for (std::size_t i = 0; i < node.types.Count(); ++i) {
    const std::string key = node.types.Key(i);
    if (i > 0) sketch += ", ";
    if (!node.isArray || key != Str(static_cast<std::int64_t>(i))) sketch += key + ": ";
    sketch += SketchOfEntry(node, key);
  }
  return node.isArray ? "[" + sketch + "]" : "{" + sketch + "}";
}

Ref<plist> Tree(std::string_view sketch) {
  Ref<plist> document = NewDocument();
  SketchReader reader(sketch);
  reader.ReadInto(*document->root);
  document->errorMessage = reader.Rest();
  document->error = !document->errorMessage.empty();
  return document;
}

std::string OnOneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', '|');
  return text;
}

std::string Lines(std::string text) {
  std::replace(text.begin(), text.end(), '|', '\n');
  return text;
}

Ref<plist> Read(const std::string& body) {
  return New<plist>(Lines("<plist version=\"1.0\">|<dict>|" + body + "|</dict>|</plist>|"));
}

std::string Written(const Ref<plist>& document) {
  const std::string begin = "<dict>|";
  const std::string end = "</dict>|</plist>|";
  const std::string text = OnOneLine(document->asString());
  const std::size_t from = text.find(begin) + begin.size();
  return text.ends_with(end) ? text.substr(from, text.size() - end.size() - from) : "no end";
}

std::string Report(const Ref<plist>& document) {
  return document->error ? document->errorMessage : "";
}

}  // namespace morvantile
