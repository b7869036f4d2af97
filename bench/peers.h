// The libraries that one would take instead. They stand apart because libplist's header has the
// same name as this project's.

#ifndef MORVANTILE_BENCH_PEERS_H
#define MORVANTILE_BENCH_PEERS_H

#include <memory>
#include <pugixml.hpp>
#include <string>

namespace peers {

// A document of libplist. Reading throws std::runtime_error if libplist refuses the text.
class Libplist {
 public:
  static std::unique_ptr<Libplist> FromXml(const std::string& text);
  static std::unique_ptr<Libplist> FromBinary(const std::string& bytes);
  ~Libplist();
  Libplist(const Libplist&) = delete;
  Libplist& operator=(const Libplist&) = delete;

  [[nodiscard]] std::string ToXml() const;
  [[nodiscard]] std::string ToBinary() const;

 private:
  explicit Libplist(void* node) : node_(node) {}
  void* node_;
};

// The bare DOM of pugixml; throws std::runtime_error if it refuses the text.
std::unique_ptr<pugi::xml_document> PugixmlFromXml(const std::string& text);
std::string PugixmlToXml(const pugi::xml_document& document);

// The bytes of a file; throws std::runtime_error if it can't be read or written.
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& bytes);

}  // namespace peers

#endif  // MORVANTILE_BENCH_PEERS_H
