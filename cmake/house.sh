# shellcheck shell=bash
# Shared by test.sh and demo.sh: installs the packages that a Debian machine lacks, prints one line per step, and
# prepares what a Windows program needs to run.

export LC_ALL=C.UTF-8 # the same messages, order and file names everywhere
# shellcheck disable=SC2034 # for the scripts that read this one
jobs=$(nproc)

say() { printf '%-9s %s\n' "$1" "$2"; }

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# missing_packages KIND...: those packages of the kinds that are not installed.
missing_packages() {
    local kinds=" $* " kind package
    while read -r kind package; do
        [[ $kinds == *" $kind "* ]] || continue
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || echo "$package"
    done <cmake/packages.txt
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        -o Dpkg::Options::=--force-unsafe-io "$@" </dev/null
}

# install_packages KIND...: installs what is missing; package lists are fetched only if the present ones do not suffice.
install_packages() {
    local missing log=build/packages.log
    mkdir -p build
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    say packages "installing ${missing[*]}"
    apt_install "${missing[@]}" >$log 2>&1 && return
    as_root apt-get update >>$log 2>&1 && apt_install "${missing[@]}" >>$log 2>&1 && return
    tail -n 20 $log
    say packages "cannot be installed, see $log"
    return 1
}

# A virtual display, and the id of its process.
start_display() {
    coproc display { exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>build/xvfb.log; }
    # shellcheck disable=SC2154 # coproc sets it
    display_pid=$display_PID
    local number
    if read -r -t 60 -u "${display[0]}" number; then
        export DISPLAY=:$number
    else
        return 1
    fi
}

# Wine runs a server for each prefix; it must neither outlive this run nor keep the display of an earlier one. It stays
# between two programs, since the system's services end with it, and a program that starts just then finds none.
start_wine() {
    export WINEPREFIX=$PWD/build/wine
    [ ! -e build/wine/ready ] || wineserver -k || true # that nothing runs is no failure
    cmake/wine-run
    wineserver -w || true
    wineserver -p </dev/null >/dev/null 2>&1
    cmake/wine-run cmd /c exit </dev/null >/dev/null 2>&1 # starts the services, which keep its output open
}

# shellcheck disable=SC2317 # called by the trap
stop_windows() {
    [ ! -e build/wine/ready ] || wineserver -k || true # that nothing runs is no failure
    [ -z "${display_pid:-}" ] || kill "$display_pid" 2>/dev/null
}
