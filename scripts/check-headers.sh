#!/bin/sh
# Compiles each public header alone, as C99 and as C++20, and compares the export list with them.
# Usage: check-headers.sh [CC] [CXX]
set -eu
cd "$(dirname "$0")/.."
cc=${1:-i686-linux-gnu-gcc}
cxx=${2:-i686-linux-gnu-g++}
warnings="-Wall -Wextra -Wconversion -Wshadow -Werror"
failed=0

compile() { # NAME COMPILER OPTION...
  name=$1
  shift
  # Twice, so that the include guard is tried too.
  printf '#include "pmapi/%s"\n#include "pmapi/%s"\n' "$name" "$name" |
    "$@" $warnings -Iinclude -fsyntax-only - || {
    echo "check-headers: pmapi/$name does not compile: $*" >&2
    failed=1
  }
}

for header in include/pmapi/*.h; do
  name=${header##*/}
  compile "$name" "$cc" -std=c99 -pedantic -x c
  compile "$name" "$cxx" -std=c++20 -x c++
  [ "$name" = pmapi.h ] || grep -q "^#include \"pmapi/$name\"" include/pmapi/pmapi.h || {
    echo "check-headers: pmapi.h does not include $name" >&2
    failed=1
  }
done

scripts/declared-exports.sh | diff -u cmake/exports.txt - >&2 || {
  echo "check-headers: cmake/exports.txt is not what the headers declare" >&2
  failed=1
}
exit $failed
