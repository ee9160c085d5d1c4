#!/bin/bash
# Makes the metafiles of tests/desktop/metafiles and the pictures of them that a Windows player makes, anew.
# Needs mingw-w64, Wine and Xvfb.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
work=$(mktemp -d)
trap 'kill "$server" 2>/dev/null || true; rm -rf "$work"' EXIT
x86_64-w64-mingw32-g++ -std=c++20 -O1 -static -o "$work/make_truth.exe" "$here"/tests/desktop/metafiles/maker/*.cpp \
  -lgdi32 -lmsimg32
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$work/display" 2>/dev/null &
server=$!
until [ -s "$work/display" ]; do sleep 0.1; done
DISPLAY=:$(cat "$work/display")
export DISPLAY WINEPREFIX=${WINEPREFIX:-$work/wine} WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
mkdir "$work/made"
(cd "$work/made" && wine "$work/make_truth.exe")
for picture in "$work"/made/*.ppm; do
  name=$(basename "$picture" .ppm)
  convert-im6.q16 "$picture" -define png:exclude-chunks=date,time "$here/tests/desktop/metafiles/$name.png"
  cp "$work/made/$name" "$here/tests/desktop/metafiles/"
done
wineserver -k || true
