#!/usr/bin/env bash
# Builds and tests every preset that a change must pass, then the style and static checks. A failing preset
# does not hide what the next ones would say; the closing lines of all runs are repeated at the end.
set -uo pipefail
cd "$(dirname "$0")/.."
presets=(host sanitize arm fuzz)
rm -f build/*/ctest.log

failed=()
for preset in "${presets[@]}"; do
  echo "== $preset"
  scripts/build.sh "$preset" || { failed+=("$preset build"); continue; }
  ctest --preset "$preset" --output-log "build/$preset/ctest.log" || failed+=("$preset tests")
done

echo "== checks"
scripts/check.sh || failed+=("checks")

echo
for preset in "${presets[@]}"; do
  [ -f "build/$preset/ctest.log" ] || continue
  echo "$preset:"
  grep -hE 'tests passed|No tests were found|Total Test time' "build/$preset/ctest.log"
  # Under the emulator many tests share a process, which ctest counts as one.
  awk '/^\[  PASSED  \]/ { sum += $4; ++n } END { if (n) print "  of these GoogleTest: " sum " tests in " n " processes" }' \
    "build/$preset/Testing/Temporary/LastTest.log"
done
if [ ${#failed[@]} -gt 0 ]; then
  printf 'FAILED: %s\n' "${failed[@]}"
  exit 1
fi
