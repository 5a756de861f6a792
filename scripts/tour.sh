#!/usr/bin/env bash
# Shows what the library does on the virtual gateway.
set -euo pipefail
cd "$(dirname "$0")/.."

echo "built: $(ls build/host/lib build/host/bin 2>/dev/null | xargs)"
