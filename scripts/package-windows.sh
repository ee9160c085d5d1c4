#!/usr/bin/env bash
# Puts the zip for Windows together in build/packages, from what has been built.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../build"

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' CMakeCache.txt)
name=Quorvale-$version-windows
rm -rf "packages/$name"
for width in 64 32; do
  mkdir -p "packages/$name/$width-bit"
  cp "windows-$width/Quorvale.scr" "packages/$name/$width-bit"
done
cp -r ../assets/samples "packages/$name"
cp -r ../help "packages/$name"
# Older editors there show a line feed alone as no line end.
sed 's/$/\r/' ../packaging/windows-install.txt >"packages/$name/Install.txt"
sed 's/$/\r/' ../LICENSE >"packages/$name/License.txt"
cd packages
cmake -E tar cf "$name.zip" --format=zip "$name"
rm -r "$name"
echo "$PWD/$name.zip"
