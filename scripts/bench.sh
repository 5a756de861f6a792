#!/usr/bin/env bash
# bench.sh [--renew]: prints the instructions that the library's calls take on the ARM build. Ends with an error
# when a call takes more than it did; --renew keeps the figures as those to compare with.
set -euo pipefail
cd "$(dirname "$0")/.."

[ -f build/arm/build.ninja ] || cmake --preset arm
cmake --build --preset arm --target pmapi_bench
scripts/count-instructions.sh build/arm "$@"
