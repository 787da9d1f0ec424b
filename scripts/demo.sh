#!/usr/bin/env bash
# The main job: installs what is missing, builds, and reads the bundled sample
# scene back as text (the importer takes over this job once it lands).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build.sh default
build/default/tools/tavrin-usdcat/tavrin-usdcat "${1:-examples/sample_scene.usda}"
