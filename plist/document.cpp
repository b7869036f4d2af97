#include <cstdint>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/core/number.h"
#include "platform/core/time.h"
#include "platform/files/binary_stream.h"
#include "platform/text/folding.h"
#include "platform/text/text.h"
#include "platform/ui/msg_box.h"
#include "plist/cipher.h"
#include "plist/converter.h"
#include "plist/plist.h"

namespace morvantile {
namespace {

constexpr std::string_view kEndOfHeaders = "<dict>";

// A copy that may be written, whether or not the file may.
bool MakeWritableCopy(const FolderItem& file, const Ref<FolderItem>& copy) {
  using std::filesystem::perm_options;
  using std::filesystem::perms;
  if (copy->Exists()) copy->Delete();
  if (!file.CopyFileTo(copy)) return false;
  std::error_code ignored;
  std::filesystem::permissions(copy->AbsolutePath(), perms::owner_write, perm_options::add,
                               ignored);
  return true;
}

}  // namespace

plist::plist(const Ref<FolderItem>& file, bool) { plist::LoadWithOptionalTemplate(file, file); }

plist::plist(const Ref<FolderItem>& file, const Ref<FolderItem>& template_file) {
  plist::Load(file, template_file);
}

plist::plist(std::string_view text) {
  const Ref<FolderItem> item = GetTemporaryFolderItem();
  if (const Ref<BinaryStream> stream = BinaryStream::Create(item, true)) {
    stream->Write(text);
    static_cast<void>(stream->Close());  // if it failed, Load says that there is no file
  }
  plist::Load(item, item);
  item->Delete();
}

void plist::LoadWithOptionalTemplate(const Ref<FolderItem>& file,
                                     const Ref<FolderItem>& template_file) {
  Load(file, template_file);
}

void plist::Load(const Ref<FolderItem>& file, const Ref<FolderItem>& template_file) {
  // Copies, since the arguments may be `savePath` or `org`.
  LoadFrom(Ref<FolderItem>(file), Ref<FolderItem>(template_file));
}

void plist::LoadFrom(const Ref<FolderItem>& file, const Ref<FolderItem>& template_file) {
  root = New<plistDict>();
  savePath = file;
  org = nullptr;
  may_lose_ = false;
  if (!file) {
    MakeHeaders();
    return;
  }
  const bool exists = file->Exists();
  const Ref<FolderItem> source = exists ? file : template_file;
  if (!source->Exists()) {
    MakeEmpty(source->AbsolutePath() + " does not exist");
    return;
  }
  Ref<TextInputStream> stream = TextInputStream::Open(source);
  if (!stream) {
    may_lose_ = exists;
    MakeEmpty(source->AbsolutePath() + " could not be opened");
    return;
  }
  std::string line = stream->ReadLine();
  const bool first_line_failed = stream->ReadError();
  stream->Close();
  const bool is_binary = SameText(Left(line, 6), "bplist");
  stream = is_binary ? OpenConverted(file, source) : TextInputStream::Open(source);
  if (!stream) {
    may_lose_ = true;
    Report("Not a plist file");
    return;
  }
  ReadHeaders(*stream, std::move(line));
  const bool has_failed = first_line_failed || stream->ReadError();
  may_lose_ = has_failed || (is_binary && !root->rootClass);
  if (has_failed) Report(source->AbsolutePath() + " could not be read to its end");
  stream->Close();
}

// Makes the copy of a binary file that the document works on, as XML, and opens it; nil if it could
// not be converted.
Ref<TextInputStream> plist::OpenConverted(const Ref<FolderItem>& file,
                                          const Ref<FolderItem>& source) {
  isBinary = true;
  org = file;
  const std::string name = file->Name() + " temp.plist";
  savePath = file->Parent()->Child(name);
  bool is_copied = MakeWritableCopy(*source, savePath);
  const Ref<FolderItem> temporary = is_copied ? nullptr : GetTemporaryFolderItem();
  if (temporary) {
    savePath = temporary->Parent()->Child(name);
    is_copied = MakeWritableCopy(*source, savePath);
  }
  return is_copied && Convert("xml1", *savePath) ? TextInputStream::Open(savePath) : nullptr;
}

// Reads the lines up to the one that begins the tree, and then the tree. `line` is the line in
// hand, which the stream may return once more.
void plist::ReadHeaders(TextInputStream& stream, std::string line) {
  std::int64_t last_tick = 0;
  while (!stream.AtEOF() && !SameText(line, kEndOfHeaders)) {
    YieldProcessorTIme(300, 10, last_tick);
    line = stream.ReadLine();
    headers.push_back(line);
  }
  if (SameText(line, kEndOfHeaders)) {
    root->Load(&stream, "root", false, nullptr, this, true);
  } else {
    Report("Not a plist file");
  }
}

void plist::MakeEmpty(const std::string& report) {
  Report(report);
  MakeHeaders();
  root->Load(nullptr, "root", false, nullptr, this, false);
}

void plist::MakeHeaders() {
  headers.insert(headers.end(), {R"(<?xml version="1.0" encoding="UTF-8"?>)",
                                 R"(<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" )"
                                 R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)",
                                 R"(<plist version="1.0">)", std::string(kEndOfHeaders)});
}

