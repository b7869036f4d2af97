// What the writer produces is read alike by a program that others wrote.

#include <gtest/gtest.h>

#include <cctype>

#include "platform/process/shell.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "plist/store/entries.h"
#include "tests/platform/files/scratch_folder.h"
#include "tests/plist/drawing.h"
#include "tests/plist/sketch.h"

namespace morvantile {
namespace {

std::string HexOf(const std::string& text) {
  std::string digits;
  for (const char c : text) {
    const std::string pair = Hex(static_cast<unsigned char>(c));
    digits += pair.size() < 2 ? "0" + pair : pair;
  }
  for (char& digit : digits) digit = static_cast<char>(std::tolower(digit));
  return digits;
}

// A node in the notation of second_opinion.py; keys and strings are hexadecimal.
std::string Describe(plistDict& node) {
  std::string text;
  for (std::size_t i = 0; i < node.types.Count(); ++i) {
    const std::string key = node.types.Key(i);
    const std::string type = node.GetType(key);
    if (!node.isArray) text += HexOf(key) + "=";
    if (IsContainer(type)) {
      text += Describe(*node.child(key));
    } else {
      const std::string value = node.values.Value(key);
      text += type + " " + (type == "string" ? HexOf(value) : value);
    }
    text += ";";
  }
  return node.isArray ? "[" + text + "]" : "{" + text + "}";
}

TEST(SecondOpinion, PythonReadsWhatTheWriterWrites) {
  const std::string python = MORVANTILE_PYTHON;
  if (python.empty()) GTEST_SKIP() << "there is no Python to ask";
  const ScratchFolder folder;
  std::string command = python + " " + MORVANTILE_SECOND_OPINION;
  std::vector<std::string> expected;
  for (unsigned seed = 1; seed <= 60; ++seed) {
    const Ref<plist> document = New<plist>(folder.Item(Str(std::int64_t{seed})), false);
    Drawing(seed, Drawing::Alphabet::kXml).Fill(*document->root);
    document->Save();
    expected.push_back(Describe(*document->root));
    command += " " + document->savePath->ShellPath();
  }
  const Ref<FolderItem> answers = folder.Item("answers");
  Shell shell;
  shell.Execute(command + " > " + answers->ShellPath());
  ASSERT_EQ(shell.ErrorCode(), 0) << shell.Result();
  const Ref<TextInputStream> stream = TextInputStream::Open(answers);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(stream->ReadLine(), expected[i]) << "seed " << i + 1;
  }
}

}  // namespace
}  // namespace morvantile
