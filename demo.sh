#!/usr/bin/env bash
# Builds the program vek and draws each slide of the example libraries, the facade and the other objects of the example
# project, the sheets of line types, point styles and flags, and all hatch patterns: ./demo.sh
# If the Windows compiler and Wine are installed, or with ./demo.sh gallery, which installs them, it also builds and
# opens the gallery; without a display it starts a virtual one, operates the gallery there and saves screenshots.
set -eu
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=cmake/house.sh
. cmake/house.sh

vek=build/demo/vek
out=out

# draw_library FILE: a slide library as a sheet, and each of its slides as SVG and as EMF.
draw_library() {
    local library=$1 slide target names
    target="$out/$(basename "$library" .slb)"
    "$vek" draw "$library" -o "$target.svg"
    "$vek" draw "$library" -o "$target.png"
    echo "$target.svg $target.png"
    names=$("$vek" list "$library")
    while read -r slide; do
        target="$out/$(basename "$library" .slb)-${slide,,}"
        "$vek" draw "$library" --slide "$slide" -o "$target.svg"
        "$vek" draw "$library" --slide "$slide" -o "$target.emf"
        echo "$target.svg $target.emf"
    done <<<"$names"
}

# draw_object NAME OPTION...: the facade or another object of the project.
draw_object() {
    local target=$out/$1
    shift
    "$vek" draw examples/facade.json "$@" -o "$target.svg"
    "$vek" draw examples/facade.json "$@" -o "$target.png" --size 1600x1200
    echo "$target.svg $target.png"
}

# A window on the user's display stays open when this script ends.
open_gallery() {
    export WINEPREFIX=$PWD/build/wine
    cmake/wine-run
    setsid cmake/wine-run build/mingw/gallery.exe >build/gallery.log 2>&1 </dev/null &
    say gallery "is open on display $DISPLAY; build/mingw/gallery.exe, by cmake/wine-run"
}

drive_gallery() {
    trap stop_windows EXIT
    start_display
    start_wine
    say gallery "acting on it by pointer and keys"
    act_on_gallery "$out/gallery"
    say gallery "its dialogs at 144 dots an inch"
    set_dpi 144
    act_on_gallery "$out/gallery-144" -- Gallery.test_dialogs
    set_dpi 96
    put_dialogs_together "$out/gallery-144/dialog" "$out/gallery/dialogs.png"
    ls "$out"/gallery/*.png "$out"/gallery-144/*.png
}

# act_on_gallery SHOTS [-- TEST...]
act_on_gallery() {
    local shots=$1
    shift
    if ! LANGUAGES="de en" python3 -B tests/window/gallery_test.py build/mingw/gallery.exe \
        build/mingw/tests/clipboard_save.exe "$shots" cmake/wine-run "$@" >build/gallery.log 2>&1; then
        tail -n 30 build/gallery.log
        exit 1
    fi
}

# put_dialogs_together DIALOG TARGET: some of the dialogs in English, in one picture.
put_dialogs_together() {
    convert -background white -bordercolor white \
        \( "$1-outline-en.png" "$1-material-en.png" -border 12 -gravity center +append \) \
        \( "$1-holes-en.png" "$1-unit-en.png" -border 12 -gravity center +append \) -append +repage "$2"
}

# Counts for programs that start from now on.
set_dpi() {
    cmake/wine-run reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null 2>&1
    wineserver -k || true
}

gallery() {
    mkdir -p build
    say build "gallery, for Windows"
    if ! { cmake --preset mingw && cmake --build build/mingw -j "$jobs" --target gallery_program clipboard_save; } \
        >build/demo-mingw.log 2>&1; then
        tail -n 30 build/demo-mingw.log
        exit 1
    fi
    if [ -n "${DISPLAY:-}" ]; then open_gallery; else drive_gallery; fi
}

case ${1:-} in
'') ;;
gallery) install_packages build test ;;
*) echo "demo.sh: $1: there is only gallery" >&2 && exit 2 ;;
esac
install_packages build
mkdir -p build "$out"
say build "vek, optimised"
if ! { cmake --preset demo && cmake --build build/demo -j "$jobs" --target vek_program; } >build/demo.log 2>&1; then
    tail -n 30 build/demo.log
    exit 1
fi
for library in examples/*.slb; do
    say draw "$library"
    draw_library "$library"
done
say draw examples/facade.json
draw_object facade-elevation --view S
draw_object facade-side --view E
draw_object facade-plan --view P
draw_object facade-section --object section
draw_object facade-corner --view SO --full
draw_object facade-inside --view NW --full
draw_object facade-hidden-lines --view SO --cmode 1
draw_object facade-axes --view NW --ucs --coord
draw_object facade-sheet --kind fsheet
draw_object facade-panel --object "sandwich panel"
draw_object facade-bar --kind bar
draw_object facade-drill --kind drill
draw_object facade-drill-body --object "countersunk hole, body"
draw_object facade-holes --kind hole --act cylinder
draw_object facade-edge --kind extr --view SO
for sheet in examples/sheets/*.json; do
    say draw "$sheet"
    target="$out/$(basename "$sheet" .json)"
    "$vek" draw "$sheet" -o "$target.svg"
    "$vek" draw "$sheet" -o "$target.emf"
    "$vek" draw "$sheet" -o "$target.png"
    echo "$target.svg $target.emf $target.png"
done
say draw "all hatch patterns"
"$vek" hatch -o "$out/patterns.svg"
"$vek" hatch -o "$out/patterns.emf"
"$vek" hatch -o "$out/patterns.png" --size 1200x900
echo "$out/patterns.svg $out/patterns.emf $out/patterns.png"
say pictures "$(find "$out" -name '*.svg' -o -name '*.emf' -o -name '*.png' | wc -l) files in $PWD/$out"
if [ -z "$(missing_packages test)" ]; then
    gallery
else
    say gallery "needs Wine and a compiler for Windows: ./demo.sh gallery installs them"
fi
