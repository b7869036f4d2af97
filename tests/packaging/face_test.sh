#!/bin/sh
# What other programs meet, installed from BUILD: the number of headers, what the shared library
# exports, and a program that uses every header, built with the flags that others use. The static
# library comes from a project that has this one inside it: face_test.sh BUILD PROJECT COMPILER
set -eu
build=$1 project=$2 compiler=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
fail() { echo "$*"; exit 1; }
quietly() { "$@" >log 2>&1 || { cat log; fail "failed: $*"; }; }
runs() {
  output=$(PATH=/usr/bin:/bin "$@") || true
  [ "$output" = 'as expected' ] || fail "$*: $output"
}

outside=$project/tests/packaging/outside
quietly cmake -G Ninja -S "$outside" -B inside -DMORVANTILE_SOURCE="$project" \
  -DCMAKE_CXX_COMPILER="$compiler"
quietly cmake --build inside
runs inside/face "$scratch/inside.plist"
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

try() {  # try COMPILER FLAGS...: builds the program with them, against both libraries
  quietly "$@" -I$headers -c "$outside/face.cpp" -o face.o
  quietly "$@" face.o -o by-shared -L"$library" -lmorvantile-plist
  runs env LD_LIBRARY_PATH="$library" ./by-shared "$scratch/shared.plist"
  PKG_CONFIG_PATH=$(dirname "$(find static -name morvantile-plist.pc)")
  export PKG_CONFIG_PATH
  # shellcheck disable=SC2046 # a list of words
  quietly "$@" face.o -o by-static $(pkg-config --static --libs morvantile-plist)
  mkdir -p static/bin
  mv by-static static/bin/
  runs static/bin/by-static "$scratch/static.plist"
  rm -f "$scratch"/*.plist
}
try "$compiler" -std=c++20 -O1 -fvisibility=hidden -fvisibility-inlines-hidden
try "$compiler" -std=c++20 -O1 -fno-plt
try "$compiler" -std=c++20 -O1 -flto
try "$compiler" -std=c++23 -D_GLIBCXX_ASSERTIONS
if command -v clang++ >/dev/null; then try clang++ -std=c++20 -O1 -fvisibility=hidden; fi

module=$(find shared -name morvantile-plist-qt.pc)
if [ -n "$module" ]; then
  PKG_CONFIG_PATH=$(dirname "$module")
  # shellcheck disable=SC2046 # a list of words
  quietly "$compiler" -fPIC -fvisibility=hidden "$outside/qt_face.cpp" -o qt_face \
    $(pkg-config --cflags --libs morvantile-plist-qt)
  [ "$(QT_QPA_PLATFORM=offscreen LD_LIBRARY_PATH=$library ./qt_face)" = text ] || fail 'Qt'
fi
