#!/usr/bin/env bash
# count-instructions.sh BUILD [--renew]: runs the bench of the ARM build in BUILD under the emulator that counts.
set -euo pipefail

measured=$(cd "$(dirname "$0")/.." && pwd)/bench/measured.txt
build=$(cd "$1" && pwd)
shift
count=$(mktemp)
trap 'rm -f "$count"' EXIT
# Symbols are bound before anything is counted.
qemu-arm -E LD_BIND_NOW=1 -plugin "$build/lib/instruction_counter.so,count=$count" \
  "$build/bin/pmapi_bench" "$count" "$measured" "$@"
