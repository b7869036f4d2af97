#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/ui/headless_host.h"
#include "plist/converter.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

class Documents : public testing::Test {
 protected:
  // A document in binary form under that name, with the key "k".
  Ref<FolderItem> BinaryFile(const std::string& name) const {
    const Ref<plist> document = New<plist>(folder.Item(name), false);
    document->root->SetString("k", "Größe");
    document->Save(false, true);
    EXPECT_EQ(folder.Content(name).substr(0, 8), "bplist00") << name;
    return folder.Item(name);
  }

  static constexpr const char* kText =
      "<?xml?>\n<plist>\n<DICT>\n\t<key>k</key>\n\t<string>v</string>\n</dict>\n</plist>\n";

  ScratchFolder folder;
};

TEST_F(Documents, ATextFileIsLoadedAndSavedWithItsHeaders) {
  const Ref<plist> document = New<plist>(folder.Put("a", kText), true);
  EXPECT_EQ(document->headers, (std::vector<std::string>{"", "<?xml?>", "<plist>", "<DICT>"}));
  EXPECT_EQ(Sketch(*document->root), R"({k: string "v"})");
  EXPECT_EQ(document->root->name, "root");
  EXPECT_TRUE(document->root->rootClass == document);
  EXPECT_FALSE(document->error);
  EXPECT_FALSE(document->isBinary);
  EXPECT_TRUE(document->org == nullptr);
  document->Save();
  EXPECT_EQ(folder.Content("a"), kText);
  document->Save();
  EXPECT_EQ(folder.Content("a"), kText);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a"});
}

TEST_F(Documents, AMissingFileGivesAnEmptyDocumentThatSaveCreates) {
  const Ref<plist> document = New<plist>(folder.Item("new"), false);
  EXPECT_EQ(Report(document), folder.Path("new") + " does not exist");
  EXPECT_EQ(document->headers.size(), 5U);
  EXPECT_EQ(document->root->name, "root");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("new")));
  document->Save();
  EXPECT_EQ(folder.Content("new").substr(folder.Content("new").find("<dict>")),
            "<dict>\n</dict>\n</plist>\n");
}

TEST_F(Documents, NoFileGivesARootThatReportsNowhere) {
  const Ref<plist> document = New<plist>(nullptr, nullptr);
  EXPECT_EQ(document->headers.size(), 5U);
  EXPECT_TRUE(document->savePath == nullptr);
  EXPECT_FALSE(document->error);
  EXPECT_EQ(document->root->name, "");
  EXPECT_TRUE(document->root->rootClass == nullptr);
  EXPECT_THROW(document->Save(), NilObjectException);
  EXPECT_THROW(static_cast<void>(New<plist>(folder.Item("missing"), nullptr)), NilObjectException);
}

TEST_F(Documents, ATemplateIsReadWhereTheFileIsMissing) {
  const Ref<plist> document = New<plist>(folder.Item("new"), folder.Put("template", kText));
  EXPECT_EQ(Sketch(*document->root), R"({k: string "v"})");
  document->Save();
  EXPECT_EQ(folder.Content("new"), kText);
  const Ref<plist> existing = New<plist>(folder.Item("new"), folder.Item("no template"));
  EXPECT_FALSE(existing->error);
}

TEST_F(Documents, AFileWithoutADictLineIsNoPropertyList) {
  for (const std::string content : {"", "hello", "<plist>\n <dict>\n</plist>", "<plist><dict>\n",
                                    "<array>\n\t<dict>\n\t</dict>\n</array>\n"}) {
    const Ref<plist> document = New<plist>(folder.Put("a", content), false);
    EXPECT_EQ(Report(document), "Not a plist file") << content;
    EXPECT_TRUE(document->root->rootClass == nullptr);
    EXPECT_EQ(document->root->count(), 0);
  }
  const Ref<plist> document = New<plist>(folder.Put("a", "one\ntwo"), false);
  document->root->SetString("k", "v");
  document->Save();
  EXPECT_EQ(folder.Content("a"),
            "one\ntwo\n\t<key>k</key>\n\t<string>v</string>\n</dict>\n</plist>\n")
      << "the lines stay, and the entries come behind them";
}

TEST_F(Documents, ADictLineMayBeTheFirstOrTheLast) {
  const Ref<plist> last = New<plist>(folder.Put("a", "<plist>\n<dict>"), false);
  EXPECT_FALSE(last->error);
  EXPECT_EQ(last->root->name, "root");
  const Ref<plist> first =
      New<plist>(folder.Put("a", "<dict>\n<key>k</key>\n<true/>\n</dict>"), false);
  EXPECT_EQ(first->headers.size(), 1U);
  EXPECT_EQ(Sketch(*first->root), R"({: {k: boolean "true"}})") << "it is read once more";
}

