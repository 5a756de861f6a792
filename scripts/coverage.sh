#!/usr/bin/env bash
# Runs the tests on the instrumented build and prints the lines and branches that they reach.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/build.sh coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage
scripts/coverage.py "$@"
