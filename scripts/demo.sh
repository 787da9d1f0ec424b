#!/usr/bin/env bash
# The main job: installs what is missing, builds the command-line importer and
# imports the bundled sample scene (or the file given), printing a summary and
# writing the document as JSON to build/<name>.json.
set -euo pipefail
cd "$(dirname "$0")/.."
scene="${1:-examples/sample_scene.usda}"
bash scripts/install-deps.sh
cmake --preset default >/dev/null
cmake --build --preset default --target tavrin-usd-import
name="$(basename "${scene%.*}")"
build/default/tools/tavrin-usd-import/tavrin-usd-import "$scene" --json "build/$name.json"
echo "JSON written to build/$name.json"
