#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "platform/process/shell.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/platform/plutil/convert.h"

namespace morvantile {
namespace {

namespace fs = std::filesystem;

const std::string kXml = plutil::XmlFile("<dict>\n\t<key>a</key>\n\t<true/>\n</dict>\n");

// The status of the command, in which $F is the file, one word; only a failure prints something.
int StatusOf(const std::string& command, const Ref<FolderItem>& file) {
  Shell shell(std::chrono::minutes(1), MORVANTILE_CONVERTER_FOLDER);
  shell.Execute("set -f; IFS=; F=" + file->ShellPath() + "; " + command);
  EXPECT_EQ(shell.ErrorCode() == 0, shell.Result().empty()) << command << "\n" << shell.Result();
  return shell.ErrorCode();
}

TEST(ConverterProgram, ConvertsInPlaceAndThroughALink) {
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Put("a b", kXml);
  fs::permissions(folder.Path("a b"), static_cast<fs::perms>(0640));
  EXPECT_EQ(StatusOf("plutil -convert binary1 $F", file), 0);
  EXPECT_EQ(folder.Content("a b"), plutil::ToBinary(kXml));
  fs::create_symlink("a b", folder.Path("link"));
  EXPECT_EQ(StatusOf("plutil -convert xml1 -- $F", folder.Item("link")), 0);
  EXPECT_EQ(folder.Content("a b"), kXml);
  EXPECT_EQ(folder.Permissions("a b"), static_cast<fs::perms>(0640));
  EXPECT_EQ(folder.Names().size(), 2U);
}

TEST(ConverterProgram, AFailureLeavesTheFile) {
  const std::string large = plutil::XmlFile("<string>" + std::string(50'000, 'x') + "</string>\n");
  const std::vector<std::pair<std::string, const char*>> cases = {
      {plutil::ToBinary(kXml).substr(1), "plutil -convert xml1 $F"},
      {large, "trap '' XFSZ; ulimit -f 4; plutil -convert binary1 $F"},  // a full disk
      {kXml, "plutil"},
      {kXml, "plutil -convert xml1"},
      {kXml, "plutil -convert json $F"},
      {kXml, "plutil -lint $F"},
      {kXml, "plutil -convert xml1 $F $F"},
      {kXml, "plutil -convert -- xml1 $F"},
      {kXml, "plutil -convert xml1 ${F%/*}"},  // a folder
      {kXml, "plutil -convert xml1 missing"},
  };
  for (const auto& [content, command] : cases) {
    const ScratchFolder folder;
    EXPECT_EQ(StatusOf(command, folder.Put("file", content)), 1) << command;
    EXPECT_EQ(folder.Content("file"), content) << command;
    EXPECT_EQ(folder.Names().size(), 1U) << command;
  }
}

}  // namespace
}  // namespace morvantile
