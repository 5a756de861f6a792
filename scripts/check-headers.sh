#!/bin/sh
# Compares the export list and pmapi.h, which includes all others, with what the public headers declare.
set -eu
cd "$(dirname "$0")/.."
failed=0

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
