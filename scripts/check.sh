#!/usr/bin/env bash
# Style and static checks: formatting, who may include what, clang-tidy, and the documents.
set -uo pipefail
cd "$(dirname "$0")/.."
failed=0
mkdir -p build

git ls-files '*.[ch]' '*.[ch]pp' | xargs clang-format --dry-run -Werror || failed=1

# forbid PATTERN REASON WHERE...: no file under WHERE matches PATTERN.
forbid() {
  if git grep -nP "$1" -- "${@:3}"; then
    echo "check: $2"
    failed=1
  fi
}
# room NAME OTHER...: besides itself the room knows the others, and include/.
rooms='frame|objects|records|boundary|gateway|replay|catalogue|tools|tests|bench|fuzz|generated'
room() {
  forbid "#include [\"<](?!($(IFS='|'; echo "$*"))/)($rooms)/" "$1 may include of the other rooms only: ${*:2}" "$1"
}
around='records boundary gateway replay catalogue generated'
room include
room frame
room objects frame
room records
room boundary records generated
room gateway boundary records generated
room replay boundary records generated
room catalogue records generated
room tools $around
room tests $around tools
room bench $around tools
room fuzz $around tools tests
forbid '#include <(vector|string|map|unordered_map|set|list|deque|memory|functional|iostream|sstream|fstream|thread|mutex|stdexcept)>' \
  'the library needs no C++ runtime' frame objects
forbid '#include "[^"]*\.c(pp)?"' 'a source includes no source' '*.[ch]' '*.[ch]pp'
forbid 'COVR?_EXCL_(LINE|START|STOP)' 'only a branch may be excused from being tested, never a line' frame objects

diff <(cd include/pmapi && ls | grep -vx pmapi.h) <(sed -nE 's@^#include "pmapi/(.*)"@\1@p' include/pmapi/pmapi.h) || {
  echo 'check: pmapi.h includes other headers than there are'
  failed=1
}

# Of the tests it says nothing that they do not show themselves, and they are a third of the sources.
scripts/build.sh sanitize generated_headers >build/configure.log 2>&1 || { cat build/configure.log; exit 1; }
run-clang-tidy -quiet -p build/sanitize "^$PWD/(?!build/|tests/)" >build/tidy.log 2>&1 || {
  grep -vE '^clang-tidy|warnings generated' build/tidy.log
  failed=1
}

# What the documents say that a command prints is what it prints.
scripts/build.sh host pmapi_command >build/host_build.log 2>&1 || { tail build/host_build.log; exit 1; }
scripts/documents.py --check || failed=1
scripts/reference.py --check || failed=1

exit $failed
