// What the writer produces, read by a program that nobody here wrote: Python's plistlib.

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/base/date.h"
#include "platform/base/shell.h"
#include "tests/platform/base/scratch_folder.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

constexpr const char* kPython = "/usr/bin/python3";

// Adds an entry of a random type to a dict or an array.
void AddEntry(plistDict& node, const std::string& key, std::mt19937& random) {
  const std::vector<std::string> texts = {"", "text", "a<b>c", "Größe 😀", " blanks ", "\"'"};
  const std::string text = texts[random() % texts.size()];
  const auto number = static_cast<std::int64_t>(random() % 1000000) - 500000;
  const double real = static_cast<double>(number) / 7;
  const auto date = New<Date>(2000 + number % 100, 3, 7, 8, 5, 9);
  const bool array = node.isArray;
  switch (random() % 8) {
    case 0:
      return array ? node.AppendString(text) : node.SetString(key, text);
    case 1:
      return array ? node.AppendInteger(number) : node.SetInteger(key, static_cast<double>(number));
    case 2:
      return array ? node.AppendReal(real) : node.SetReal(key, real);
    case 3:
      return array ? node.AppendBoolean(true) : node.SetBoolean(key, false);
    case 4:
      return array ? node.AppendData("QUJD") : node.SetData(key, "REVG");
    case 5:
      return array ? node.AppendDate(date) : node.SetDate(key, date);
    case 6:
      return array ? node.AppendDict() : node.AddChild(key);
    default:
      return array ? node.AppendArray() : static_cast<void>(node.AddArray(key));
  }
}

void Grow(plistDict& node, std::mt19937& random, int depth) {
  const auto entries = static_cast<int>(random() % 9);
  for (int i = 0; i < entries; ++i) AddEntry(node, "key " + std::to_string(i), random);
  for (std::size_t i = 1; depth > 0 && i < node.children.size(); ++i) {
    Grow(*node.children[i], random, depth - 1);
  }
}

// Reads the file with plistlib and writes what that understood over it, in binary form.
int ThroughPlistlib(const FolderItem& file) {
  Shell shell;
  shell.Execute(std::string("F=").append(file.ShellPath()).append("; ").append(kPython) +
                " -c 'import plistlib, sys; p = sys.argv[1]; d = plistlib.load(open(p, \"rb\")); "
                "plistlib.dump(d, open(p, \"wb\"), fmt=plistlib.FMT_BINARY, sort_keys=False)' "
                "\"$F\"");
  return shell.ErrorCode();
}

TEST(SecondOpinion, PlistlibReadsWhatTheWriterWroteAndTheLibraryWhatPlistlibDid) {
  if (!std::filesystem::exists(kPython)) GTEST_SKIP() << kPython << " is not installed";
  std::mt19937 random(20090307);
  const ScratchFolder folder;
  const Ref<FolderItem> file = folder.Item("file");
  for (int round = 0; round < 25; ++round) {
    std::filesystem::remove(folder.Path("file"));
    const Ref<plist> document = New<plist>(file, false);
    Grow(*document->root, random, 4);
    const std::string before = Sketch(*document->root);
    document->Save();
    ASSERT_EQ(ThroughPlistlib(*file), 0) << before;
    ASSERT_EQ(Sketch(*New<plist>(file, false)->root), before) << "round " << round;
  }
}

}  // namespace
}  // namespace morvantile
