#!/usr/bin/env bash
# Builds, runs and tests Quorvale on Debian. Usage: ./quorvale.sh COMMAND, or no command for the list.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/play-list.sh

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev libsdl2-dev libsqlite3-dev libjpeg62-turbo-dev libpng-dev libxcb1-dev libxcb-shm0-dev"
run_packages="qt6-wayland fontconfig fonts-dejavu-core"
screen_packages="xvfb openbox xdotool x11-utils imagemagick"
saver_packages="xscreensaver"
windows_packages="g++-mingw-w64-x86-64 g++-mingw-w64-i686 googletest"
wine_packages="wine wine64"
test_packages="libgtest-dev libgmock-dev python3 sox"
fuzz_packages="clang libclang-rt-dev"
lint_packages="clang-format clang-tidy"
bench_packages="feh"

say() { printf '== %s\n' "$*"; }

# Installs those of the given packages that are missing.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg -s "$package" 2>/dev/null | grep -q '^Status: .* installed$' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing ${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures and builds one of the presets: build PRESET [ARGUMENTS OF THE BUILD].
build() {
  need $build_packages $run_packages $test_packages
  say "Building ($1)"
  mkdir -p build
  cmake --preset "$1" -Wno-dev >build/configure.txt 2>&1 || { cat build/configure.txt; return 1; }
  cmake --build --preset "$@"
}

# A settings store of the show's own, with the samples in both lists.
prepare_show() {
  export XDG_CONFIG_HOME=$PWD/build/show
  rm -rf "$XDG_CONFIG_HOME"
  local samples=$PWD/build/samples i
  for i in 1 2 3; do
    build/quorvale-settings set PictureFiles "File$((i - 1))" "$(entry "$samples" "Sample$i.jpg")"
  done
  build/quorvale-settings set SoundFiles File0 "$(entry "$samples" Camera.wav)"
  build/quorvale-settings set SoundFiles File1 "$(entry "$samples" SlideProjector.wav)"
}

show() {
  build release
  prepare_show
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    say "The show runs until you press a key or move the mouse"
    build/quorvale /S
  else
    need $screen_packages
    scripts/show-without-display.sh
  fi
}

run_tests() {
  ctest --test-dir "$1" --output-on-failure --no-tests=error -j "$(nproc)" "${@:2}" | tee "$1/tests.txt"
}

# The last line is the runner's own count.
count_of() { grep 'tests passed' "$1/tests.txt"; }

# The cross-compiled tests under Wine, where there is one to be had.
test_windows() {
  if ! need $windows_packages $wine_packages; then
    say "There is no Wine to install here: the tests of the Windows program are left out"
    return
  fi
  build windows-64
  say "Testing the Windows program"
  run_tests build/windows-64
  WINEPREFIX=$PWD/build/wine wineserver -k || true
}

run_all_tests() {
  need $screen_packages $fuzz_packages
  build sanitize
  build release
  build fuzz
  say "Testing core and headless platform under the sanitizers"
  run_tests build/sanitize
  say "Testing pictures under the sanitizers, and fuzzing for 20 seconds each"
  run_tests build/fuzz -R '^(Picture|Metafile|fuzz|sweep)'
  say "Testing everything"
  need $saver_packages
  run_tests build
  test_windows
  say "Under the sanitizers: $(count_of build/sanitize)"
  say "Pictures under the sanitizers: $(count_of build/fuzz)"
  [ ! -f build/windows-64/tests.txt ] || say "Under Wine: $(count_of build/windows-64)"
  count_of build
}

# "windows" is a table of its own: the Windows program's code beside the Linux program's.
bench() {
  need $screen_packages $bench_packages
  build release
  if [ "${1:-}" = windows ]; then
    need $windows_packages $wine_packages
    build windows-64
    scripts/bench-windows.sh
  else
    scripts/bench.sh "$@"
  fi
}

# Whatever the user's umask is, everybody may read what the package brings.
package() (
  need dpkg-dev desktop-file-utils
  build release
  umask 022
  desktop-file-validate packaging/*.desktop
  cpack --config build/CPackConfig.cmake -B build/packages
  need $windows_packages
  build windows-64 --target quorvale
  build windows-32 --target quorvale
  scripts/package-windows.sh
)

lint() {
  need $lint_packages
  build release
  say "Checking the format"
  git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
  say "Checking the code"
  git ls-files 'src/*.cpp' ':!src/platform/win32' |
    xargs -P "$(nproc)" -n 4 clang-tidy -p build --quiet 2>/dev/null
  lint_windows
}

# The linter's compiler has to be told where the headers of the other one are.
lint_windows() {
  need $windows_packages
  cmake --preset windows-64 -Wno-dev >/dev/null
  local library
  library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
  git ls-files 'src/platform/win32/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy -p build/windows-64 --quiet --extra-arg-before=--driver-mode=g++ \
      --extra-arg=--target=x86_64-w64-mingw32 --extra-arg=-isystem"$library" \
      --extra-arg=-isystem"$library"/x86_64-w64-mingw32 2>/dev/null
}

case "${1:-}" in
  show) show ;;
  test) run_all_tests ;;
  build) build release ;;
  configure) build release && build/quorvale /C ;;
  bench) bench "${@:2}" ;;
  package) package ;;
  lint) lint ;;
  *)
    cat <<'TEXT'
Usage: ./quorvale.sh COMMAND. Each command installs what is missing and builds first.
  show       run the show on the sample pictures; without a display on a virtual one, leaving screenshots
  test       run every test
  configure  open the configuration window
  build      only build; the program is build/quorvale
  bench      measure speed and memory; prints a table, and JSON beside it; "bench windows" compares with Wine
  package    make a Debian package and a zip for Windows in build/packages
  lint       check format and code
TEXT
    [ -z "${1:-}" ] || exit 2
    ;;
esac
