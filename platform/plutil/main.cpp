// plutil -convert xml1|binary1 [--] FILE
//
// Converts the property list FILE between the binary form and XML, in place: the new content is
// written beside it and takes its name, as platform/files/file_replacement.h says. The status is 0
// on success. On any failure, a wrong command line included, it is 1, a message is on standard
// error, and FILE is as it was.

#include <cstdio>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/ref.h"
#include "platform/files/file_replacement.h"
#include "platform/files/folder_item.h"
#include "platform/files/text_input_stream.h"
#include "platform/plutil/conversion.h"

namespace morvantile::plutil {
namespace {

struct Command {
  Form form;
  std::string file;
};

std::optional<Command> ParseCommandLine(std::vector<std::string_view> arguments) {
  if (arguments.size() == 4 && arguments[2] == "--") arguments.erase(arguments.begin() + 2);
  if (arguments.size() != 3 || arguments[0] != "-convert") return std::nullopt;
  if (arguments[1] == "xml1") return Command{Form::kXml, std::string(arguments[2])};
  if (arguments[1] == "binary1") return Command{Form::kBinary, std::string(arguments[2])};
  return std::nullopt;
}

std::optional<std::string> ConvertFile(const Command& command) {
  const Ref<FolderItem> file = New<FolderItem>(command.file);
  const Ref<TextInputStream> input = TextInputStream::Open(file);
  if (input == nullptr) return "the file cannot be read";
  std::string content = input->ReadAll();
  if (input->ReadError()) return "the file cannot be read to its end";

  const auto replacement = FileReplacement::Begin(file->AbsolutePath(), Links::kFollow,
                                                  FileReplacement::Durability::kSynced);
  if (replacement == nullptr) return "the file cannot be written";
  const auto append = [&](std::string_view bytes) { replacement->Append(bytes); };
  if (auto problem = Convert(content, command.form, append)) return problem;
  if (!replacement->Commit()) return "the result cannot be written";
  return std::nullopt;
}

int Run(std::vector<std::string_view> arguments) {
  const std::optional<Command> command = ParseCommandLine(std::move(arguments));
  if (!command) {
    std::fputs("usage: plutil -convert xml1|binary1 [--] FILE\n", stderr);
    return 1;
  }
  if (const auto problem = ConvertFile(*command)) {
    std::fprintf(stderr, "plutil: %s: %s\n", command->file.c_str(), problem->c_str());
    return 1;
  }
  return 0;
}

}  // namespace
}  // namespace morvantile::plutil

int main(int argc, char** argv) {
  try {
    const std::span<char*> arguments(argv + 1, argv + argc);
    return morvantile::plutil::Run({arguments.begin(), arguments.end()});
  } catch (const std::bad_alloc&) {
    std::fputs("plutil: not enough memory\n", stderr);
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "plutil: %s\n", exception.what());
  }
  return 1;
}
