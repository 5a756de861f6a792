#!/usr/bin/env bash
# Style and static checks.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files '*.c' '*.h' '*.cpp' '*.hpp')
if [ ${#sources[@]} -gt 0 ]; then
  clang-format --dry-run -Werror "${sources[@]}"
fi
