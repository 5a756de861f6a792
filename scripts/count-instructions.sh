#!/usr/bin/env bash
# count-instructions.sh BUILD: runs the bench of the ARM build in BUILD under the emulator that counts.
set -euo pipefail

build=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir -p root/userconfig root/proc/net root/proc/ffe
# Absolute paths are looked up under root first, where the cases put their files.
qemu-arm -L "$work/root" -plugin "$build/lib/instruction_counter.so,count=$work/count" "$build/bin/pmapi_bench" "$work/count"
