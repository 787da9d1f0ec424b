#!/usr/bin/env bash
# Builds the fuzz preset and runs one target, seeded with the corpus files it
# reads, for a number of seconds (default 600). Crashes, leaks and slow
# inputs land in build/fuzz/findings/<target>/.
#   scripts/fuzz.sh crate_fuzzer 600
set -euo pipefail
cd "$(dirname "$0")/.."
target="${1:?usage: scripts/fuzz.sh <usda|crate|usdz|unzip|import>_fuzzer [seconds]}"
seconds="${2:-600}"
corpus="${TAVRIN_CORPUS_DIR:-../shared/corpus}"

case "$target" in
  usda_fuzzer) patterns=("*.usda") ;;
  crate_fuzzer) patterns=("*.usdc") ;;
  usdz_fuzzer | unzip_fuzzer) patterns=("*.usdz") ;;
  import_fuzzer) patterns=("*.usda" "*.usdc" "*.usdz") ;;
  *) echo "unknown fuzz target '$target'" >&2; exit 2 ;;
esac

bash scripts/build.sh fuzz
seeds="build/fuzz/seeds/$target"
findings="build/fuzz/findings/$target"
mkdir -p "$seeds" "$findings"
if [ -d "$corpus" ]; then
  for pattern in "${patterns[@]}"; do
    # Corpus files of one name live in several folders: seeds are named by content.
    find "$corpus" -name "$pattern" -size -1024k -print0 |
      while IFS= read -r -d '' file; do
        cp "$file" "$seeds/$(sha1sum < "$file" | cut -c1-16)-$(basename "$file")"
      done
  done
fi
"build/fuzz/fuzz/$target" "$seeds" -max_total_time="$seconds" -rss_limit_mb=2048 -timeout=10 \
  -artifact_prefix="$findings/" -print_final_stats=1