TEST_F(Documents, LoadingAgainReplacesTheTreeAndAddsToTheHeaders) {
  const Ref<plist> document = New<plist>(folder.Put("a", kText), false);
  const Ref<plistDict> before = document->root;
  document->LoadWithOptionalTemplate(folder.Item("a"), folder.Item("a"));
  EXPECT_FALSE(document->root == before);
  EXPECT_EQ(document->headers.size(), 7U);
}

TEST_F(Documents, AFolderInPlaceOfTheFileIsReportedTwice) {
  std::filesystem::create_directory(folder.Path("d"));
  const Ref<plist> document = New<plist>(folder.Item("d"), false);
  EXPECT_EQ(Report(document), folder.Path("d") + " could not be opened");
  document->root->SetString("k", "v");
  document->Save();
  EXPECT_EQ(Report(document), "Could not open file for saving");
}

TEST_F(Documents, ABinaryFileIsWorkedOnInACopyAndStaysBinary) {
  const Ref<plist> document = New<plist>(BinaryFile("a"), false);
  EXPECT_TRUE(document->isBinary);
  EXPECT_FALSE(document->error) << document->errorMessage;
  EXPECT_EQ(Sketch(*document->root), R"({k: string "Größe"})");
  EXPECT_EQ(document->org->Name(), "a");
  EXPECT_EQ(document->savePath->Name(), "a temp.plist");
  document->root->SetString("k", "other");
  document->Save();
  EXPECT_EQ(folder.Content("a").substr(0, 8), "bplist00");
  EXPECT_EQ(folder.Content("a temp.plist"), folder.Content("a"));
  document->root->SetBoolean("b", true);
  document->Save(true, false);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a"});
  EXPECT_EQ(Sketch(*New<plist>(folder.Item("a"), false)->root),
            R"({k: string "other", b: boolean "true"})");
  document->Save();
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a", "a temp.plist"}));
  document->Cleanup();
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a"});
}

TEST_F(Documents, ABinaryFileSavedUnchangedKeepsEveryValue) {
  folder.Put("a",
             "<dict><key>a>&lt;&amp;b&#10;]]&gt;</key><string>one\n  two \r\n\n\tthree\n</string>"
             "<key></key><array><string> </string><string>&#13;</string><string></string>"
             "<string>&amp;lt;&amp;amp;&amp;#10;&lt;/string>></string><data>AAEC</data>"
             "<date>2009-03-07T08:05:09.25Z</date><real>-0</real><real>nan</real>"
             "<integer>18446744073709551615</integer><dict/><array/><true/>"
             "<dict><key>CF$UID</key><integer>3</integer></dict></array></dict>");
  ASSERT_TRUE(Convert("binary1", *folder.Item("a")));
  const std::string before = folder.Content("a");
  const Ref<plist> document = New<plist>(folder.Item("a"), false);
  ASSERT_EQ(document->root->count(), 2);
  document->Save(true, false);
  EXPECT_EQ(folder.Content("a"), before);
}

TEST_F(Documents, ALeftoverCopyIsReplaced) {
  folder.Put("a temp.plist", kText);
  EXPECT_EQ(Sketch(*New<plist>(BinaryFile("a"), false)->root), R"({k: string "Größe"})");
}

TEST_F(Documents, MakingATextDocumentBinaryLastsForOneSave) {
  const Ref<plist> document = New<plist>(folder.Item("a"), false);
  document->Save();
  const std::string text = folder.Content("a");
  document->Save(false, true);
  EXPECT_EQ(folder.Content("a").substr(0, 8), "bplist00");
  EXPECT_FALSE(document->isBinary);
  document->Save();
  EXPECT_EQ(folder.Content("a"), text);
}

TEST_F(Documents, ATemplateInBinaryFormIsOnlyRead) {
  BinaryFile("template");
  const std::string before = folder.Content("template");
  const Ref<plist> document = New<plist>(folder.Item("new"), folder.Item("template"));
  EXPECT_EQ(Sketch(*document->root), R"({k: string "Größe"})");
  document->root->SetString("k", "mine");
  document->Save(true, false);
  EXPECT_EQ(folder.Content("template"), before);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"new", "template"}));
  EXPECT_EQ(folder.Content("new").substr(0, 8), "bplist00");
  EXPECT_EQ(Sketch(*New<plist>(folder.Item("new"), false)->root), R"({k: string "mine"})");
}

