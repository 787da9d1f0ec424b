#!/usr/bin/env bash
# Builds a preset (default: "default"; "asan" for the sanitizer build) and runs
# its whole test suite with CTest.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
bash scripts/build.sh "$preset"
ctest --preset "$preset" --parallel "$(nproc)"
