#include "tests/plist/sketch.h"

#include "platform/text/folding.h"
#include "plist/store/entries.h"

namespace morvantile {
namespace {

std::string SketchOfEntry(plistDict& node, const std::string& key) {
  const std::string type = node.GetType(key);
  if (!IsContainer(type)) {
    if (!node.values.HasKey(key)) return type + " !";
    return type + " \"" + node.values.Value(key) + "\"";
  }
  const Ref<plistDict> child = node.child(key);
  const bool is_sound = child && child->name == key && child->parent == &node &&
                        child->isArray == SameText(type, "array") && !node.values.HasKey(key);
  return is_sound ? Sketch(*child) : "!";
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
    sketch += key + ": " + SketchOfEntry(node, key);
  }
  return node.isArray ? "[" + sketch + "]" : "{" + sketch + "}";
}

Ref<plist> Read(const std::string& body) {
  return New<plist>("<plist version=\"1.0\">\n<dict>\n" + body + "\n</dict>\n</plist>\n");
}

std::string Written(const Ref<plist>& document) {
  const std::string begin = "<dict>\n";
  const std::string end = "</dict>\n</plist>\n";
  const std::string text = document->asString();
  const std::size_t from = text.find(begin) + begin.size();
  return text.ends_with(end) ? text.substr(from, text.size() - end.size() - from) : "no end";
}

std::string Report(const Ref<plist>& document) {
  return document->error ? document->errorMessage : "";
}

}  // namespace morvantile
