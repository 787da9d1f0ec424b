#!/usr/bin/env bash
# Configures and builds one preset (default: "default"), installing the
# project's Debian dependencies first when any is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
# Cache compilations by paths relative to the checkout, so that a fresh clone
# (CI) reuses what any earlier checkout on this machine compiled.
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}" CCACHE_NOHASHDIR=1
bash scripts/install-deps.sh
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
