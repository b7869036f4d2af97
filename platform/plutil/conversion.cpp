#include "platform/plutil/conversion.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "platform/plutil/binary_reader.h"
#include "platform/plutil/binary_writer.h"
#include "platform/plutil/document.h"
#include "platform/plutil/xml_reader.h"
#include "platform/plutil/xml_writer.h"

namespace morvantile::plutil {
namespace {

std::uint64_t MostBytesOfXml(std::uint64_t size) {
  constexpr std::uint64_t kAlways = std::uint64_t{64} << 20U;
  constexpr std::uint64_t kForEachByte = 100;
  return kAlways + kForEachByte * size;
}

}  // namespace

std::optional<std::string> Convert(std::string& content, Form form, Output::Sink sink) {
  if (content.size() >= std::numeric_limits<ObjectIndex>::max()) return "a file of 4 GiB or more";
  const std::uint64_t most_bytes = MostBytesOfXml(content.size());
  Document document;
  if (auto problem =
          LooksBinary(content) ? ReadBinary(content, document) : ReadXml(content, document)) {
    return problem;
  }
  Output output(std::move(sink));
  if (auto problem = form == Form::kXml ? WriteXml(document, most_bytes, output)
                                        : WriteBinary(document, output)) {
    return problem;
  }
  output.Flush();
  return std::nullopt;
}

}  // namespace morvantile::plutil
