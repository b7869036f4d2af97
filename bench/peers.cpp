#include "peers.h"

#include <plist/plist.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace peers {
namespace {

using Reader = void (*)(const char*, std::uint32_t, plist_t*);
using Writer = void (*)(plist_t, char**, std::uint32_t*);
using Freer = void (*)(char*);

void* Read(Reader reader, const std::string& text) {
  plist_t node = nullptr;
  reader(text.data(), static_cast<std::uint32_t>(text.size()), &node);
  if (node == nullptr) throw std::runtime_error("libplist refuses the document");
  return node;
}

std::string Write(Writer writer, Freer freer, plist_t node) {
  char* bytes = nullptr;
  std::uint32_t size = 0;
  writer(node, &bytes, &size);
  std::string text(bytes, size);
  freer(bytes);
  return text;
}

}  // namespace

std::unique_ptr<Libplist> Libplist::FromXml(const std::string& text) {
  return std::unique_ptr<Libplist>(new Libplist(Read(plist_from_xml, text)));
}
std::unique_ptr<Libplist> Libplist::FromBinary(const std::string& bytes) {
  return std::unique_ptr<Libplist>(new Libplist(Read(plist_from_bin, bytes)));
}
Libplist::~Libplist() { plist_free(node_); }

std::string Libplist::ToXml() const { return Write(plist_to_xml, plist_to_xml_free, node_); }
std::string Libplist::ToBinary() const { return Write(plist_to_bin, plist_to_bin_free, node_); }

std::unique_ptr<pugi::xml_document> PugixmlFromXml(const std::string& text) {
  auto document = std::make_unique<pugi::xml_document>();
  if (!document->load_buffer(text.data(), text.size())) {
    throw std::runtime_error("pugixml refuses the document");
  }
  return document;
}

std::string PugixmlToXml(const pugi::xml_document& document) {
  std::ostringstream out;
  document.save(out, "\t", pugi::format_default);
  return std::move(out).str();
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(in), {});
  if (!in) throw std::runtime_error("could not read " + path);
  return bytes;
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
  if (!out.flush()) throw std::runtime_error("could not write " + path);
}

}  // namespace peers
