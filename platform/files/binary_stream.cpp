#include "platform/files/binary_stream.h"

#include <utility>

#include "platform/files/file_replacement.h"

namespace morvantile {

Ref<BinaryStream> BinaryStream::Create(const Ref<FolderItem>& file, bool overwrite) {
  if (!overwrite && file->Exists()) return nullptr;
  auto replacement = file->BeginReplacement(Links::kFollow);
  if (replacement == nullptr) return nullptr;
  return Ref<BinaryStream>(new BinaryStream(std::move(replacement)));
}

BinaryStream::BinaryStream(std::unique_ptr<FileReplacement> file) : file_(std::move(file)) {}

BinaryStream::~BinaryStream() = default;

void BinaryStream::Write(std::string_view bytes) {
  if (file_ != nullptr) file_->Append(bytes);
}

bool BinaryStream::Close() {
  if (file_ == nullptr) return succeeded_;
  succeeded_ = file_->Commit();
  file_ = nullptr;
  return succeeded_;
}

}  // namespace morvantile
