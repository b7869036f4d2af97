#include <gtest/gtest.h>

#include "platform/ui/headless_host.h"
#include "tests/plist/drawing.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

constexpr const char* kHeaders =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n"
    "<dict>\n";

TEST(Writer, WritesEveryTypeToTheByte) {
  const Ref<plist> document = NewDocument();
  plistDict& root = *document->root;
  root.SetString("x", "a<b>c & \"d\"");
  root.SetInteger("i", -2);
  root.SetReal("r", 1.5);
  root.SetBoolean("t", true);
  root.SetBoolean("f", false);
  root.SetDate("d", New<Date>(2009, 3, 7, 8, 5, 9));
  root.SetData("data", "QUJD");
  root.AddChild("y");
  root.AddArray("e");
  root.AddArray("z");
  root.child("z")->AppendInteger(5);
  root.child("z")->AppendData("");
  root.child("z")->AppendDict();
  root.child("z")->index(2)->SetString("a<b", "");
  EXPECT_EQ(document->asString(), std::string(kHeaders) +
                                      "\t<key>x</key>\n"
                                      "\t<string>a&lt;b&gt;c & \"d\"</string>\n"
                                      "\t<key>i</key>\n"
                                      "\t<integer>-2</integer>\n"
                                      "\t<key>r</key>\n"
                                      "\t<real>1.5</real>\n"
                                      "\t<key>t</key>\n"
                                      "\t<true/>\n"
                                      "\t<key>f</key>\n"
                                      "\t<false/>\n"
                                      "\t<key>d</key>\n"
                                      "\t<date>2009-03-07T08:05:09Z</date>\n"
                                      "\t<key>data</key>\n"
                                      "\t<data>\n"
                                      "\tQUJD\n"
                                      "\t</data>\n"
                                      "\t<key>y</key>\n"
                                      "\t<dict/>\n"
                                      "\t<key>e</key>\n"
                                      "\t<array/>\n"
                                      "\t<key>z</key>\n"
                                      "\t<array>\n"
                                      "\t\t<integer>5</integer>\n"
                                      "\t\t<data>\n"
                                      "\t\t\n"
                                      "\t\t</data>\n"
                                      "\t\t<dict>\n"
                                      "\t\t\t<key>a<b</key>\n"
                                      "\t\t\t<string></string>\n"
                                      "\t\t</dict>\n"
                                      "\t</array>\n"
                                      "</dict>\n"
                                      "</plist>\n");
}

TEST(Writer, WritesAnEmptyRootInSixLines) {
  EXPECT_EQ(NewDocument()->asString(), std::string(kHeaders) + "</dict>\n</plist>\n");
}

TEST(Writer, FollowsTheTypeWordWhateverItIs) {
  const Ref<plist> document = NewDocument();
  plistDict& root = *document->root;
  root.SetBoolean("a", true);
  root.values.SetValue("a", "TRUE");
  root.SetBoolean("b", true);
  root.values.SetValue("b", "yes");
  root.types.SetValue("c", "my type");
  root.types.SetValue("d", "Data");
  root.types.SetValue("e", "DICT");
  root.child("f")->SetString("k", "v");
  root.types.SetValue("f", "Array");
  root.child("g");
  root.SetData("g", "x");
  EXPECT_EQ(Written(document),
            "\t<key>a</key>\n\t<true/>\n\t<key>b</key>\n\t<false/>\n"
            "\t<key>c</key>\n\t<my type></my type>\n"
            "\t<key>d</key>\n\t<data>\n\t\n\t</data>\n"
            "\t<key>e</key>\n"
            "\t<key>f</key>\n\t<array>\n\t\t<key>k</key>\n\t\t<string>v</string>\n\t</array>\n"
            "\t<key>g</key>\n\t<data>\n\tx\n\t</data>\n");
}

TEST(Writer, IndentsByAsManyTabsAsItIsTold) {
  const Ref<plistDict> node = New<plistDict>();
  node->child("a")->child("b")->SetString("k", "v");
  const std::vector<std::string> lines = {"<key>a</key>", "<dict>",       "<key>b</key>",
                                          "<dict>",       "<key>k</key>", "<string>v</string>",
                                          "</dict>",      "</dict>"};
  const std::vector<int> levels = {0, 0, 1, 1, 2, 2, 1, 0};
  for (const int depth : {3, 0, -1, -2, -9}) {
    std::string expected;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const int tabs = std::max(depth + levels[i], 0);
      expected += std::string(static_cast<std::size_t>(tabs), '\t') + lines[i] + "\n";
    }
    const Ref<FolderItem> file = GetTemporaryFolderItem();
    const Ref<TextOutputStream> out = file->CreateTextFile();
    node->Write(*out, depth);
    ASSERT_TRUE(out->Close());
    EXPECT_EQ(TextInputStream::Open(file)->ReadAll(), expected) << depth;
  }
}

TEST(Writer, AValueWithLinesGainsALineEndOnceAndIsStableThen) {
  const Ref<plist> document = NewDocument();
  document->root->SetString("k", "a\rb\n\nc");
  const Ref<plist> second = document->FromString(document->asString());
  EXPECT_EQ(second->root->GetString("k"), "a\rb\r\rc\r");
  const Ref<plist> third = second->FromString(second->asString());
  EXPECT_EQ(third->root->GetString("k"), "a\rb\r\rc\r");
  EXPECT_EQ(third->asString(), second->asString());
}

TEST(Brackets, AreTheOnlyCharactersWithCodes) {
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_EQ(node->BracketsToCode("<a & \"b\">"), "&lt;a & \"b\"&gt;");
  EXPECT_EQ(node->CodeToBrackets("&lt;&LT;&gT;&amp;lt;&&lt"), "<<>&amp;lt;&&lt");
}

TEST(Writer, WhatItWritesReadsBackAsTheSameTreeAndText) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    const Ref<plist> document = NewDocument();
    Drawing(seed, Drawing::Alphabet::kAnything).Fill(*document->root);
    const std::string text = document->asString();
    const Ref<plist> again = document->FromString(text);
    ASSERT_EQ(Sketch(*again->root), Sketch(*document->root)) << "seed " << seed;
    ASSERT_EQ(again->asString(), text) << "seed " << seed;
  }
}

TEST(Dump, MarksTheKeysThatTheSearchKnows) {
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = Read("<key>a</key>\n<array>\n<string>a<</string>\n</array>");
  document->root->SetString("b", "x");
  document->root->child("c")->SetBoolean("d", true);
  host.clipboardText = "earlier";
  document->Dump();
  EXPECT_EQ(host.clipboardText,
            "<plist version=\"1.0\">\r<dict>\r"
            "\t<key>a</key>\r\t<nosearch/>\r\t<array>\r\t\t<string>a&lt;</string>\r\t</array>\r"
            "\t<key>b</key>\r\t<search/>\r\t<string>x</string>\r"
            "\t<key>c</key>\r\t<search/>\r\t<dict>\r"
            "\t\t<key>d</key>\r\t\t<search/>\r\t\t<true/>\r\t</dict>\r"
            "</dict>\r</plist>\r");
  InstallHost(nullptr);
}

}  // namespace
}  // namespace morvantile
