#!/usr/bin/env bash
# Prints what the ARM library takes of a gateway. Ends with an error when it is more than it may.
set -euo pipefail
cd "$(dirname "$0")/.."

[ -f build/arm/build.ninja ] || cmake --preset arm
cmake --build --preset arm --target pmapi
exec scripts/budgets.py build/arm
