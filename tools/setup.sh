#!/usr/bin/env bash
# Installs what building, running and testing need and this machine lacks; says what and why.
# Usage: tools/setup.sh [build|test|bench|develop]...   (default: build)
set -euo pipefail

# package: why it is needed
build_packages=(
    "g++: compiler"
    "cmake: build system"
    "ninja-build: build tool"
    "pkg-config: finds libraries"
    "binutils-mingw-w64-x86-64: windres, the resource compiler"
    "libsqlite3-dev: store of printers and registry"
    "libfreetype-dev: text"
    "libfontconfig-dev: font matching"
    "libcairo2-dev: draws the module's pictures"
    "libpng-dev: picture files"
    "libcli11-dev: command line"
    "nlohmann-json3-dev: JSON output"
    "qt6-base-dev: the window"
    "fonts-liberation: fonts of the pictures"
)
test_packages=(
    "libgtest-dev: tests"
    "libgmock-dev: tests"
    "python3: lint"
    "locales: numbers with a comma in the tests"
    "xvfb: tests of the window"
    "xauth: tests of the window"
    "openbox: window manager of the desktop's tests"
    "weston: Wayland session of the desktop's tests"
    "qt6-wayland: the window in that session"
    "xdotool: keys and mouse of the desktop's tests"
    "dbus-daemon: session bus of the desktop's tests"
    "at-spi2-core: accessibility tree of the desktop's tests"
    "python3-pyatspi: reads the accessibility tree"
    "desktop-file-utils: checks the desktop entry"
    "appstream: checks the software catalogue's entry"
    "dpkg-dev: dependencies of the Debian packages"
    "file: finds the programs in the Debian packages"
    "lintian: checks the Debian packages"
    "libnss-wrapper: people and groups of the tests that this machine need not have"
    "zsh: tests of completion"
    "fish: tests of completion"
    "g++-mingw-w64-x86-64: builds the module for its genuine platform"
    "mingw-w64-x86-64-dev: headers and import libraries of that platform"
    "binutils: objdump reads what was built"
)
bench_packages=(
    "libbenchmark-dev: benchmarks"
    "libglib2.0-dev: peer of the rules file reader"
    "libcups2-dev: peer of the conflict check"
    "libpixman-1-dev: peer of the Paper View"
    "libcairo2-dev: peer of the watermark's views"
)
develop_packages=(
    "ccache: builds again in seconds what was built before"
)

wanted=()
for group in "${@:-build}"; do
    declare -n rows="${group}_packages"
    wanted+=("${rows[@]}")
done

installed=$(dpkg-query -W -f '${Package} ${db:Status-Abbrev}\n' 2>/dev/null |
            awk '$2 ~ /^ii/ {print $1}' || true)
missing=()
for row in "${wanted[@]}"; do
    package=${row%%:*}
    if ! grep -qxF -- "$package" <<<"$installed"; then
        echo "setup: installing $package (${row#*: })"
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
fi
"${as_root[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
