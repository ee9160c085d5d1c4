#!/usr/bin/env bash
# Draws src/platform/win32/resources/quorvale.ico and packaging/icons/ from packaging/quorvale.svg, in the sizes that
# Windows and desktops show. Needs librsvg2-bin and imagemagick; the results are kept in the repository.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
frames=$(mktemp -d)
trap 'rm -rf "$frames"' EXIT
for size in 16 20 24 32 48 64 256; do
  rsvg-convert -w "$size" -h "$size" packaging/quorvale.svg -o "$frames/$(printf '%03d' "$size").png"
done
mkdir -p packaging/icons
for size in 16 22 24 32 48 64 128 256; do
  rsvg-convert -w "$size" -h "$size" packaging/quorvale.svg -o "packaging/icons/$size.png"
done
convert "$frames"/*.png src/platform/win32/resources/quorvale.ico
