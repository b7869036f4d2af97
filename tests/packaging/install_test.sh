#!/bin/sh
# Installs BUILD into a folder of its own, and builds and runs a program outside the project against
# the library there, found by CMake and by pkg-config: install_test.sh BUILD PROJECT COMPILER
set -eu
build=$1 project=$2 compiler=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/installed" >/dev/null
cp -R "$project/docs/samples/outside" "$scratch/program"
cd "$scratch/program"

# The program's file is binary, so it counts only if the library finds the installed converter.
counts() {
  PATH=/usr/bin:/bin "$1" "$scratch/$2.plist" && PATH=/usr/bin:/bin "$1" "$scratch/$2.plist"
}
expect() {
  if [ "$1" = "$2" ]; then return; fi
  echo "$3 gave: $1"
  exit 1
}

cmake -G Ninja -S . -B by-cmake -DCMAKE_PREFIX_PATH="$scratch/installed" \
  -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --build by-cmake >"$scratch/log" || { cat "$scratch/log"; exit 1; }
expect "$(counts by-cmake/count_starts cmake | xargs)" '1 2' 'the program built by CMake'
expect "$(head -c 6 "$scratch/cmake.plist")" bplist 'its file'

module=$(find "$scratch/installed" -name morvantile-plist.pc)
library=$(dirname "$(find "$scratch/installed" -name libmorvantile-plist.so.0)")
export PKG_CONFIG_PATH="${module%/*}" LD_LIBRARY_PATH="$library"
# shellcheck disable=SC2046 # a list of words
"$compiler" count_starts.cpp -o by-pkg-config $(pkg-config --cflags --libs morvantile-plist)
expect "$(counts ./by-pkg-config pkg-config | xargs)" '1 2' 'the program built by pkg-config'

echo "outside programs build against the installed library and find its converter"
