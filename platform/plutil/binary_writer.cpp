#include "platform/plutil/binary_writer.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "platform/plutil/equal_scalars.h"
#include "platform/plutil/unicode.h"
#include "platform/text/characters.h"

namespace morvantile::plutil {
namespace {

// The power of two that is the width in bytes of `number` as an integer object.
unsigned PowerFor(std::uint64_t number) {
  if (number < 0x100) return 0;
  if (number < 0x10000) return 1;
  return number < 0x1'0000'0000 ? 2 : 3;
}

unsigned WidthOf(std::uint64_t number) {
  return number == 0 ? 1 : (static_cast<unsigned>(std::bit_width(number)) + 7) / 8;
}

class BinaryWriter {
 public:
  BinaryWriter(const Document& document, Output& output) : document_(document), output_(output) {}

  std::optional<std::string> Write();

 private:
  void NumberObjects();
  bool WriteObject(const Object& object);
  void WriteInteger(std::uint64_t number);
  void WriteReal(const Object& object);
  bool WriteText(std::string_view text);
  void WriteUid(std::uint64_t number);
  void WriteContainer(unsigned type, std::size_t parts, const Object& container);
  void WriteMarker(unsigned type, std::size_t size);
  void WriteOffsets();
  void WriteTrailer(std::uint64_t table);

  const Document& document_;
  Output& output_;
  std::vector<ObjectIndex> number_of_;  // In the file, by index in the document.
  std::vector<ObjectIndex> written_;    // The objects in the order of their numbers.
  std::vector<std::uint64_t> offsets_;
  unsigned reference_width_ = 1;
  unsigned offset_width_ = 1;
};

std::optional<std::string> BinaryWriter::Write() {
  NumberObjects();
  output_.Append("bplist00");
  offsets_.reserve(written_.size());
  for (const ObjectIndex index : written_) {
    offsets_.push_back(output_.Size());
    if (!WriteObject(document_.objects[index])) return "a text that is not UTF-8";
  }
  const std::uint64_t table = output_.Size();
  WriteOffsets();
  WriteTrailer(table);
  return std::nullopt;
}

void BinaryWriter::NumberObjects() {
  number_of_ = FirstEquals(document_);
  for (std::size_t i = 0; i < number_of_.size(); ++i) {
    const ObjectIndex first_equal = number_of_[i];
    if (first_equal == i) {
      number_of_[i] = static_cast<ObjectIndex>(written_.size());
      written_.push_back(first_equal);
    } else {
      number_of_[i] = number_of_[first_equal];
    }
  }
  reference_width_ = WidthOf(written_.size() - 1);
}

bool BinaryWriter::WriteObject(const Object& object) {
  switch (object.Is()) {
    case Kind::kFalse:
      output_.Append('\x08');
      break;
    case Kind::kTrue:
      output_.Append('\x09');
      break;
    case Kind::kInteger:
      WriteInteger(object.Bits());
      break;
    case Kind::kUnsigned:
      output_.Append('\x14');
      output_.AppendNumber(0, 8);
      output_.AppendNumber(object.Bits(), 8);
      break;
    case Kind::kReal:
      WriteReal(object);
      break;
    case Kind::kDate:
      output_.Append('\x33');
      output_.AppendNumber(object.Bits(), 8);
      break;
    case Kind::kUid:
      WriteUid(object.Bits());
      break;
    case Kind::kData:
      WriteMarker(0x4, object.Size());
      output_.Append(object.AsBytes());
      break;
    case Kind::kText:
      return WriteText(object.AsBytes());
    case Kind::kArray:
      WriteContainer(0xA, 1, object);
      break;
    case Kind::kDict:
      WriteContainer(0xD, 2, object);
      break;
  }
  return true;
}

// Only integers of 8 bytes have a sign, so a negative one takes all of them.
void BinaryWriter::WriteInteger(std::uint64_t number) {
  const unsigned power = PowerFor(number);
  output_.Append(static_cast<char>(0x10U | power));
  output_.AppendNumber(number, 1U << power);
}

void BinaryWriter::WriteReal(const Object& object) {
  const double value = object.AsReal();
  const bool in_range = std::abs(value) <= std::numeric_limits<float>::max();
  if (in_range && static_cast<float>(value) == value) {
    output_.Append('\x22');
    output_.AppendNumber(std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
  } else {
    output_.Append('\x23');
    output_.AppendNumber(object.Bits(), 8);
  }
}

bool BinaryWriter::WriteText(std::string_view text) {
  if (IsAscii(text)) {
    WriteMarker(0x5, text.size());
    output_.Append(text);
    return true;
  }
  const std::optional<std::string> units = Utf16FromUtf8(text);
  if (!units) return false;
  WriteMarker(0x6, units->size() / 2);
  output_.Append(*units);
  return true;
}

void BinaryWriter::WriteUid(std::uint64_t number) {
  const unsigned width = 1U << PowerFor(number);
  output_.Append(static_cast<char>(0x80U | (width - 1)));
  output_.AppendNumber(number, width);
}

// `parts` is 1 for an array; for a dict it is 2, since all keys come before all values.
void BinaryWriter::WriteContainer(unsigned type, std::size_t parts, const Object& container) {
  const auto references = document_.ReferencesOf(container);
  WriteMarker(type, references.size() / parts);
  for (std::size_t part = 0; part < parts; ++part) {
    for (std::size_t i = part; i < references.size(); i += parts) {
      output_.AppendNumber(number_of_[references[i]], reference_width_);
    }
  }
}

void BinaryWriter::WriteMarker(unsigned type, std::size_t size) {
  constexpr std::size_t kSizeFollows = 0xF;
  const std::size_t nibble = size < kSizeFollows ? size : kSizeFollows;
  output_.Append(static_cast<char>((type << 4U) | nibble));
  if (nibble == kSizeFollows) WriteInteger(size);
}

void BinaryWriter::WriteOffsets() {
  offset_width_ = WidthOf(offsets_.back());
  for (const std::uint64_t offset : offsets_) output_.AppendNumber(offset, offset_width_);
}

void BinaryWriter::WriteTrailer(std::uint64_t table) {
  output_.AppendNumber(0, 6);
  output_.AppendNumber(offset_width_, 1);
  output_.AppendNumber(reference_width_, 1);
  output_.AppendNumber(written_.size(), 8);
  output_.AppendNumber(0, 8);
  output_.AppendNumber(table, 8);
}

}  // namespace

std::optional<std::string> WriteBinary(const Document& document, Output& output) {
  return BinaryWriter(document, output).Write();
}

}  // namespace morvantile::plutil
