#include "bench/documents.h"

#include <functional>
#include <map>
#include <random>
#include <stdexcept>

#include "platform/files/text_output_stream.h"
#include "platform/text/text.h"
#include "plist/plist.h"

namespace morvantile {
namespace {

using Random = std::mt19937_64;

// Letters, with a bracket now and then for the escaping.
std::string SomeText(Random& random, std::size_t length) {
  std::string text(length, ' ');
  for (char& letter : text) {
    const std::uint64_t drawn = random() % 256;
    letter = drawn == 0 ? '<' : static_cast<char>('a' + drawn % 26);
  }
  return text;
}

std::string SomeBase64(Random& random, std::size_t length) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text(length, ' ');
  for (char& digit : text) digit = kDigits[random() % 64];
  return text;
}

Ref<Date> SomeDate(Random& random) {
  Ref<Date> date = New<Date>();
  date->SetYear(1970 + static_cast<std::int64_t>(random() % 60));
  date->SetMonth(1 + static_cast<std::int64_t>(random() % 12));
  date->SetDay(1 + static_cast<std::int64_t>(random() % 28));
  date->SetHour(static_cast<std::int64_t>(random() % 24));
  date->SetMinute(static_cast<std::int64_t>(random() % 60));
  date->SetSecond(static_cast<std::int64_t>(random() % 60));
  return date;
}

void FillRecord(plistDict& record, Random& random) {
  record.SetString("Name", SomeText(random, 24));
  record.SetString("Location", SomeText(random, 36));
  record.SetInteger("Track ID", static_cast<double>(random() % 1'000'000));
  record.SetReal("Rating", static_cast<double>(random() % 1'000'000) / 1024);
  record.SetBoolean("Enabled", random() % 2 == 0);
  record.SetDate("Date Added", SomeDate(random));
  record.SetData("Artwork", SomeBase64(random, 48));
  record.AddArray("Tags");
  plistDict& tags = *record.child("Tags");
  for (int i = 0; i < 8; ++i) tags.AppendString(SomeText(random, 8));
}

void Records(plist& document, std::int64_t count) {
  Random random(20'260'101);
  document.root->AddArray("Records");
  plistDict& records = *document.root->child("Records");
  for (std::int64_t i = 0; i < count; ++i) {
    records.AppendDict();
    FillRecord(*records.children.back(), random);
  }
}

void Keys(plist& document, std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) {
    document.root->SetString("Key " + std::to_string(i), "a text");
  }
}

void Numbers(plist& document, std::int64_t count) {
  document.root->AddArray("Numbers");
  plistDict& numbers = *document.root->child("Numbers");
  for (std::int64_t i = 0; i < count; ++i) numbers.AppendInteger(i);
}

void String(plist& document, std::int64_t count) {
  document.root->SetString("Text", std::string(static_cast<std::size_t>(count), 'x'));
}

using Fill = std::function<void(plist&, std::int64_t)>;

const std::map<std::string, Fill> kFilled = {
    {"records", Records}, {"keys", Keys}, {"numbers", Numbers}, {"string", String}};

// A text that the library wouldn't write: `repeated`, with the number in place of "#", and
// `closing` are in it many times.
struct Pieces {
  const char *before, *repeated, *after, *closing;
};

const std::map<std::string, Pieces> kWritten = {
    {"line", {"<dict>\n", "<key>Key #</key><string>a text</string>", "\n</dict>\n", ""}},
    {"levels", {"<dict>\n", "<key>Level</key>\n<dict>\n", "", "</dict>\n"}},
    {"open levels", {"<dict>\n", "<array>\n", "", ""}},
    {"long key", {"<dict>\n<key>", "k", "</key>\n<true/>\n", ""}},
    {"one key", {"<dict>\n", "<key>a</key>\n", "", ""}},
    {"many keys", {"<dict>\n", "<key>#</key>\n", "", ""}},
    {"one scalar", {"<dict>\n", "<key>a</key>\n<string>#</string>\n", "", ""}},
    {"one container", {"<dict>\n", "<key>a</key>\n<dict/>\n", "", ""}},
    {"headers", {"", "<plist>\n", "", ""}},
    {"open value", {"<dict>\n<key>a</key>\n<string>\n", "x\n", "", ""}},
};

void WritePieces(const Pieces& pieces, std::int64_t count, TextOutputStream& out) {
  out.Write(pieces.before);
  for (std::int64_t i = 0; i < count; ++i) out.Write(ReplaceAll(pieces.repeated, "#", Str(i)));
  out.Write(pieces.after);
  for (std::int64_t i = 0; i < count; ++i) out.Write(pieces.closing);
}

void CheckWritten(bool written) {
  if (!written) throw std::runtime_error("could not write the document");
}

}  // namespace

void MakeDocument(const std::string& shape, std::int64_t count, const Ref<FolderItem>& file) {
  if (const auto written = kWritten.find(shape); written != kWritten.end()) {
    const Ref<TextOutputStream> out = file->CreateTextFile();
    CheckWritten(out != nullptr);
    WritePieces(written->second, count, *out);
    CheckWritten(out->Close());
    return;
  }
  const auto filled = kFilled.find(shape);
  if (filled == kFilled.end()) throw std::invalid_argument("no such shape: " + shape);
  if (file->Exists()) file->Delete();
  const Ref<plist> document = New<plist>(file, false);
  document->error = false;
  filled->second(*document, count);
  document->Save();
  CheckWritten(!document->error);
}

}  // namespace morvantile
