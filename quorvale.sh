#!/usr/bin/env bash
# Builds, runs and tests Quorvale on Debian. Usage: ./quorvale.sh COMMAND, or no command for the list.
set -euo pipefail
[ -z "${QUORVALE_CERTIFICATE:-}" ] || QUORVALE_CERTIFICATE=$(realpath -m "$QUORVALE_CERTIFICATE")
cd "$(dirname "${BASH_SOURCE[0]}")"
source scripts/packages.sh
source scripts/lint.sh
source scripts/play-list.sh

# With the seconds since the start.
say() { printf '== [%d s] %s\n' "$SECONDS" "$*"; }

# configure PRESET [ARGUMENTS]
configure() {
  local report
  report=$(cmake --preset "$1" -Wno-dev "${@:2}" 2>&1) || { echo "$report"; return 1; }
}

# build PRESET [ARGUMENTS OF THE BUILD]
build() {
  say "Building ($1)"
  configure "$1"
  cmake --build --preset "$@"
}

# build_program TARGET... builds these parts of the program. Where everything has been configured, it stays so.
build_program() {
  need $build_packages
  say "Building the program"
  [ -f build/build.ninja ] || configure program
  cmake --build build --target "$@"
}

# A settings store of the show's own, with the samples in both lists.
prepare_show() {
  export XDG_CONFIG_HOME=$PWD/build/show
  rm -rf "$XDG_CONFIG_HOME"
  local samples=$PWD/assets/samples i
  for i in 1 2 3; do
    build/quorvale-settings set PictureFiles "File$((i - 1))" "$(entry "$samples" "Sample$i.jpg")"
  done
  build/quorvale-settings set SoundFiles File0 "$(entry "$samples" Camera.wav)"
  build/quorvale-settings set SoundFiles File1 "$(entry "$samples" SlideProjector.wav)"
}

show() {
  [ -z "${WAYLAND_DISPLAY:-}" ] || need $wayland_packages
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    build_program quorvale quorvale-settings
    prepare_show
    say "The show runs until you press a key or move the mouse"
    build/quorvale /S
  else
    need $build_packages $screenshot_packages
    build_program quorvale quorvale-settings
    prepare_show
    scripts/show-without-display.sh
  fi
}

run_tests() {
  ctest --test-dir "$1" --output-on-failure --no-tests=error -j "$(nproc)" "${@:2}" | tee "$1/tests.txt"
}

# The runner's own count of a build's tests, and what it has skipped.
count_of() {
  grep '(Skipped)$' "$1/tests.txt" | sed 's/^[^-]*- //' || true
  # A program with many tests has skipped only these.
  sed -n 's/^\[  SKIPPED \] \(.*\) ([0-9]* ms)$/  \1/p' "$1/Testing/Temporary/LastTest.log"
  grep 'tests passed' "$1/tests.txt"
}

test_release() {
  need $build_packages $whole_packages $screen_packages $test_packages
  build release --target tests
  say "Testing core, desktop and the whole program"
  run_tests build
  say "Release build, headless, desktop and end to end:"
  count_of build
}

# The cross-compiled tests under Wine, where there is one to be had.
check_windows() {
  rm -f build/windows-64/tests.txt
  if ! { dpkg -s wine64 || apt-cache show wine64; } 2>/dev/null | grep -q .; then
    say "Debian has no Wine for this machine: the tests of the Windows program are skipped"
    return
  fi
  need $windows_packages $wine_packages $installer_packages
  build windows-64
  say "Testing the Windows program"
  # On a busy machine Wine sometimes fails to start a program, with an internal error.
  run_tests build/windows-64 --repeat until-pass:2
  WINEPREFIX=${WINEPREFIX:-$PWD/build/wine} wineserver -k || true
}

