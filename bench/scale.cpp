// How the cost of a document grows with its size.
//
//   bench_scale make SHAPE COUNT FILE   writes a document: see documents.h
//   bench_scale FILE [unsaved]          loads, searches, saves (but for unsaved), copies and
//                                       releases it, and prints the milliseconds of each and the
//                                       peak memory of the process after loading and at the end, in
//                                       MB

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>

#include "bench/documents.h"
#include "plist/plist.h"

namespace morvantile {
namespace {

double Milliseconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
      .count();
}

double PeakMegabytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) * 1024 / 1e6;
}

void Print(const char* name, double value) { std::printf("%s %.1f\n", name, value); }

void Measure(const Ref<FolderItem>& file, bool saves) {
  Ref<plist> document;
  Print("load", Milliseconds([&] { document = New<plist>(file, false); }));
  Print("peak", PeakMegabytes());
  if (document->error) throw std::runtime_error(document->errorMessage);
  Print("search", Milliseconds([&] { document->Find("no such text"); }));
  if (saves) {
    document->savePath = file->Parent()->Child(file->Name() + " saved");
    Print("save", Milliseconds([&] { document->Save(); }));
    document->savePath->Delete();
  }
  Ref<plist> copy;
  Print("copy", Milliseconds([&] { copy = document->root->PlistFromPlistDict(document->root); }));
  copy = nullptr;
  Print("release", Milliseconds([&] { document = nullptr; }));
  Print("peak_of_all", PeakMegabytes());
}

int Main(int argc, char** argv) {
  if (argc == 5 && std::string(argv[1]) == "make") {
    MakeDocument(argv[2], std::stoll(argv[3]), New<FolderItem>(argv[4]));
    return 0;
  }
  const bool saves = argc == 2;
  if (saves || (argc == 3 && std::string(argv[2]) == "unsaved")) {
    Measure(New<FolderItem>(argv[1]), saves);
    return 0;
  }
  std::fprintf(stderr, "usage: bench_scale make SHAPE COUNT FILE | bench_scale FILE [unsaved]\n");
  return 2;
}

}  // namespace
}  // namespace morvantile

int main(int argc, char** argv) {
  try {
    return morvantile::Main(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_scale: %s\n", error.what());
    return 1;
  }
}
