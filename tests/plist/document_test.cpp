#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/process/shell.h"
#include "platform/text/text.h"
#include "plist/converter.h"
#include "tests/installed_host.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class Documents : public testing::Test {
 protected:
  [[nodiscard]] Ref<plist> Loaded(const std::string& name) const {
    return New<plist>(folder.Item(name), false);
  }

  // Makes a document in binary form, with the key "k"; returns its content.
  // NOLINTNEXTLINE(modernize-use-nodiscard): often only put
  std::string PutBinary(const std::string& name) const {
    const Ref<plist> document = Loaded(name);
    document->root->SetString("k", "Größe");
    document->Save(false, true);
    return folder.Content(name);
  }

  // The number of header lines, the root's name and entries, and the report.
  static std::string Outcome(const Ref<plist>& document) {
    return std::to_string(document->headers.size() - 1) + " " + document->root->name +
           Sketch(*document->root) + (document->isBinary ? " binary " : " ") + Report(document);
  }

  const std::string text = "<?xml?>|<plist>|<DICT>|\t<key>k</key>|\t<true/>|</dict>|</plist>|";
  ScratchFolder folder;
};

TEST_F(Documents, AreReadBehindTheFirstDictLineAndSavedWithTheLinesBefore) {
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {text, "3 root{k: boolean 'true'} ", text},
      {"<plist>|<dict>", "2 root{} ", "<plist>|<dict>|</dict>|</plist>|"},
      {"<dict>", "0 root{: {}} ", "\t<key></key>|\t<dict/>|</dict>|</plist>|"},
      {"", "0 {} Not a plist file", "</dict>|</plist>|"},
      {"hello|there", "2 {} Not a plist file", "hello|there|</dict>|</plist>|"},
      {"<plist>| <dict>", "2 {} Not a plist file", "<plist>| <dict>|</dict>|</plist>|"},
      {"BPLIST is none|", "0 {} binary Not a plist file", "BPLIST is none|"},
  };
  for (const auto& [content, outcome, saved] : rows) {
    folder.Put("a", Lines(content));
    const Ref<plist> document = Loaded("a");
    EXPECT_EQ(Outcome(document), outcome) << content;
    EXPECT_EQ(document->root->rootClass == document, !document->error) << content;
    document->Save();
    document->Save();
    EXPECT_EQ(OnOneLine(folder.Content("a")), saved) << content;
  }
}

TEST_F(Documents, WithoutAFileBeginEmptyOrWithTheTemplate) {
  const Ref<FolderItem> missing = folder.Item("missing");
  EXPECT_EQ(Outcome(Loaded("missing")), "4 root{} " + missing->AbsolutePath() + " does not exist");
  EXPECT_FALSE(missing->Exists());
  EXPECT_EQ(Outcome(New<plist>(nullptr, nullptr)), "4 {} ");
  EXPECT_THROW(New<plist>(nullptr, false)->Save(), NilObjectException);
  EXPECT_THROW(static_cast<void>(New<plist>(missing, nullptr)), NilObjectException);

  const Ref<plist> document = New<plist>(folder.Item("a"), folder.Put("template", Lines(text)));
  document->Save();
  EXPECT_EQ(OnOneLine(folder.Content("a")), text);
  document->LoadWithOptionalTemplate(document->savePath, missing);
  EXPECT_EQ(Outcome(document), "6 root{k: boolean 'true'} ") << "headers are added to";
  fs::create_directory(folder.Path("d"));
  document->Load(folder.Item("d"), missing);
  EXPECT_EQ(Report(document), folder.Path("d") + " could not be opened");
  document->Save();
  EXPECT_EQ(Report(document), "Could not open file for saving");
}

