#!/usr/bin/env bash
# Puts the zip and the installer for Windows together in build/packages, from what has been built. They are signed
# where there is a certificate.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../build"

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' CMakeCache.txt)
name=Quorvale-$version-windows
rm -rf "packages/$name"
# Copies, so that what was built stays unsigned for a run without a certificate.
for width in 64 32; do
  mkdir -p "packages/$name/$width-bit"
  cp -p "windows-$width/Quorvale.scr" "packages/$name/$width-bit"
done
../scripts/sign-windows.sh "packages/$name"/*-bit/Quorvale.scr
makensis -V2 -WX -DVERSION="$version" -DROOT=.. \
  "-DPROGRAM=packages/$name/64-bit/Quorvale.scr" -DSIGN=../scripts/sign-windows.sh \
  -DOUTPUT="packages/Quorvale-$version-Setup.exe" -NOCD \
  ../packaging/windows/setup.nsi
../scripts/sign-windows.sh "packages/Quorvale-$version-Setup.exe"
cp -r ../assets/samples "packages/$name"
cp -r ../help "packages/$name"
# Older editors there show a line feed alone as no line end.
sed 's/$/\r/' ../packaging/windows/install.txt >"packages/$name/Install.txt"
sed 's/$/\r/' ../LICENSE >"packages/$name/License.txt"
cd packages
cmake -E tar cf "$name.zip" --format=zip "$name"
rm -r "$name"
echo "$PWD/$name.zip"
echo "$PWD/Quorvale-$version-Setup.exe"
