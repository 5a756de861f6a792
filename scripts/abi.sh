#!/usr/bin/env bash
# The library's ABI as it was last agreed to: symbols, record sizes, offsets, needed libraries.
#   abi.sh check LIBRARY   compares the ARM library with abi/libpmapi.abi
#   abi.sh renew LIBRARY   makes the library's ABI the agreed one; commit it with the reason
#   abi.sh prove LIBRARY   breaks copies of the description and sees each one noticed
set -euo pipefail
cd "$(dirname "$0")/.."
agreed=abi/libpmapi.abi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

abidw --headers-dir include/pmapi --exported-interfaces-only --drop-private-types --drop-undefined-syms \
  --no-corpus-path --no-comp-dir-path --no-show-locs --type-id-style hash --out-file "$work/now.abi" "$2"

# Two descriptions are compared, not description and library: only then is nothing taken for harmless.
compare() { abidiff --harmless --redundant "$1" "$work/now.abi"; }

# notices WHAT SED-EXPRESSION: a description changed like that is told from the library's own.
notices() {
  sed -E "$2" "$work/now.abi" >"$work/broken.abi"
  if cmp -s "$work/now.abi" "$work/broken.abi" || compare "$work/broken.abi" >"$work/difference"; then
    echo "abi: not noticed: $1"; return 1
  fi
  echo "abi: noticed: $1"
}

case $1 in
  check)
    compare $agreed || { echo "abi: the ABI differs from $agreed; if that is meant: make abi-renew"; exit 1; } ;;
  renew)
    cp "$work/now.abi" $agreed ;;
  prove)
    notices "a record of another size" \
      "s/(name='WifiInfoRecord' size-in-bits=)'[0-9]+'/\\1'2336'/"
    notices "a member at another offset" \
      "/class-decl name='UbusIptv'/,/class-decl name=/s/layout-offset-in-bits='32'/layout-offset-in-bits='40'/"
    notices "a member of another type" \
      "s/(var-decl name='timeOffset' type-id=)'[0-9a-f]+'/\\1'95e97e5e'/"
    notices "a missing function" "/elf-symbol name='pm_qc_clear_all'/d"
    notices "a missing global" "/elf-symbol name='g_ubus_devlmt_list'/d" ;;
  *) exit 2 ;;
esac
