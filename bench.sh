#!/usr/bin/env bash
# Builds and runs the benchmarks and prints each beside its peer or floor, as a ratio.
# Usage: ./bench.sh [--json FILE]
set -euo pipefail
cd "$(dirname "$0")"

tools/setup.sh build bench
cmake --preset bench >/dev/null
cmake --build --preset bench
exec python3 bench/report.py --bin build/bench/bin "$@"
