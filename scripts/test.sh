#!/usr/bin/env bash
# Builds and tests every preset that a change must pass, then the style and static checks. A failing preset
# does not hide what the next ones would say; the closing lines of all runs are repeated at the end.
set -uo pipefail
cd "$(dirname "$0")/.."

failed=()
for preset in host sanitize arm fuzz; do
  echo "== $preset"
  scripts/build.sh "$preset" || { failed+=("$preset build"); continue; }
  ctest --preset "$preset" --no-tests=ignore 2>&1 | tee "build/$preset/ctest.log"
  [ "${PIPESTATUS[0]}" -eq 0 ] || failed+=("$preset tests")
done

echo "== checks"
scripts/check.sh || failed+=("checks")

echo
for preset in host sanitize arm fuzz; do
  [ -f "build/$preset/ctest.log" ] || continue
  echo "$preset:"
  grep -E 'tests passed|No tests were found|Total Test time' "build/$preset/ctest.log"
  # Under the emulator many tests share a process, which ctest counts as one.
  sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?\.$/\1/p' "build/$preset/Testing/Temporary/LastTest.log" |
    awk '{ sum += $1 } END { if (NR) print "  of these GoogleTest: " sum " tests in " NR " processes" }'
done
if [ ${#failed[@]} -gt 0 ]; then
  printf 'FAILED: %s\n' "${failed[@]}"
  exit 1
fi
