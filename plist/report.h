// The texts of reports that more than one operation makes.

#ifndef MORVANTILE_PLIST_REPORT_H
#define MORVANTILE_PLIST_REPORT_H

#include <string>
#include <string_view>

namespace morvantile::report {

inline std::string IllegalType(std::string_view key, std::string_view type) {
  return std::string("Illegal Type: ").append(key).append(" is a ").append(type);
}

inline std::string TypeMismatch(std::string_view key, std::string_view type) {
  return std::string("Type Mismatch: ").append(key).append(" is a ").append(type);
}

}  // namespace morvantile::report

#endif  // MORVANTILE_PLIST_REPORT_H
