#!/usr/bin/env bash
# Prints the instructions that the library's calls take on the ARM build, each beside its floor.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh arm
qemu-arm build/arm/bin/pmapi_bench "$@"
