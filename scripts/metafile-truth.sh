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

(cd "$here" && cmake --preset windows-64 -Wno-dev >/dev/null && cmake --build --preset windows-64 --target make_metafiles)
mkdir "$work/made"
(cd "$work/made" && wine "$here/build/windows-64/make_metafiles.exe")
for picture in "$work"/made/*.ppm; do
  name=$(basename "$picture" .ppm)
  convert-im6.q16 "$picture" -define png:exclude-chunks=date,time "$here/tests/desktop/metafiles/$name.png"
  cp "$work/made/$name" "$here/tests/desktop/metafiles/"
done
wineserver -k || true