TEST_F(Documents, ABinaryFileOfAnyNameIsWorkedOnInACopyAndStaysBinary) {
  const std::string name = "-it's `a` $(file)\n\"\xFF";
  const std::string copy = name + " temp.plist";
  PutBinary(name);
  folder.Put(copy, "left over");
  const Ref<plist> document = Loaded(name);
  EXPECT_EQ(Outcome(document), "4 root{k: 'Größe'} binary ");
  document->root->SetString("k", "other");
  document->Save();
  const std::string saved = folder.Content(name);
  EXPECT_EQ(folder.Content(copy), saved);
  document->Save(true, false);
  EXPECT_EQ(folder.Names(), Names{name});
  document->Load(document->org, nullptr);
  EXPECT_EQ(Outcome(document), "8 root{k: 'other'} binary ");
  document->Cleanup();
  fs::create_directory(folder.Path(copy));
  document->root->SetString("k", "lost");
  document->Save(true, false);
  EXPECT_EQ(Report(document), "Could not open file for saving");
  document->Load(folder.Put("text", Lines(text)), nullptr);
  document->Save(true, false);
  EXPECT_EQ(folder.Content(name), saved);
  EXPECT_EQ(folder.Names(), (Names{name, copy, "text"}));
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
  const Ref<plist> document = Loaded("a");
  ASSERT_EQ(document->root->count(), 2);
  document->Save(true, false);
  EXPECT_EQ(folder.Content("a"), before);
}

TEST_F(Documents, MakingATextDocumentBinaryLastsForOneSave) {
  const Ref<plist> document = Loaded("a");
  const std::string before = document->asString();
  document->Save(true, true);
  EXPECT_EQ(folder.Content("a").substr(0, 8), "bplist00") << "and nothing is cleaned up";
  document->Save();
  EXPECT_EQ(folder.Content("a"), before);
}

TEST_F(Documents, ATemplateInBinaryFormIsOnlyRead) {
  const std::string before = PutBinary("template");
  const Ref<plist> document = New<plist>(folder.Item("new"), folder.Item("template"));
  document->root->SetString("mine", "");
  document->Save(true, false);
  EXPECT_EQ(folder.Content("template"), before);
  EXPECT_EQ(folder.Names(), (Names{"new", "template"}));
  EXPECT_EQ(Outcome(Loaded("new")), "4 root{k: 'Größe', mine: ''} binary ");
}

TEST_F(Documents, TheBytesOfADocumentMakeAnother) {
  PutBinary("binary");
  folder.Put("text", Lines(text));
  for (const Ref<plist>& document : {Loaded("text"), Loaded("binary")}) {
    const Ref<FolderItem> path = document->savePath;
    const Ref<plist> copy = document->FromString(document->asString());
    EXPECT_EQ(Outcome(copy), Outcome(document));
    EXPECT_TRUE(document->savePath == path);
    EXPECT_EQ(copy->savePath->Exists(), copy->isBinary);
  }
}

TEST_F(Documents, AStringNeedsATemporaryFileAndShowsTheReportThatIsThere) {
  InstalledHost host;
  const Ref<plist> document = Tree("{k: 'v'} a report");
  EXPECT_EQ(Written(document), "\t<key>k</key>|\t<string>v</string>|");
  document->debug = true;
  EXPECT_FALSE(document->root->CheckArray());
  EXPECT_EQ(host.messages, (Names{"a report", "root is not an array"}));
  setenv("TMPDIR", "/no such folder", 1);
  EXPECT_EQ(document->asString(), "");
  EXPECT_THROW(static_cast<void>(New<plist>(std::string("text"))), NilObjectException);
  unsetenv("TMPDIR");
}

TEST_F(Documents, AreEncryptedSoThatOpensslDecryptsThemWithAKeyThatTheCipherTakes) {
  const std::string key = "k\xFFkkkkkkkkkkkkkk";
  const Ref<plist> document = NewDocument();
  EXPECT_NE(document->Encrypt(key), document->Encrypt(key));
  for (const char* letters : {"", "a", "abc", "a text of more than one block"}) {
    document->root->SetString("k", letters);
    folder.Put("F", document->Encrypt(key));
    Shell shell;
    shell.Execute("cd " + folder.Item("")->ShellPath() +
                  "; tail -c +9 F | openssl enc -d -bf-cbc -provider legacy -provider default"
                  " -K 6bff6b6b6b6b6b6b6b6b6b6b6b6b6b6b"
                  " -iv $(head -c 8 F | od -An -v -tx1 | tr -d ' ') > text");
    EXPECT_EQ(folder.Content("text"), document->asString()) << shell.Result();
  }
  EXPECT_FALSE(document->Encrypt("k").empty() || document->Encrypt(std::string(56, 'k')).empty());
  EXPECT_EQ(document->Encrypt(std::string(57, 'k')) + document->Encrypt(""), "");
  EXPECT_EQ(Report(document), "Could not encrypt");
}

}  // namespace
}  // namespace morvantile
