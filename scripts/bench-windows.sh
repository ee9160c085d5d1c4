#!/usr/bin/env bash
# Measures decoding, effects and lists in the Windows program's code under Wine, and in the Linux program's beside
# it. Needs build/ and build/windows-64. The pictures are made once.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

pictures=build/bench-pictures
mkdir -p "$pictures"
for size in 12MP:4000x3000 24MP:6000x4000; do
  picture=$pictures/${size%%:*}.jpg
  [ -f "$picture" ] || convert-im6.q16 -size "${size#*:}" -seed 1 plasma:fractal -quality 90 "$picture"
done
tree=$pictures/tree
if [ ! -d "$tree" ]; then
  mkdir -p "$tree".new/{1..2000}
  for folder in "$tree".new/*; do touch "$folder"/IMG_{1..50}.jpg; done
  mv "$tree".new "$tree"
fi

echo "== On Linux"
build/quorvale-portable-bench "$pictures"/*.jpg "$tree/"
echo
echo "== On Windows, under Wine"
scripts/wine.sh build/windows-64/quorvale-portable-bench.exe "$pictures"/*.jpg "$tree/"
