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

int StatusOf(const std::string& command) {
  Shell shell(std::chrono::minutes(1), MORVANTILE_CONVERTER_FOLDER);
  shell.Execute(command);
  EXPECT_EQ(shell.ErrorCode() == 0, shell.Result().empty()) << command << "\n" << shell.Result();
  return shell.ErrorCode();
}

TEST(ConverterProgram, ConvertsInPlaceUnderAnyName) {
  for (const std::string name : {"a", "-convert", "--", "a b", "$(false)", "'\"\n", "\xC3\xA4"}) {
    const ScratchFolder folder;
    folder.Put(name, kXml);
    const std::string path = folder.Item(name)->ShellPath();
    EXPECT_EQ(StatusOf("plutil -convert binary1 " + path), 0);
    EXPECT_EQ(folder.Content(name), plutil::ToBinary(kXml));
    EXPECT_EQ(StatusOf("plutil -convert xml1 -- " + path), 0);
    EXPECT_EQ(folder.Content(name), kXml);
    EXPECT_EQ(folder.Names().size(), 1U);
  }
}

TEST(ConverterProgram, KeepsLinksAndPermissions) {
  const ScratchFolder folder;
  folder.Put("file", kXml);
  fs::permissions(folder.Path("file"), static_cast<fs::perms>(0640));
  fs::create_symlink("file", folder.Path("link"));
  EXPECT_EQ(StatusOf("plutil -convert binary1 " + folder.Item("link")->ShellPath()), 0);
  EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
  EXPECT_EQ(folder.Content("file"), plutil::ToBinary(kXml));
  EXPECT_EQ(folder.Permissions("file"), static_cast<fs::perms>(0640));
}

TEST(ConverterProgram, AFailureLeavesTheFile) {
  const ScratchFolder folder;
  const std::string broken = plutil::ToBinary(kXml).substr(1);
  folder.Put("broken", broken);
  folder.Item("folder")->CreateAsFolder();
  for (const char* name : {"broken", "folder", "missing"}) {
    EXPECT_EQ(StatusOf("plutil -convert xml1 " + folder.Item(name)->ShellPath()), 1) << name;
  }
  EXPECT_EQ(folder.Content("broken"), broken);
  EXPECT_EQ(folder.Names().size(), 2U);
}

TEST(ConverterProgram, AFullDiskLeavesTheFile) {
  const ScratchFolder folder;
  const std::string xml = plutil::XmlFile("<dict>\n\t<key>a</key>\n\t<string>" +
                                          std::string(50'000, 'x') + "</string>\n</dict>\n");
  folder.Put("file", xml);
  const std::string path = folder.Item("file")->ShellPath();
  EXPECT_EQ(StatusOf("trap '' XFSZ; ulimit -f 4; plutil -convert binary1 " + path), 1);
  EXPECT_EQ(folder.Content("file"), xml);
  EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(ConverterProgram, RefusesAnyOtherCommandLine) {
  const ScratchFolder folder;
  folder.Put("file", kXml);
  const std::string path = folder.Item("file")->ShellPath();
  for (const char* arguments : {"", "-convert xml1", R"(-convert json "$F")", R"(-lint "$F")",
                                R"(-convert xml1 "$F" "$F")", R"(-convert -- xml1 "$F")"}) {
    EXPECT_EQ(StatusOf(std::string("F=").append(path).append("; plutil ").append(arguments)), 1)
        << arguments;
  }
  EXPECT_EQ(folder.Content("file"), kXml);
}

}  // namespace
}  // namespace morvantile
