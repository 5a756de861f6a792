#!/bin/sh
# Compiles each installed header alone, the C ones as C99 and as C++20, and compares the export list with
# what the public ones declare.
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
  printf '#include "%s"\n#include "%s"\n' "$name" "$name" |
    "$@" $warnings -Iinclude -fsyntax-only - || {
    echo "check-headers: $name does not compile: $*" >&2
    failed=1
  }
}

for name in $(cd include && find pmapi platform -name '*.h' -o -name '*.hpp' | sort); do
  compile "$name" "$cxx" -std=c++20 -x c++
  case $name in
    *.h) compile "$name" "$cc" -std=c99 -pedantic -x c ;;
  esac
done

for header in include/pmapi/*.h; do
  name=${header#include/}
  [ "$name" = pmapi/pmapi.h ] || grep -q "^#include \"$name\"" include/pmapi/pmapi.h || {
    echo "check-headers: pmapi.h does not include $name" >&2
    failed=1
  }
done

scripts/declared-exports.sh | diff -u cmake/exports.txt - >&2 || {
  echo "check-headers: cmake/exports.txt is not what the headers declare" >&2
  failed=1
}
exit $failed
