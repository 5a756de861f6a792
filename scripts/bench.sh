#!/usr/bin/env bash
# bench.sh: prints the instructions per call of the ARM build, each handler beside its floor. Ends with an
# error when a figure exceeds its limit.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh arm
exec scripts/count-instructions.sh build/arm
