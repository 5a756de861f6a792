#!/usr/bin/env bash
# build.sh PRESET...: configures each preset once and builds it.
set -euo pipefail
cd "$(dirname "$0")/.."

for preset in "$@"; do
  [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
  cmake --build --preset "$preset"
done
