#!/usr/bin/env bash
# Builds kvprefs and opens the printing preferences. Without a display it shows the same work on files:
# every page as a picture, and one scripted change with what it changed in the settings record.
set -euo pipefail
cd "$(dirname "$0")"

tools/setup.sh build
cmake --preset release >/dev/null
cmake --build --preset release
kvprefs=build/release/bin/kvprefs

if [ $# -gt 0 ]; then
    exec "$kvprefs" "$@"
fi
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$kvprefs" open
fi

echo "No display here: drawing the pages to build/pictures instead of opening the window."
state=$(mktemp -d)
trap 'rm -rf "$state"' EXIT
"$kvprefs" --state "$state" shot build/pictures
echo
echo "One scripted change: landscape, A5, 2 copies. Fields of the record that changed:"
"$kvprefs" --state "$state" set RadioOrientation=2 ComboPaperSize=A5 EditCopies=2
