#!/usr/bin/env bash
# build.sh PRESET [TARGET...]: configures the preset once and builds the targets, or everything.
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
[ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
cmake --build --preset "$preset" ${2:+--target "${@:2}"}
