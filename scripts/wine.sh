#!/usr/bin/env bash
# Runs a Windows program: wine.sh PROGRAM [ARGUMENTS]. Registry and drives are in WINEPREFIX, by default build/wine.
# Scripts that source this file get Wine's environment, with the registry made.
set -euo pipefail
export WINEPREFIX=${WINEPREFIX:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# Without offers to install a browser engine, and without entries in the user's menus.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# Wine takes the bytes of file names for those of the locale.
[ "$(locale charmap)" = UTF-8 ] || export LC_ALL=C.UTF-8
mkdir -p "$WINEPREFIX"
[ -f "$WINEPREFIX/system.reg" ] || flock -o "$WINEPREFIX" wineboot --init >/dev/null 2>&1 </dev/null
[ "${BASH_SOURCE[0]}" = "$0" ] || return 0

# Wine's own services start with its first program and keep that one's output open long after its end: a reader at the
# other end of a pipe would wait for them.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
status=0
wine "$@" >"$output" 2>&1 </dev/null || status=$?
cat "$output"
exit "$status"
