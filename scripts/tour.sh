#!/usr/bin/env bash
# Shows what the library does on the virtual gateway: who the gateway is, an item of the daemon's
# own configuration in a real file, the mesh.
set -euo pipefail
cd "$(dirname "$0")/.."

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
store=$root/userconfig/nexumd_cfgfile
mkdir -p "${store%/*}"
printf 'reportInterval=10\nsampleInterval=5\n' >"$store"

say() { printf '\n# %s\n' "$1"; }

# Prints a command as its user would type it, then runs it on the tour's directory.
show() {
  local argument line='$ pmapi'
  for argument in "$@"; do
    case $argument in
      *[!A-Za-z0-9_=./@-]*) line+=" '$argument'" ;;
      *) line+=" $argument" ;;
    esac
  done
  printf '%s\n' "$line"
  build/host/bin/pmapi --root "$root" "$@" 2>&1
}

show_store() {
  printf '$ cat nexumd_cfgfile\n'
  cat "$store"
}

say "Who this gateway is"
show --log-level 0 --table call basicinfo get

say "A configuration item, replaced, read back and deleted in a real file"
show_store
show call config add '{"item":"reportInterval","value":"30"}'
show_store
show call config get '{"item":"reportInterval"}'
show call config delete '{"item":"reportInterval"}'
show_store

say "The mesh, as one of three devices"
show --gateway examples/mesh_of_three.json --log-level 0 --table call meshinfo get

say "The same with the multi-AP daemon down: the answer stays, the trail tells"
show --gateway examples/mesh_of_three.json --fail mapd_interface_ctrl_open call meshinfo get
