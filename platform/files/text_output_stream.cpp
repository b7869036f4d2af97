#include "platform/files/text_output_stream.h"

#include <utility>

namespace morvantile {

TextOutputStream::TextOutputStream(std::unique_ptr<FileReplacement> file)
    : file_(std::move(file)) {}

bool TextOutputStream::Close() {
  if (file_ == nullptr) return succeeded_;
  succeeded_ = file_->Commit();
  file_ = nullptr;
  return succeeded_;
}

}  // namespace morvantile
