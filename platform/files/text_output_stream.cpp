#include "platform/files/text_output_stream.h"

#include <utility>

#include "platform/files/file_replacement.h"

namespace morvantile {

TextOutputStream::TextOutputStream(std::unique_ptr<FileReplacement> file)
    : file_(std::move(file)) {}

TextOutputStream::~TextOutputStream() = default;

void TextOutputStream::Write(std::string_view text) {
  if (file_ != nullptr) file_->Append(text);
}

void TextOutputStream::WriteLine(std::string_view text) {
  Write(text);
  Write("\n");
}

bool TextOutputStream::Close() {
  if (file_ == nullptr) return succeeded_;
  succeeded_ = file_->Commit();
  file_ = nullptr;
  return succeeded_;
}

}  // namespace morvantile
