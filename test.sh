#!/usr/bin/env bash
# Builds and runs all tests: lint, then release, then under AddressSanitizer and UBSan.
set -euo pipefail
cd "$(dirname "$0")"

tools/setup.sh build test
python3 tools/lint.py
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=strict_string_checks=1
export LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
for preset in release sanitize; do
    echo "== $preset"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    ctest --preset "$preset"
done
python3 tools/lint.py --linked build/release/bin
