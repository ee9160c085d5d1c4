#!/usr/bin/env bash
# Measures speed and memory on virtual displays. Called by quorvale.sh with the words behind "bench":
#   GROUP...    load kinds metafiles memory effects spotlight lists show preview start config; all of them without one
#   --quick     fewer rounds and shorter shows
#   --thorough  adds what takes long: effects at the slowest speed, a minute of show with each effect
# Prints tables and leaves the same figures in bench.json beside the program. BENCH_BUILD names another
# directory than build/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/virtual-display.sh

all_groups=(load kinds metafiles memory effects spotlight lists show preview start config)
build=${BENCH_BUILD:-build}
rows=$build/bench-rows
options=()
groups=()
for word in "$@"; do
  case "$word" in
    -*) options+=("$word") ;;
    *) groups+=("$word") ;;
  esac
done
[ ${#groups[@]} -gt 0 ] || groups=("${all_groups[@]}")

# measure SIZE GROUP... measures on a display of that size.
measure() {
  (
    start_virtual_display "$1"
    start_window_manager
    "$build/quorvale-bench" --json "$rows" "${options[@]}" "${@:2}"
  )
}

processor=$(sed -n 's/^model name[^:]*: //p' /proc/cpuinfo | head -n 1)
echo "== Measuring on $(nproc) processors, ${processor:-of a kind unknown}"
printf '{"table": "Machine", "row": "%s", "values": {"processors": %d}}\n' "$processor" "$(nproc)" >"$rows"

for group in "${groups[@]}"; do
  measure 1920x1080 "$group"
  case "$group" in
    effects | spotlight) measure 3840x2160 "$group" ;;
  esac
done

{
  echo '['
  sed '$!s/$/,/' "$rows"
  echo ']'
} >"$build/bench.json"
rm -f "$rows"
echo
echo "== The figures are in $PWD/$build/bench.json as well"
