#include "platform/plutil/binary_reader.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "platform/core/huge_pages.h"
#include "platform/plutil/unicode.h"

namespace morvantile::plutil {
namespace {

constexpr std::string_view kMagic = "bplist";
constexpr std::string_view kHeader = "bplist00";
constexpr std::size_t kTrailerSize = 32;

// The number in 1 to 8 bytes, the most significant first. Eight are read: all numbers lie in front
// of the trailer or at most at its end.
std::uint64_t NumberOf(std::string_view bytes) {
  std::uint64_t number = 0;
  std::memcpy(&number, bytes.data(), sizeof number);
  return __builtin_bswap64(number) >> (8 * (sizeof number - bytes.size()));
}

// Whether the last byte may have been added by a program that handled the file as text.
bool EndsInPadding(std::string_view content) {
  constexpr std::string_view kPadding("\0 \t\r\n", 5);
  return !content.empty() && kPadding.find(content.back()) != std::string_view::npos;
}

class BinaryReader {
 public:
  BinaryReader(std::string_view content, Document& document)
      : content_(content), document_(document) {}

  std::optional<std::string> Read();

 private:
  bool ReadTrailer();
  bool ReadObjects();
  bool ReadObject(ObjectIndex number, Object& object);
  bool ReadByMarker(unsigned marker, Object& object);
  bool ReadInteger(unsigned marker, Object& object);
  bool ReadReal(unsigned marker, Object& object);
  bool ReadDate(Object& object);
  bool ReadBytes(unsigned marker, Object& object);
  bool ReadUid(unsigned marker, Object& object);
  bool ReadContainer(unsigned marker, Kind kind, std::size_t parts, Object& object);
  bool ReadSize(unsigned marker, std::size_t unit, std::size_t& size);
  bool ReadReference(ObjectIndex& index);
  bool KeysAreTexts();
  bool IsFreeOfCycles();

  // Takes `size` bytes at the position, or reports that the file ends there.
  bool Take(std::uint64_t size, std::string_view& bytes);
  bool TakeNumber(std::size_t size, std::uint64_t& number);
  bool Fail(std::string problem);

  static constexpr ObjectIndex kUnseen = std::numeric_limits<ObjectIndex>::max();

  std::string_view content_;
  Document& document_;
  std::string problem_;