void plist::Save() { Save(false, false); }

void plist::Save(bool cleanup, bool make_binary) {
  const bool is_saved = WriteText() && (!(isBinary || make_binary) || ConvertToBinary());
  // Until a binary file has been put back, the copy is all that there is of its changes.
  if (cleanup && is_saved) Cleanup();
}

bool plist::WriteText() {
  const Ref<TextOutputStream> stream = savePath->CreateTextFile();
  if (!stream) {
    Report("Could not open file for saving");
    return false;
  }
  if (may_lose_) {
    Report("Could not save file");
    return false;
  }
  for (std::size_t i = 1; i < headers.size(); ++i) stream->WriteLine(headers[i]);
  root->Write(*stream, 1);
  stream->WriteLine("</dict>");
  stream->WriteLine("</plist>");
  if (!stream->Close()) {
    Report("Could not save file");
    return false;
  }
  return true;
}

// Turns what has been written into the binary form and puts it over the file that was read.
// CopyContentTo replaces that file whole, so that it is never missing. Where the converter fails it
// is the text that goes back, written again in case that it has been damaged.
bool plist::ConvertToBinary() {
  if (!Convert("binary1", *savePath) && !WriteText()) return false;
  if (!org || savePath->CopyContentTo(org)) return true;
  Report("Could not save file");
  return false;
}

void plist::Cleanup() {
  if (isBinary && org) savePath->Delete();
}

void plist::Report(const std::string& message) {
  error = true;
  errorMessage = message;
}

std::string plist::asString() {
  const Ref<FolderItem> item = GetTemporaryFolderItem();
  if (!item) return "";
  const Ref<FolderItem> kept = std::exchange(savePath, item);
  Save();
  if (error) MsgBox(errorMessage);
  std::string text;
  if (const Ref<TextInputStream> stream = TextInputStream::Open(item)) {
    text = stream->ReadAll();
    stream->Close();
  }
  savePath = kept;
  item->Delete();
  return text;
}

Ref<plist> plist::FromString(std::string_view text) const { return New<plist>(text); }

std::string plist::Encrypt(std::string_view key) {
  const std::string kept_key(key);
  std::optional<std::string> encrypted = EncryptBlowfish(kept_key, asString());
  if (!encrypted) {
    Report("Could not encrypt");
    return "";
  }
  return std::move(*encrypted);
}

// Sleeps `delay_ms` milliseconds, at most once every `interval_ms`.
void plist::YieldProcessorTIme(std::int64_t interval_ms, std::int64_t delay_ms,
                               std::int64_t& last_tick) {
  if (Microseconds() <= static_cast<double>(last_tick + interval_ms * 1000)) return;
  Delay(static_cast<double>(delay_ms) / 1000.0);
  last_tick = Truncate(Microseconds());
}

}  // namespace morvantile
