// Documents and their files, through the converter where they are binary.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/base/shell.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/headless_host.h"
#include "tests/platform/base/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

constexpr const char* kText =
    "<plist>\n<dict>\n\t<key>a</key>\n\t<integer>1</integer>\n</dict>\n</plist>\n";

class Documents : public testing::Test {
 protected:
  // A file in binary form with one entry.
  Ref<FolderItem> PutBinary(const std::string& name) {
    const Ref<FolderItem> file = folder.Put(name, kText);
    Shell shell;
    shell.Execute("plutil -convert binary1 " + file->ShellPath());
    EXPECT_EQ(folder.Content(name).substr(0, 6), "bplist");
    return file;
  }

  ScratchFolder folder;
};

TEST_F(Documents, AMissingFileGivesAnEmptyTreeThatSavesToIt) {
  const Ref<FolderItem> file = folder.Item("new");
  const Ref<plist> document = New<plist>(file, false);
  EXPECT_EQ(Report(document), file->AbsolutePath() + " does not exist");
  document->root->SetString("k", "v");
  document->Save();
  const Ref<plist> back = New<plist>(file, true);
  EXPECT_EQ(Sketch(*back->root), R"({k: string "v"})");
  EXPECT_EQ(back->headers.size(), 5);
  EXPECT_FALSE(back->error);
}

TEST_F(Documents, ATemplateIsReadWhereTheFileIsMissing) {
  const Ref<FolderItem> file = folder.Item("new");
  const Ref<plist> document = New<plist>(file, folder.Put("template", kText));
  EXPECT_EQ(Sketch(*document->root), R"({a: integer "1"})");
  document->root->SetInteger("a", 2);
  document->Save();
  EXPECT_EQ(folder.Content("template"), kText);
  EXPECT_EQ(New<plist>(file, false)->root->GetInteger("a"), 2);
}

TEST_F(Documents, ATemplateInBinaryFormStaysAndMakesABinaryFile) {
  const Ref<FolderItem> source = PutBinary("template");
  const std::string before = folder.Content("template");
  const Ref<plist> document = New<plist>(folder.Item("new"), source);
  EXPECT_EQ(Sketch(*document->root), R"({a: integer "1"})");
  document->Save();
  EXPECT_EQ(folder.Content("template"), before);
  EXPECT_EQ(folder.Content("new").substr(0, 6), "bplist");
}

TEST_F(Documents, WhatIsNoPropertyListKeepsItsLines) {
  for (const std::string text : {"", "text\nmore\n", "<plist>\n <dict>\n</dict>\n"}) {
    const Ref<plist> document = New<plist>(folder.Put("file", text), false);
    EXPECT_EQ(Report(document), "Not a plist file");
    document->root->SetString("k", "v");
    document->Save();
    EXPECT_EQ(folder.Content("file"),
              text + "\t<key>k</key>\n\t<string>v</string>\n</dict>\n</plist>\n");
  }
}

TEST_F(Documents, AFirstLineThatIsTheDictLeavesNoHeaders) {
  const Ref<plist> document =
      New<plist>(folder.Put("file", "<dict>\n<key>a</key>\n<true/>\n"), false);
  EXPECT_EQ(document->headers.size(), 1);
  EXPECT_EQ(Sketch(*document->root), R"({: {a: boolean "true"}})") << "and is read as an entry";
}

TEST_F(Documents, ABinaryFileStaysBinaryWhateverItsName) {
  for (const std::string name :
       {"plain", "with blanks", "quo'te\"s", "$(touch owned)", "`id`", "-n", "new\nline", "Größe",
        "semi;colon&", "*?[a]", "back\\slash"}) {
    const Ref<plist> document = New<plist>(PutBinary(name), false);
    ASSERT_TRUE(document->isBinary) << name;
    ASSERT_EQ(Sketch(*document->root), R"({a: integer "1"})") << name;
    document->root->SetInteger("a", 2);
    document->Save(true, false);
    EXPECT_EQ(folder.Content(name).substr(0, 6), "bplist") << name;
    EXPECT_EQ(New<plist>(folder.Item(name), false)->root->GetInteger("a"), 2) << name;
    EXPECT_FALSE(std::filesystem::exists("owned"));
  }
}

TEST_F(Documents, TheCopyOfABinaryFileGoesWithCleanupAndComesBackWithSave) {
  const Ref<plist> document = New<plist>(PutBinary("file"), false);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"file", "file temp.plist"}));
  document->Save();
  EXPECT_EQ(folder.Content("file temp.plist").substr(0, 6), "bplist");
  document->Cleanup();
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
  document->root->SetInteger("a", 5);
  document->Save(true, false);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
  EXPECT_EQ(New<plist>(folder.Item("file"), false)->root->GetInteger("a"), 5);
}

TEST_F(Documents, ABinaryFileIsNeverLostByAFailedSave) {
  const Ref<plist> document = New<plist>(PutBinary("file"), false);
  const std::string before = folder.Content("file");
  document->Cleanup();
  std::filesystem::create_directory(folder.Path("file temp.plist"));
  document->Save();
  EXPECT_TRUE(document->error);
  EXPECT_EQ(folder.Content("file"), before);
}

TEST_F(Documents, SavingAsBinaryOnceLeavesATextDocument) {
  const Ref<plist> document = New<plist>(folder.Put("file", kText), false);
  document->Save(false, true);
  EXPECT_EQ(folder.Content("file").substr(0, 6), "bplist");
  document->Save();
  EXPECT_EQ(folder.Content("file"), kText);
}

TEST_F(Documents, AFileThatCannotBeOpenedIsReportedAndStays) {
  const Ref<plist> document = New<plist>(folder.Put("file", kText), false);
  std::filesystem::remove(folder.Path("file"));
  std::filesystem::create_directory(folder.Path("file"));
  document->Save();
  EXPECT_EQ(Report(document), "Could not open file for saving");
}

TEST_F(Documents, ADocumentWithoutAFileIsEmptyAndHasHeaders) {
  const Ref<plist> document = New<plist>(nullptr, false);
  EXPECT_EQ(document->headers.size(), 5);
  EXPECT_FALSE(document->error);
  EXPECT_EQ(document->root->name, "");
  EXPECT_TRUE(document->root->rootClass == nullptr);
  EXPECT_THROW(document->Save(), NilObjectException);
}

TEST_F(Documents, AStringLeavesTheDocumentsPathAndNothingElse) {
  const Ref<plist> document = New<plist>(folder.Put("file", kText), false);
  const Ref<FolderItem> path = document->savePath;
  EXPECT_EQ(document->asString(), kText);
  EXPECT_EQ(document->savePath, path);
  EXPECT_EQ(document->Encrypt(""), "");
  EXPECT_TRUE(document->error);
}

TEST_F(Documents, ADumpGoesToTheClipboardWithTheMarksOfTheSearch) {
  HeadlessHost host;
  InstallHost(&host);
  const Ref<plist> document = New<plist>(folder.Put("file", kText), false);
  document->root->AddArray("l");
  document->root->child("l")->AppendString("<");
  document->Dump();
  EXPECT_EQ(host.clipboardText,
            "<plist>\r<dict>\r\t<key>a</key>\r\t<nosearch/>\r\t<integer>1</integer>\r"
            "\t<key>l</key>\r\t<search/>\r\t<array>\r\t\t<string>&lt;</string>\r\t</array>\r"
            "</dict>\r</plist>\r");
  InstallHost(nullptr);
}

}  // namespace
}  // namespace morvantile
