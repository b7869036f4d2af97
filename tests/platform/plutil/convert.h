// Conversions in memory, for tests.

#ifndef MORVANTILE_TESTS_PLATFORM_PLUTIL_CONVERT_H
#define MORVANTILE_TESTS_PLATFORM_PLUTIL_CONVERT_H

#include <optional>
#include <string>
#include <string_view>

#include "platform/plutil/conversion.h"

namespace morvantile::plutil {

// The outcome of a conversion: the result, or "failed: " and what is wrong.
inline std::string Converted(std::string content, Form form) {
  std::string result;
  const auto problem = Convert(content, form, [&](std::string_view bytes) { result += bytes; });
  return problem ? "failed: " + *problem : result;
}

inline std::string ToXml(std::string content) { return Converted(std::move(content), Form::kXml); }
inline std::string ToBinary(std::string content) {
  return Converted(std::move(content), Form::kBinary);
}

inline bool Failed(std::string_view result) { return result.starts_with("failed: "); }

// `elements` as they stand in an XML property list that the converter wrote.
inline std::string XmlFile(std::string_view elements) {
  std::string file =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
      "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
      "<plist version=\"1.0\">\n";
  return file.append(elements).append("</plist>\n");
}

// The XML property list `xml`, which may lack the <plist> around it, after a way through the binary
// form.
inline std::string ThroughBinary(std::string xml) { return ToXml(ToBinary(std::move(xml))); }

}  // namespace morvantile::plutil

#endif  // MORVANTILE_TESTS_PLATFORM_PLUTIL_CONVERT_H
