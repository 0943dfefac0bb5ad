#!/usr/bin/env bash
# Draws every page and dialog as the window shows it, without a screen: light, dark, from right to left,
# in large letters, at scales 1, 1.5 and 2 and on a small screen, below build/pictures/window. With
# --readme also brings the pictures of docs/pictures up to date.
#   tools/pictures.sh [--readme] [BUILD]
set -euo pipefail
cd "$(dirname "$0")/.."
readme=no
if [ "${1:-}" = --readme ]; then
    readme=yes
    shift
fi
build=${1:-build/release}
[ -f "$build/build.ninja" ] || cmake --preset release >/dev/null
cmake --build "$build" --target draw_pictures
screens=$PWD/tests/host_qt
# The same letters on every machine.
export FONTCONFIG_FILE=$PWD/host/picture/fonts.conf

draw() { # folder, scale, screen, which
    mkdir -p "build/pictures/window/$1"
    QT_SCALE_FACTOR=$2 QT_QPA_PLATFORM=offscreen:configfile=$screens/$3.json \
        "$build/bin/draw_pictures" "$PWD/build/pictures/window/$1" "$4" 2>/dev/null
}
draw scale1 1 large_screen everything
draw scale1.5 1.5 large_screen everything
draw scale2 2 large_screen everything
draw small 1 small_screen everything
draw readme 1 large_screen readme
if [ "$readme" = yes ]; then
    for picture in build/pictures/window/readme/readme-*.png; do
        cp "$picture" "docs/pictures/${picture##*/readme-}"
    done
fi
echo "build/pictures/window: $(find build/pictures/window -name '*.png' | wc -l) pictures"
