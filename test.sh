#!/usr/bin/env bash
# Builds and runs all tests: lint, then release and the module for its genuine platform, then under
# AddressSanitizer and UBSan.
set -euo pipefail
cd "$(dirname "$0")"

tools/setup.sh build test
python3 tools/lint.py --complete
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=strict_string_checks=1
export LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
build() {
    echo "== $1"
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}
build release
python3 tools/lint.py --linked build/release/bin
# Before the tests of release, which look into its package too.
build genuine
ctest --preset genuine
ctest --preset release
build sanitize
ctest --preset sanitize
