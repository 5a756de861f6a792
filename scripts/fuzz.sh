#!/usr/bin/env bash
# fuzz.sh [SECONDS] [TARGET...]: looks for new inputs that break a fuzz target, each for SECONDS (60).
# A crash is kept in fuzz/corpus/TARGET, to be committed with its fix.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-60}
shift || true
scripts/build.sh fuzz
[ $# -gt 0 ] || set -- $(cd build/fuzz/bin && ls | sed -n 's/^fuzz_//p')
for target in "$@"; do
  echo "== $target"
  mkdir -p "fuzz/corpus/$target" "build/fuzz/fuzz/$target"
  "build/fuzz/bin/fuzz_$target" -max_total_time="$seconds" -artifact_prefix="fuzz/corpus/$target/" \
    "build/fuzz/fuzz/$target" "fuzz/corpus/$target"
done
