#!/usr/bin/env bash
# Makes the metafiles of tests/desktop/metafiles again, and the pictures that a Windows player draws of them.
# Needs mingw-w64, Wine and Xvfb.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$here/scripts/virtual-display.sh"
work=$(mktemp -d)
start_virtual_display 1024x768
trap 'kill $virtual_display_programs 2>/dev/null || true; rm -rf "$work"' EXIT
export WINEPREFIX=${WINEPREFIX:-$work/wine}
source "$here/scripts/wine.sh"

x86_64-w64-mingw32-g++ -std=c++20 -O1 -static -o "$work/make_truth.exe" "$here"/tests/desktop/metafiles/maker/*.cpp \
  -lgdi32 -lmsimg32
mkdir "$work/made"
(cd "$work/made" && wine "$work/make_truth.exe")
for picture in "$work"/made/*.ppm; do
  name=$(basename "$picture" .ppm)
  convert-im6.q16 "$picture" -define png:exclude-chunks=date,time "$here/tests/desktop/metafiles/$name.png"
  cp "$work/made/$name" "$here/tests/desktop/metafiles/"
done
wineserver -k || true
