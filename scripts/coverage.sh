#!/usr/bin/env bash
# Runs the tests on the instrumented build and prints the library's lines and branches that they reach. All of
# them must be; a branch that no test can take is marked in its source, with the reason: GCOVR_EXCL_BR_LINE.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage

measured=build/coverage/measured.json
gcovr --gcov-executable i686-linux-gnu-gcov --filter frame/ --filter objects/ --exclude-throw-branches \
  --json "$measured" build/coverage/frame build/coverage/objects
gcovr --add-tracefile "$measured" --branches
gcovr --add-tracefile "$measured" --print-summary --fail-under-line 100 --fail-under-branch 100
