#!/usr/bin/env bash
# Prints what the ARM library takes of a gateway. Ends with an error when it is more than it may.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh arm
exec scripts/budgets.py build/arm