  std::size_t offset_width_ = 0;
  std::size_t reference_width_ = 0;
  std::uint64_t top_ = 0;
  std::string_view offsets_;
  std::vector<ObjectIndex> index_of_;  // By an object's number in the file.
  std::vector<ObjectIndex> numbers_;   // The other way round.
  std::size_t position_ = 0;
  std::uint64_t bytes_of_objects_ = 0;
};

std::optional<std::string> BinaryReader::Read() {
  if (!content_.starts_with(kHeader)) return "a version of the binary form that is not known";
  bool has_trailer = ReadTrailer();
  for (; !has_trailer && EndsInPadding(content_); has_trailer = ReadTrailer()) {
    content_.remove_suffix(1);
  }
  if (has_trailer && ReadObjects() && KeysAreTexts() && IsFreeOfCycles()) return std::nullopt;
  return problem_;
}

bool BinaryReader::ReadTrailer() {
  if (content_.size() < kHeader.size() + kTrailerSize) return Fail("the file is truncated");
  const std::size_t end = content_.size() - kTrailerSize;
  const std::string_view trailer = content_.substr(end);
  offset_width_ = static_cast<unsigned char>(trailer[6]);
  reference_width_ = static_cast<unsigned char>(trailer[7]);
  const std::uint64_t count = NumberOf(trailer.substr(8, 8));
  top_ = NumberOf(trailer.substr(16, 8));
  const std::uint64_t table = NumberOf(trailer.substr(24, 8));
  if (offset_width_ < 1 || offset_width_ > 8 || reference_width_ < 1 || reference_width_ > 8) {
    return Fail("the trailer names an impossible width");
  }
  if (table < kHeader.size() || table > end || count > (end - table) / offset_width_) {
    return Fail("the table of offsets does not lie in the file");
  }
  if (top_ >= count) return Fail("there is no topmost object");
  offsets_ = content_.substr(table, count * offset_width_);
  content_ = content_.substr(0, end);
  ReserveHugePages(index_of_, count);
  ReserveHugePages(numbers_, count);
  ReserveHugePages(document_.objects, count);
  ReserveHugePages(document_.references, table / reference_width_);
  index_of_.assign(count, kUnseen);
  return true;
}

// Breadth first: the objects that are known by reference, in their order, are the queue.
bool BinaryReader::ReadObjects() {
  numbers_.push_back(static_cast<ObjectIndex>(top_));
  index_of_[top_] = 0;
  while (document_.objects.size() < numbers_.size()) {
    Object object = Object::Boolean(false);
    if (!ReadObject(numbers_[document_.objects.size()], object)) return false;
    document_.objects.push_back(object);
  }
  return true;
}

bool BinaryReader::ReadObject(ObjectIndex number, Object& object) {
  const std::uint64_t offset =
      NumberOf(offsets_.substr(std::size_t{number} * offset_width_, offset_width_));
  if (offset < kHeader.size() || offset >= content_.size()) {
    return Fail("an object does not lie in the file");
  }
  position_ = offset;
  std::uint64_t marker = 0;
  if (!TakeNumber(1, marker)) return false;
  if (!ReadByMarker(static_cast<unsigned>(marker), object)) return false;
  bytes_of_objects_ += position_ - offset;
  return bytes_of_objects_ <= content_.size() || Fail("objects share bytes of the file");
}

bool BinaryReader::ReadByMarker(unsigned marker, Object& object) {
  switch (marker >> 4U) {
    case 0x1:
      return ReadInteger(marker, object);
    case 0x2:
      return ReadReal(marker, object);
    case 0x4:
    case 0x5:
    case 0x6:
      return ReadBytes(marker, object);
    case 0x8:
      return ReadUid(marker, object);
    case 0xA:
    case 0xB:
    case 0xC:
      return ReadContainer(marker, Kind::kArray, 1, object);
    case 0xD:
      return ReadContainer(marker, Kind::kDict, 2, object);
    default:
      break;
  }
  if (marker == 0x33) return ReadDate(object);
  if (marker == 0x00) return Fail("a null, which property lists do not know");
  if (marker != 0x08 && marker != 0x09) return Fail("an object of a type that is not known");
  object = Object::Boolean(marker == 0x09);
  return true;
}

bool BinaryReader::ReadInteger(unsigned marker, Object& object) {
  const unsigned power = marker & 0xFU;
  if (power > 4) return Fail("an integer of more than 16 bytes");
  std::uint64_t high = 0;
  if (power == 4 && !TakeNumber(8, high)) return false;
  std::uint64_t number = 0;
  if (!TakeNumber(power == 4 ? 8 : std::size_t{1} << power, number)) return false;
  const bool top_bit = (number >> 63U) != 0;
  const std::uint64_t sign = top_bit ? std::numeric_limits<std::uint64_t>::max() : 0;
  if (power < 4 || high == sign) {
    object = Object::Number(Kind::kInteger, number);
  } else if (high == 0) {
    object = Object::Number(Kind::kUnsigned, number);
  } else {
    return Fail("an integer of more than 64 bits");
  }
  return true;
}

bool BinaryReader::ReadReal(unsigned marker, Object& object) {
  const unsigned power = marker & 0xFU;
  std::uint64_t bits = 0;
  if (power != 2 && power != 3) return Fail("a real of neither 4 nor 8 bytes");
  if (!TakeNumber(std::size_t{1} << power, bits)) return false;
  object = power == 3
               ? Object::Number(Kind::kReal, bits)
               : Object::Real(Kind::kReal, std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
  return true;
}

bool BinaryReader::ReadDate(Object& object) {
  std::uint64_t bits = 0;
  if (!TakeNumber(8, bits)) return false;
  if (!std::isfinite(std::bit_cast<double>(bits))) return Fail("a date that is no time");
  object = Object::Number(Kind::kDate, bits);
  return true;
}

bool BinaryReader::ReadBytes(unsigned marker, Object& object) {
  constexpr unsigned kData = 0x4;
  constexpr unsigned kAscii = 0x5;
  const unsigned type = marker >> 4U;
  const std::size_t unit = type == kData || type == kAscii ? 1 : 2;
  std::size_t size = 0;
  std::string_view bytes;
  if (!ReadSize(marker, unit, size) || !Take(size * unit, bytes)) return false;
  object = Object::Bytes(type == kData ? Kind::kData : Kind::kText, bytes);
  if (type == kData) return true;
  if (type == kAscii) return IsUtf8(bytes) || Fail("an ASCII text that holds other characters");
  const std::optional<std::string> text = Utf8FromUtf16(bytes, std::endian::big);
  if (!text) return Fail("a text that is not sound UTF-16");
  object = Object::Bytes(Kind::kText, document_.Keep(*text));
  return true;
}

bool BinaryReader::ReadUid(unsigned marker, Object& object) {
  std::size_t width = (marker & 0xFU) + 1;
  std::uint64_t number = 0;
  for (; width > 8; --width) {
    if (!TakeNumber(1, number)) return false;
    if (number != 0) return Fail("a UID of more than 64 bits");
  }
  if (!TakeNumber(width, number)) return false;
  object = Object::Number(Kind::kUid, number);
  return true;
}

// `parts` is 1 for an array; for a dict it is 2, since all keys come before all values.
bool BinaryReader::ReadContainer(unsigned marker, Kind kind, std::size_t parts, Object& object) {
  std::size_t size = 0;
  if (!ReadSize(marker, parts * reference_width_, size)) return false;
  const std::size_t first = document_.references.size();
  document_.references.resize(first + parts * size);
  for (std::size_t part = 0; part < parts; ++part) {
    for (std::size_t i = 0; i < size; ++i) {
      if (!ReadReference(document_.references[first + parts * i + part])) return false;
    }
  }
  object = Object::Container(kind, first, parts * size);
  return true;
}

// The number of elements of `unit` bytes each; the file has room for that many.
bool BinaryReader::ReadSize(unsigned marker, std::size_t unit, std::size_t& size) {
  std::uint64_t number = marker & 0xFU;
  if (number == 0xF) {
    std::uint64_t integer = 0;
    if (!TakeNumber(1, integer)) return false;
    if (integer < 0x10 || integer > 0x13) return Fail("a size that is no integer");
    if (!TakeNumber(std::size_t{1} << (integer & 0xFU), number)) return false;
  }
  if (number > (content_.size() - position_) / unit)
    return Fail("an object reaches beyond the file");
  size = number;
  return true;
}

bool BinaryReader::ReadReference(ObjectIndex& index) {
  std::uint64_t number = 0;
  if (!TakeNumber(reference_width_, number)) return false;
  if (number >= index_of_.size()) return Fail("a reference to an object that does not exist");
  if (index_of_[number] == kUnseen) {
    index_of_[number] = static_cast<ObjectIndex>(numbers_.size());
    numbers_.push_back(static_cast<ObjectIndex>(number));
  }
  index = index_of_[number];
  return true;
}

bool BinaryReader::KeysAreTexts() {
  for (const Object& object : document_.objects) {
    if (object.Is() != Kind::kDict) continue;
    const auto references = document_.ReferencesOf(object);
    for (std::size_t i = 0; i < references.size(); i += 2) {
      const bool is_text = document_.objects[references[i]].Is() == Kind::kText;
      if (!is_text) return Fail("a key that is no text");
    }
  }
  return true;
}

// Takes away, again and again, an object that nothing left refers to; a cycle would stay.
bool BinaryReader::IsFreeOfCycles() {
  std::vector<ObjectIndex> referrers(document_.objects.size(), 0);
  for (const ObjectIndex index : document_.references) ++referrers[index];
  std::vector<ObjectIndex> free;
  if (referrers[0] == 0) free.push_back(0);
  std::size_t taken = 0;
  while (!free.empty()) {
    const Object object = document_.objects[free.back()];
    free.pop_back();
    ++taken;
    if (!IsContainer(object.Is())) continue;
    for (const ObjectIndex index : document_.ReferencesOf(object)) {
      if (--referrers[index] == 0) free.push_back(index);
    }
  }
  return taken == document_.objects.size() || Fail("a container that contains itself");
}

bool BinaryReader::Take(std::uint64_t size, std::string_view& bytes) {
  if (size > content_.size() - position_) return Fail("an object reaches beyond the file");
  bytes = content_.substr(position_, size);
  position_ += size;
  return true;
}

bool BinaryReader::TakeNumber(std::size_t size, std::uint64_t& number) {
  std::string_view bytes;
  if (!Take(size, bytes)) return false;
  number = NumberOf(bytes);
  return true;
}

bool BinaryReader::Fail(std::string problem) {
  problem_ = std::move(problem);
  return false;
}

}  // namespace

bool LooksBinary(std::string_view content) { return content.starts_with(kMagic); }

std::optional<std::string> ReadBinary(std::string_view content, Document& document) {
  return BinaryReader(content, document).Read();
}

}  // namespace morvantile::plutil
