#!/usr/bin/env bash
# Style and static checks: formatting, who may include what, clang-tidy, and the documents.
set -uo pipefail
cd "$(dirname "$0")/.."
failed=0
mkdir -p build

mapfile -t sources < <(git ls-files '*.c' '*.h' '*.cpp' '*.hpp')
clang-format --dry-run -Werror "${sources[@]}" || failed=1

# forbid WHERE PATTERN REASON: no file under WHERE matches PATTERN.
forbid() {
  if git grep -nE "$2" -- $1; then
    echo "check: $3"
    failed=1
  fi
}
forbid 'frame objects' '#include ["<](gateway|tools|tests|bench|fuzz)/' \
  'the library knows neither the virtual gateway nor who tests it'
forbid 'frame' '#include ["<]objects/' 'the frame does not know its handlers'
forbid 'include' '#include ["<](frame|objects|gateway|tools|tests)/' 'installed headers stand alone'
forbid 'gateway' '#include ["<](frame|objects|tools|tests)/' 'the virtual gateway sees include/ only'
forbid 'tools tests fuzz bench' '#include ["<](frame|objects)/' \
  'what stands in for the daemon sees what the daemon sees'
forbid 'frame objects' '#include <(vector|string|map|unordered_map|set|list|deque|memory|functional|iostream|sstream|fstream|thread|mutex|stdexcept)>' \
  'the library needs no C++ runtime'
forbid 'frame objects gateway include tools' '#include "[^"]*\.c(pp)?"' 'a source includes no source'

# Configured anew each time: clang-tidy must see the sources that there are now.
cmake --preset sanitize >build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
scripts/tidy.py || failed=1

# What the documents say that a command prints is what it prints.
scripts/build.sh host >build/host_build.log 2>&1 || { tail build/host_build.log; exit 1; }
scripts/documents.py --check || failed=1
scripts/reference.py --check || failed=1
scripts/profile_schema.py --check || failed=1

exit $failed
