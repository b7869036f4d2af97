// The text of a document, and what becomes of a tree that is written and read again.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

constexpr const char* kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n"
    "<dict>\n";
constexpr const char* kTail = "</dict>\n</plist>\n";

Ref<plist> Empty() { return New<plist>(std::string(kHead) + kTail); }

// The lines between head and tail.
std::string Body(plist& document) {
  const std::string text = document.asString();
  const std::string head = kHead;
  const std::string tail = kTail;
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
  return text.substr(head.size(), text.size() - head.size() - tail.size());
}

TEST(FileText, IsLaidOutToTheByte) {
  const Ref<plist> document = Empty();
  const Ref<plistDict> root = document->root;
  EXPECT_EQ(Body(*document), "");
  root->SetString("x", "a");
  root->AddChild("y");
  root->AddArray("z");
  root->child("z")->AppendInteger(5);
  root->child("z")->AppendDict();
  root->child("z")->AppendArray();
  root->child("z")->index(2)->AppendBoolean(false);
  root->SetData("d", "QUJD");
  root->SetBoolean("t", true);
  root->SetString("empty", "");
  EXPECT_EQ(Body(*document),
            "\t<key>x</key>\n\t<string>a</string>\n"
            "\t<key>y</key>\n\t<dict/>\n"
            "\t<key>z</key>\n\t<array>\n\t\t<integer>5</integer>\n\t\t<dict/>\n"
            "\t\t<array>\n\t\t\t<false/>\n\t\t</array>\n\t</array>\n"
            "\t<key>d</key>\n\t<data>\n\tQUJD\n\t</data>\n"
            "\t<key>t</key>\n\t<true/>\n"
            "\t<key>empty</key>\n\t<string></string>\n");
}

TEST(FileText, EscapesTheBracketsOfValuesOnly) {
  const Ref<plist> document = Empty();
  document->root->SetString("a<b", "a<b>c & \"&lt;\"");
  EXPECT_EQ(Body(*document), "\t<key>a<b</key>\n\t<string>a&lt;b&gt;c & \"&lt;\"</string>\n");
}

TEST(FileText, WritesWhatAFileMayHaveLeftInTheTree) {
  const Ref<plist> document = Empty();
  const Ref<plistDict> root = document->root;
  root->types.SetValue("odd", "Uid");
  root->values.SetValue("odd", "7");
  root->types.SetValue("cut", "string");
  root->types.SetValue("yes", "BOOLEAN");
  root->values.SetValue("yes", "TRUE");
  root->types.SetValue("one", "boolean");
  root->values.SetValue("one", "1");
  EXPECT_EQ(Body(*document),
            "\t<key>odd</key>\n\t<Uid>7</Uid>\n"
            "\t<key>cut</key>\n\t<string></string>\n"
            "\t<key>yes</key>\n\t<true/>\n"
            "\t<key>one</key>\n\t<false/>\n");
}

TEST(FileText, ATextOfSeveralLinesGainsOneLineEndAndThenStays) {
  const Ref<plist> document = Empty();
  document->root->SetString("k", "a\nb");
  const Ref<plist> once = document->FromString(document->asString());
  EXPECT_EQ(once->root->GetString("k"), "a\rb\r");
  const Ref<plist> twice = once->FromString(once->asString());
  EXPECT_EQ(twice->root->GetString("k"), "a\rb\r");
  EXPECT_EQ(twice->asString(), once->asString());
}

TEST(FileText, KeepsTheHeadersOfTheFileWhateverTheySay) {
  const std::string text = "<!-- mine -->\n<plist version=\"0.9\" >\n<DICT>\n</dict>\n</plist>\n";
  EXPECT_EQ(New<plist>(text)->asString(), text);
}

// Fills a node with entries of all types, and nodes below it.
void Grow(plistDict& node, std::mt19937& random, int depth) {
  const std::vector<std::string> texts = {"",        "text",     "a<b>&c",
                                          "Größe 😀", " blanks ", "\"quotes\""};
  const auto entries = static_cast<int>(random() % 8);
  for (int i = 0; i < entries; ++i) {
    const std::string key = "key " + std::to_string(i);
    const std::string text = texts[random() % texts.size()];
    const bool array = node.isArray;
    switch (random() % 7) {
      case 0:
        array ? node.AppendString(text) : node.SetString(key, text);
        break;
      case 1:
        array ? node.AppendInteger(-7)
              : node.SetInteger(key, static_cast<double>(random() % 100000));
        break;
      case 2:
        array ? node.AppendReal(0.1) : node.SetReal(key, static_cast<double>(random()) / 7.0);
        break;
      case 3:
        array ? node.AppendBoolean(true) : node.SetBoolean(key, false);
        break;
      case 4:
        array ? node.AppendData("QUJD") : node.SetData(key, "QUJD");
        break;
      case 5:
        if (array)
          node.AppendDict();
        else
          node.AddChild(key);
        break;
      default:
        if (array)
          node.AppendArray();
        else
          node.AddArray(key);
        break;
    }
  }
  if (depth == 0) return;
  for (std::size_t i = 1; i < node.children.size(); ++i) Grow(*node.children[i], random, depth - 1);
}

TEST(FileText, AnyTreeComesBackAndIsWrittenAlike) {
  std::mt19937 random(20090307);
  for (int round = 0; round < 40; ++round) {
    const Ref<plist> document = Empty();
    Grow(*document->root, random, 5);
    const std::string text = document->asString();
    const Ref<plist> back = document->FromString(text);
    ASSERT_EQ(Sketch(*back->root), Sketch(*document->root)) << "round " << round;
    ASSERT_EQ(back->asString(), text) << "round " << round;
  }
}

}  // namespace
}  // namespace morvantile
