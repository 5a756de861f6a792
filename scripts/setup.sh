#!/usr/bin/env bash
# Installs what building and testing need on Debian 12. With everything in place it returns at once and
# never touches the network.
set -euo pipefail

packages=(
  g++-i686-linux-gnu g++-arm-linux-gnueabi clang llvm libclang-rt-14-dev qemu-user
  cmake ninja-build make pkg-config python3
  libcjson-dev:i386 libcjson-dev:armel
  libgtest-dev:i386 libgtest-dev:armel libgmock-dev:i386 libgmock-dev:armel
  libcli11-dev nlohmann-json3-dev
  clang-format clang-tidy gcovr abigail-tools doxygen python3-pyelftools python3-jsonschema
)

missing() {
  local installed package
  installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n${db:Status-Status} ${Package}:${Architecture}\n')
  for package in "${packages[@]}"; do
    grep -qxF "installed $package" <<<"$installed" || echo "$package"
  done
}

mapfile -t wanted < <(missing)
[ ${#wanted[@]} -gt 0 ] || exit 0

echo "setup: installing ${wanted[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
"${as_root[@]}" dpkg --add-architecture i386
"${as_root[@]}" dpkg --add-architecture armel
# One archive that is just being updated need not stop the work: installing tells whether anything lacks.
"${as_root[@]}" apt-get update -q -o Acquire::Retries=3 || echo "setup: some package lists are not up to date"
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -q -y --no-install-recommends "${wanted[@]}"
