#!/usr/bin/env bash
# bench-complete.sh BENCH READELF: fails when an exported function is neither called by the program BENCH nor
# excused, with a reason, in bench/unmeasured.txt; and when an excuse is not needed.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
excuses=$root/bench/unmeasured.txt
names() { LC_ALL=C sort -u; }
lacking() { LC_ALL=C comm -23 "$@"; }

exported=$(grep -v '^g_' "${1%/bin/*}/generated/exports.txt" | names)
# What the program needs of others, among it the library's functions that its cases call.
called=$("$2" --wide --dyn-syms "$1" | awk '$7 == "UND" { sub(/@.*/, "", $8); print $8 }' | names)
excused=$(awk '!/^#/ && NF > 1 { print $1 }' "$excuses" | names)

unmeasured=$(lacking <(echo "$exported") <(printf '%s\n' "$called" "$excused" | names))
needed=$(lacking <(echo "$exported") <(echo "$called"))
idle=$(lacking <(awk '!/^#/ { print $1 }' "$excuses" | names) <(echo "$needed"))
[ -z "$unmeasured" ] || echo "in no case of bench/cases, nor excused with a reason in $excuses:" $unmeasured
[ -z "$idle" ] || echo "needlessly excused in $excuses:" $idle
[ -z "$unmeasured$idle" ]
