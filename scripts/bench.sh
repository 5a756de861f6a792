#!/usr/bin/env bash
# Prints the instructions that the library's calls take on the ARM build, each beside its floor. Ends with
# an error when a figure exceeds its limit.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh arm
exec scripts/count-instructions.sh build/arm
