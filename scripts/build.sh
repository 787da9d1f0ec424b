#!/usr/bin/env bash
# Configures and builds one preset (default: "default"), installing the
# project's Debian dependencies first when any is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
bash scripts/install-deps.sh
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
