#!/bin/sh
# What other programs meet, installed from BUILD: the number of headers, what the shared library
# exports, a program that uses every header, built with the flags that others use, and the sample
# that finds the library by CMake. The static library comes from a project that has this one inside
# it: face_test.sh BUILD PROJECT COMPILER
# shellcheck disable=SC2046 # what pkg-config prints is a list of words
set -eu
build=$1 project=$2 compiler=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
fail() { echo "$*"; exit 1; }
quietly() { "$@" >log 2>&1 || { cat log; fail "failed: $*"; }; }
prints() {  # prints TEXT COMMAND...
  expected=$1
  shift
  output=$(PATH=/usr/bin:/bin "$@") || true
  [ "$output" = "$expected" ] || fail "$*: $output"
}
flags() {  # flags FOLDER OPTION...: for the library installed there
  modules=$(dirname "$(find "$1" -name morvantile-plist.pc)")
  shift
  PKG_CONFIG_PATH=$modules pkg-config "$@"
}

outside=$project/tests/packaging/outside
quietly cmake -G Ninja -S "$outside" -B inside -DMORVANTILE_SOURCE="$project" \
  -DCMAKE_CXX_COMPILER="$compiler"
quietly cmake --build inside
prints 'as expected' inside/face "$scratch/inside.plist"
quietly cmake --install inside --prefix static
quietly cmake --install "$build" --prefix shared

headers=shared/include/morvantile
count=$(find $headers -name '*.h' | wc -l)
[ "$count" -le 40 ] || fail "$count headers are installed"
find $headers -name '*.h' | sed "s#^$headers/##" | while read -r header; do
  grep -q "\"$header\"" "$outside"/*.cpp || find $headers -name '*.h' -exec grep -lq "\"$header\"" {} + ||
    fail "no program includes $header"
  printf '#include "%s"\n' "$header" >alone.cpp
  "$compiler" -std=c++20 -fsyntax-only -I$headers alone.cpp || fail "$header needs another header"
done

# Exported are members of classes, and functions, that headers declare.
library=$(dirname "$(find shared -name libmorvantile-plist.so)")
for file in "$library"/libmorvantile-*.so; do
  nm -D --defined-only "$file" | sed 's/.* //' | c++filt | sed -E \
    's/^(typeinfo name|typeinfo|vtable|VTT) for //; s/^morvantile::([A-Za-z0-9_]+).*/\1/' | sort -u
done >exported
grep -q '^plistDict$' exported || fail 'nothing is exported'
while read -r name; do
  grep -qrE "(class|struct) MORVANTILE_API $name\b|MORVANTILE_API .*\b$name\(|extern .* $name;" $headers ||
    fail "exported, and in no header: $name"
done <exported

# Both find the converter where they were installed: the program reads a binary file.
mkdir -p static/bin
try() {  # try COMPILER FLAGS...: builds the program with them, against both libraries
  quietly "$@" $(flags shared --cflags morvantile-plist) -c "$outside/face.cpp" -o face.o
  quietly "$@" face.o -o by-shared $(flags shared --libs morvantile-plist)
  prints 'as expected' env LD_LIBRARY_PATH="$library" ./by-shared "$scratch/shared.plist"
  quietly "$@" face.o -o static/bin/by-static $(flags static --static --libs morvantile-plist)
  prints 'as expected' static/bin/by-static "$scratch/static.plist"
  rm -f "$scratch"/*.plist
}
try "$compiler" -std=c++20 -O1 -fvisibility=hidden -fvisibility-inlines-hidden
try "$compiler" -std=c++20 -O1 -fno-plt
try "$compiler" -std=c++20 -O1 -flto
try "$compiler" -std=c++23 -D_GLIBCXX_ASSERTIONS
if command -v clang++ >/dev/null; then try clang++ -std=c++20 -O1 -fvisibility=hidden; fi

quietly cmake -G Ninja -S "$project/docs/samples/outside" -B sample \
  -DCMAKE_PREFIX_PATH="$scratch/shared" -DCMAKE_CXX_COMPILER="$compiler"
quietly cmake --build sample
for starts in 1 2; do prints $starts sample/count_starts "$scratch/starts.plist"; done

if [ -n "$(find shared -name morvantile-plist-qt.pc)" ]; then
  quietly "$compiler" -fPIC -fvisibility=hidden "$outside/qt_face.cpp" -o qt_face \
    $(flags shared --cflags --libs morvantile-plist-qt)
  prints text env QT_QPA_PLATFORM=offscreen LD_LIBRARY_PATH="$library" ./qt_face
fi
