#!/usr/bin/env bash
# Runs a Windows program: wine.sh PROGRAM [ARGUMENTS]. Registry and drives live below build/.
set -euo pipefail
export WINEPREFIX=${WINEPREFIX:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# Without the offers to install a browser engine, and without entries in the user's menus.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
mkdir -p "$WINEPREFIX"
[ -f "$WINEPREFIX/system.reg" ] || flock "$WINEPREFIX" wineboot --init >/dev/null 2>&1
exec wine "$@"
