// What a fuzzer holds to be true.

#ifndef MORVANTILE_FUZZ_REQUIRE_H
#define MORVANTILE_FUZZ_REQUIRE_H

#include <cstdlib>
#include <iostream>
#include <string_view>

namespace morvantile {

// Ends the program with a message unless `holds`; the fuzzer keeps the input.
inline void Require(bool holds, std::string_view what) {
  if (holds) return;
  std::cerr << "Not so: " << what << std::endl;
  std::abort();
}

// The same for two texts that must be equal.
inline void RequireEqual(std::string_view one, std::string_view other, std::string_view what) {
  if (one == other) return;
  std::cerr << one << "\n--- and\n" << other << '\n';
  Require(false, what);
}

}  // namespace morvantile

#endif  // MORVANTILE_FUZZ_REQUIRE_H
