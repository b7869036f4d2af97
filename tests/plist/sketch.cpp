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
  const auto* const place = std::find(node.children.begin(), node.children.end(), child);
  const auto number = static_cast<std::size_t>(place - node.children.begin());
  const bool is_sound = child && child->name == key && child->parent == &node &&
                        SameText(node.childrenNames[number], key) &&
                        child->isArray == SameText(type, "array") && !node.values.HasKey(key);
  return is_sound ? Sketch(*child) : "!";
}

// Takes what is in front of `end` off a sketch, with the end.
std::string Until(std::string_view end, std::string_view& sketch) {
  std::string text(sketch.substr(0, sketch.find(end)));
  sketch.remove_prefix(text.size() + end.size());
  return text;
}

// Takes a node off the front of a sketch.
void ReadInto(plistDict& node, std::string_view& sketch) {
  node.isArray = sketch[0] == '[';
  for (sketch.remove_prefix(1); sketch[0] != '}' && sketch[0] != ']';) {
    const bool has_key = !node.isArray || (sketch[0] >= '0' && sketch[0] <= '9');
    const std::string key = has_key ? Until(": ", sketch) : Str(node.count());
    const char first = sketch[0];
    if (first == '{' || first == '[') {
      first == '{' ? node.AddChild(key) : static_cast<void>(node.AddArray(key));
      node.searched.Remove(key);
      ReadInto(*node.children.back(), sketch);
    } else {
      node.types.SetValue(key, first == '\'' ? "string" : Until(" ", sketch));
      sketch.remove_prefix(1);
      node.values.SetValue(key, Until("'", sketch));
    }
    if (sketch.starts_with(", ")) sketch.remove_prefix(2);
  }
  sketch.remove_prefix(1);
}

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
  ReadInto(*document->root, sketch);
  document->error = !sketch.empty();
  if (document->error) document->errorMessage = sketch.substr(1);
  return document;
}

std::string OnOneLine(const std::string& text) { return ReplaceAll(text, "\n", "|"); }

std::string Lines(const std::string& text) { return ReplaceAll(text, "|", "\n"); }

Ref<plist> Read(const std::string& body) {
  return New<plist>(Lines("<plist version=\"1.0\">|<dict>|" + body + "|</dict>|</plist>|"));
}

std::string Written(const Ref<plist>& document) {
  std::string text = OnOneLine(document->asString());
  text.erase(0, text.find("<dict>|") + 7);
  return text.erase(text.rfind("</dict>|</plist>|"));
}

std::string Report(const Ref<plist>& document) {
  return document->error ? document->errorMessage : "";
}

}  // namespace morvantile