# Tests often wait. The linter has those seconds: it runs beside them all, gives way to them, and reports at the end.
check() {
  need $build_packages $whole_packages $screen_packages $test_packages $sanitize_packages $windows_packages \
    $lint_packages
  say "Checking format and code in the background"
  mkdir -p build
  set -m  # A group of processes, which one signal ends.
  nice -n 19 ./quorvale.sh lint >build/lint.txt 2>&1 &
  local lint=$!
  set +m
  trap "kill -- -$lint 2>/dev/null || true" EXIT
  build debug --target tests
  say "Testing core, pictures and desktop without optimisation"
  run_tests build/debug -L '^(core|pictures|desktop)$'
  build sanitize
  say "Testing core and pictures under the sanitizers, and fuzzing for 20 seconds each"
  LSAN_OPTIONS=suppressions=$PWD/fuzz/known-leaks.txt:print_suppressions=0 run_tests build/sanitize -L '^(core|pictures|fuzz)$'
  check_windows
  soak 2
  say "Waiting for the linter"
  wait $lint || { cat build/lint.txt; return 1; }
  cat build/lint.txt
  say "Without optimisation:"
  count_of build/debug
  say "Under the sanitizers:"
  count_of build/sanitize
  say "Under Wine:"
  if [ -f build/windows-64/tests.txt ]; then count_of build/windows-64; else echo "none, there is no Wine"; fi
}

lint() {
  need $build_packages $whole_packages $sanitize_packages $windows_packages $lint_packages
  lint_code
}

soak() {
  need $build_packages $whole_packages $screen_packages $test_packages
  build release --target quorvale quorvale-settings preview_host
  say "Soaking every mode, with faults injected"
  python3 scripts/soak.py build "$@"
}

fuzz() {
  need $build_packages $whole_packages $sanitize_packages python3
  build sanitize --target quorvale-picture-fuzzer
  say "Fuzzing the picture readers"
  python3 scripts/fuzz.py build/sanitize "$@"
}

# "windows" is a table of its own: the Windows program's code beside the Linux program's.
bench() {
  need $build_packages $whole_packages $screen_packages $bench_packages
  build release --target program quorvale-bench quorvale-yardstick quorvale-portable-bench
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
  if [ -n "${QUORVALE_CERTIFICATE:-}" ] && ! [ -r "$QUORVALE_CERTIFICATE" ]; then
    echo "There is no certificate $QUORVALE_CERTIFICATE" >&2
    exit 1
  fi
  need $build_packages $windows_packages $package_packages
  build_program program
  umask 022
  desktop-file-validate packaging/*.desktop
  appstreamcli validate --no-net packaging/quorvale.metainfo.xml
  cpack --config build/CPackConfig.cmake -B build/packages
  lintian --fail-on error,warning build/packages/*.deb
  build windows-64 --target quorvale
  build windows-32 --target quorvale
  scripts/package-windows.sh
)

case "${1:-}" in
  show) show ;;
  test) test_release ;;
  check) check ;;
  build) build_program program ;;
  configure) build_program program && build/quorvale /C ;;
  soak) soak "${2:-10}" "${@:3}" ;;
  fuzz) fuzz "${2:-5}" "${@:3}" ;;
  bench) bench "${@:2}" ;;
  package) package ;;
  lint) lint ;;
  *)
    cat <<'TEXT'
Usage: ./quorvale.sh COMMAND. Each command builds first what it needs, and installs what is missing;
with QUORVALE_INSTALL=no in the environment it names that and stops.
  show       run the show on the sample pictures; without a display on a virtual one, leaving screenshots
  test       build for release, and run the tests: headless, desktop and end to end
  check      what CI runs after it: debug build, sanitizers, fuzzing, Windows under Wine, two minutes of soak, lint
  soak       [MINUTES [SEED]] runs every mode with faults injected, and reports whether it survived
  fuzz       [MINUTES [KIND...]] gives each kind of picture that long on a core under the fuzzer; kinds are gif, jpg ...
  configure  open the configuration window
  build      only build; the program is build/quorvale
  bench      [GROUP...] [--quick] measure speed and memory; prints tables, and leaves JSON; the groups are load kinds
             metafiles memory effects spotlight lists show preview start config; "bench windows" compares with Wine
  package    make a Debian package, an installer and a zip for Windows in build/packages
  lint       check format and code
TEXT
    [ -z "${1:-}" ] || exit 2
    ;;
esac
