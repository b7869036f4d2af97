#include <gtest/gtest.h>

#include "tests/installed_host.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

TEST(Writer, WritesEveryTypeToTheByte) {
  const std::pair<const char*, const char*> rows[] = {
      {"{}", ""},
      {"{x: 'a<b>c & \"d\"'}", "\t<key>x</key>|\t<string>a&lt;b&gt;c & \"d\"</string>|"},
      {"{i: integer '-2'}", "\t<key>i</key>|\t<integer>-2</integer>|"},
      {"{t: boolean 'TRUE'}", "\t<key>t</key>|\t<true/>|"},
      {"{f: Boolean 'yes'}", "\t<key>f</key>|\t<false/>|"},
      {"{d: Data 'QUJD'}", "\t<key>d</key>|\t<data>|\tQUJD|\t</data>|"},
      {"{a<b: my ''}", "\t<key>a<b</key>|\t<my></my>|"},
      {"{d: {k: ''}}", "\t<key>d</key>|\t<dict>|\t\t<key>k</key>|\t\t<string></string>|\t</dict>|"},
      {"{a: [[''], {}, []]}",
       "\t<key>a</key>|\t<array>|\t\t<array>|\t\t\t<string></string>|\t\t</array>|"
       "\t\t<dict/>|\t\t<array/>|\t</array>|"},
  };
  for (const auto& [tree, text] : rows) EXPECT_EQ(Written(Tree(tree)), text) << tree;
  EXPECT_EQ(OnOneLine(NewDocument()->asString()),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>|"
            "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
            "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">|"
            "<plist version=\"1.0\">|<dict>|</dict>|</plist>|");
}

TEST(Writer, FollowsTheTypeWordAndNotTheNode) {
  const Ref<plist> document = Tree("{f: {}, g: {}}");
  document->root->types.SetValue("e", "DICT");
  document->root->types.SetValue("f", "Array");
  document->root->SetData("g", "x");
  EXPECT_EQ(Written(document),
            "\t<key>f</key>|\t<array/>|\t<key>g</key>|\t<data>|\tx|\t</data>|\t<key>e</key>|");
}

TEST(Writer, IndentsByAsManyTabsAsItIsTold) {
  const std::pair<int, const char*> rows[] = {
      {2, "\t\t<key>a</key>|\t\t<dict>|\t\t\t<key>k</key>|\t\t\t<string></string>|\t\t</dict>|"},
      {0, "<key>a</key>|<dict>|\t<key>k</key>|\t<string></string>|</dict>|"},
      {-1, "<key>a</key>|<dict>|<key>k</key>|<string></string>|</dict>|"},
  };
  const ScratchFolder folder;
  for (const auto& [depth, text] : rows) {
    const Ref<TextOutputStream> out = folder.Item("a")->CreateTextFile();
    Tree("{a: {k: ''}}")->root->Write(*out, depth);
    ASSERT_TRUE(out->Close());
    EXPECT_EQ(OnOneLine(folder.Content("a")), text) << depth;
  }
}

TEST(Brackets, AreTheOnlyCharactersWithCodes) {
  const Ref<plistDict> node = New<plistDict>();
  EXPECT_EQ(node->BracketsToCode("<a & \"b\">"), "&lt;a & \"b\"&gt;");
  EXPECT_EQ(node->CodeToBrackets("&lt;&LT;&gT;&amp;lt;&&lt"), "<<>&amp;lt;&&lt");
}

TEST(Dump, MarksTheKeysThatTheSearchKnows) {
  InstalledHost host;
  const Ref<plist> document = Read("<key>a</key>|<array>|<string>a<</string>|</array>");
  document->root->SetData("b", "x");
  host.clipboard_text = "earlier";
  document->Dump();
  EXPECT_EQ(host.clipboard_text,
            "<plist version=\"1.0\">\r<dict>\r"
            "\t<key>a</key>\r\t<nosearch/>\r\t<array>\r\t\t<string>a&lt;</string>\r\t</array>\r"
            "\t<key>b</key>\r\t<search/>\r\t<data>\r\tx\r\t</data>\r</dict>\r</plist>\r");
}

}  // namespace
}  // namespace morvantile