TEST_F(Documents, WhatOnlyLooksBinaryIsNoPropertyListAndIsNotTouched) {
  const Ref<plist> document = New<plist>(folder.Put("a", "BPLIST is no such file\n"), false);
  EXPECT_EQ(Report(document), "Not a plist file");
  EXPECT_TRUE(document->isBinary);
  EXPECT_EQ(document->org->Name(), "a");
  EXPECT_EQ(folder.Content("a"), "BPLIST is no such file\n");
}

TEST_F(Documents, ABinaryFileOutlivesACopyThatCannotBeWritten) {
  const Ref<plist> document = New<plist>(BinaryFile("a"), false);
  const std::string before = folder.Content("a");
  document->Cleanup();
  std::filesystem::create_directory(folder.Path("a temp.plist"));
  document->root->SetString("k", "other");
  document->Save();
  EXPECT_EQ(Report(document), "Could not open file for saving");
  EXPECT_EQ(folder.Content("a"), before);
}

TEST_F(Documents, FileNamesOfAnyBytesSurviveTheBinaryRoundTrip) {
  for (const std::string name : {"with blank", "-convert", "--", "'", "\"$(touch oops)\"", "`a`",
                                 "line\nbreak", "Größe €", "a;b&c|d>e", "\\", "*", "\xFF"}) {
    const Ref<plist> document = New<plist>(BinaryFile(name), false);
    EXPECT_EQ(Sketch(*document->root), R"({k: string "Größe"})") << name;
    document->root->SetString("k", "changed");
    document->Save(true, false);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{name});
    const Ref<plist> changed = New<plist>(folder.Item(name), false);
    EXPECT_EQ(changed->root->GetString("k"), "changed") << name;
    changed->Cleanup();
    folder.Item(name)->Delete();
  }
  EXPECT_FALSE(std::filesystem::exists("oops"));
}

TEST_F(Documents, TheBytesOfADocumentMakeAnother) {
  const Ref<plist> document = New<plist>(folder.Put("a", kText), false);
  const Ref<FolderItem> path = document->savePath;
  EXPECT_EQ(document->asString(), kText);
  EXPECT_TRUE(document->savePath == path);
  const Ref<plist> copy = document->FromString(document->asString());
  EXPECT_EQ(Sketch(*copy->root), R"({k: string "v"})");
  EXPECT_FALSE(copy->savePath->Exists());
  const Ref<plist> binary = New<plist>(BinaryFile("b"), false);
  const Ref<plist> from_binary = binary->FromString(binary->asString());
  EXPECT_EQ(Sketch(*from_binary->root), R"({k: string "Größe"})");
  EXPECT_TRUE(from_binary->isBinary);
}

TEST_F(Documents, AStringShowsTheReportThatStands) {
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = New<plist>(folder.Put("a", kText), false);
  EXPECT_FALSE(document->root->CheckArray());
  EXPECT_EQ(document->asString(), kText);
  EXPECT_EQ(host.messages, std::vector<std::string>{"root is not an array"});
  InstallHost(nullptr);
}

TEST_F(Documents, WithoutAPlaceForTemporaryFilesThereIsNoString) {
  const Ref<plist> document = New<plist>(folder.Put("a", kText), false);
  const Ref<FolderItem> path = document->savePath;
  setenv("TMPDIR", "/no such folder", 1);
  EXPECT_EQ(document->asString(), "");
  EXPECT_THROW(static_cast<void>(New<plist>(std::string("text"))), NilObjectException);
  unsetenv("TMPDIR");
  EXPECT_TRUE(document->savePath == path);
}

TEST_F(Documents, EncryptionRefusesKeysThatTheCipherDoes) {
  const Ref<plist> document = New<plist>(folder.Put("a", kText), false);
  EXPECT_EQ(document->Encrypt("key").size(), 8 + (std::string(kText).size() / 8 + 1) * 8);
  EXPECT_FALSE(document->error);
  EXPECT_EQ(document->Encrypt(""), "");
  EXPECT_EQ(Report(document), "Could not encrypt");
  document->error = false;
  EXPECT_EQ(document->Encrypt(std::string(57, 'k')), "");
  EXPECT_EQ(Report(document), "Could not encrypt");
}

TEST_F(Documents, ANewDocumentOfANodeSharesNothingWithIt) {
  const Ref<plist> document = New<plist>(folder.Put("a", kText), false);
  document->root->child("c")->SetString("x", "y");
  const Ref<plist> copy = document->root->PlistFromPlistDict(document->root);
  EXPECT_EQ(Sketch(*copy->root), R"({k: string "v", c: {x: string "y"}})");
  copy->root->child("c")->SetString("x", "z");
  EXPECT_EQ(document->root->child("c")->GetString("x"), "y");
  EXPECT_TRUE(copy->savePath == nullptr);
  EXPECT_EQ(copy->root->name, "");
}

}  // namespace
}  // namespace morvantile
