#!/usr/bin/env bash
# install_test.sh BUILD-DIRECTORY TOOLCHAIN-FILE C-COMPILER [FLAG...]
# Installs a build and uses what was installed: through CMake, through pkg-config, and the command.
set -euo pipefail

build=$1 toolchain=$2
shift 2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null
export LD_LIBRARY_PATH=$prefix/lib:$prefix/lib/pmapi

cmake -G Ninja -S "$here" -B "$scratch/daemon" --toolchain "$toolchain" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$scratch/daemon" >/dev/null
"$scratch/daemon/daemon"
echo "install: a daemon found by CMake runs"

export PKG_CONFIG_LIBDIR=$prefix/lib/pkgconfig
# shellcheck disable=SC2046
"$@" -o "$scratch/plain" $(pkg-config --cflags pmapi) "$here/daemon.c" $(pkg-config --libs pmapi) \
  -Wl,--allow-shlib-undefined,-rpath-link,"$prefix/lib/pmapi"
"$scratch/plain"
echo "install: a daemon found by pkg-config runs"

unset LD_LIBRARY_PATH
"$prefix/bin/pmapi" call helpers GetUpTime >/dev/null
echo "install: the command finds its libraries"
