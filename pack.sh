#!/usr/bin/env bash
# Packs what people can take away, the Debian packages and the archive for Windows: ./pack.sh [deb|zip]
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=cmake/house.sh
. cmake/house.sh

# pack WORKFLOW FOLDER
pack() {
    local log=build/pack-$1.log
    say "$1" "building and packing"
    if ! CMAKE_BUILD_PARALLEL_LEVEL=$jobs cmake --workflow --preset "$1" >"$log" 2>&1; then
        tail -n 30 "$log"
        say "$1" "failed, see $log"
        exit 1
    fi
    find "build/$2/packages" -maxdepth 1 -type f
}

case ${1:-} in
'' | zip) install_packages build pack test ;;
deb) install_packages build pack ;;
*) echo "pack.sh: $1: there are only deb and zip" >&2 && exit 2 ;;
esac
[ "${1:-deb}" != deb ] || pack deb demo
[ "${1:-zip}" != zip ] || pack zip mingw-programs
