#!/bin/sh
# Prints the functions and globals that the public headers declare, one a line, sorted.
set -eu
cd "$(dirname "$0")/.."
export LC_ALL=C
cat include/pmapi/*.h |
  sed '/^#/d' | tr '\n' ' ' |
  sed -E 's@/\*([^*]|\*+[^*/])*\*+/@ @g' | tr ';' '\n' |
  sed -nE 's/.*PMAPI_EXPORT +([^([]*[^A-Za-z0-9_])([A-Za-z0-9_]+) *([([].*)?$/\2/p' |
  sort
