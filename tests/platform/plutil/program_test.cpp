#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <tuple>

#include "platform/process/shell.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/platform/plutil/convert.h"

namespace morvantile {
namespace {

namespace fs = std::filesystem;

// In a command, $F is a link to the file, one word; only a failure prints something.
TEST(ConverterProgram, ConvertsInPlaceThroughALinkAndElseLeavesTheFile) {
  const std::string xml = plutil::XmlFile("<dict>\n\t<key>a</key>\n\t<true/>\n</dict>\n");
  const std::string large = plutil::XmlFile("<string>" + std::string(50'000, 'x') + "</string>\n");
  const std::string binary = plutil::ToBinary(xml);
  const std::tuple<std::string, const char*, std::string> rows[] = {
      {xml, "plutil -convert binary1 $F", binary},
      {binary, "plutil -convert xml1 -- $F", xml},
      {binary.substr(1), "plutil -convert xml1 $F", ""},
      {large, "trap '' XFSZ; ulimit -f 4; plutil -convert binary1 $F", ""},  // a full disk
      {xml, "plutil", ""},
      {xml, "plutil -convert xml1", ""},
      {xml, "plutil -convert json $F", ""},
      {xml, "plutil -lint $F", ""},
      {xml, "plutil -convert xml1 $F $F", ""},
      {xml, "plutil -convert -- xml1 $F", ""},
      {xml, "plutil -convert xml1 ${F%/*}", ""},  // a folder
      {xml, "plutil -convert xml1 missing", ""},
  };
  for (const auto& [content, command, converted] : rows) {
    const ScratchFolder folder;
    folder.Put("a b", content);
    fs::permissions(folder.Path("a b"), static_cast<fs::perms>(0640));
    fs::create_symlink("a b", folder.Path("link"));
    Shell shell(std::chrono::minutes(1), MORVANTILE_CONVERTER_FOLDER);
    shell.Execute("set -f; IFS=; F=" + folder.Item("link")->ShellPath() + "; " + command);
    EXPECT_EQ(shell.ErrorCode(), converted.empty() ? 1 : 0) << command;
    EXPECT_EQ(shell.Result().empty(), !converted.empty()) << command << "\n" << shell.Result();
    EXPECT_EQ(folder.Content("a b"), converted.empty() ? content : converted) << command;
    EXPECT_EQ(folder.Permissions("a b"), static_cast<fs::perms>(0640)) << command;
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")) && folder.Names().size() == 2) << command;
  }
}

}  // namespace
}  // namespace morvantile
