#!/usr/bin/env bash
# count-instructions.sh BUILD: runs the bench of the ARM build in BUILD under the emulator that counts.
set -euo pipefail

build=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
qemu-arm -plugin "$build/lib/instruction_counter.so,count=$work/count" "$build/bin/pmapi_bench" "$work/count"
