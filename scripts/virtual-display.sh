#!/usr/bin/env bash
# The one place that starts an X server.
# virtual-display.sh SIZE [ARGUMENTS OF XVFB] prints the display's number and becomes its server.
# For scripts that source this file: `start_virtual_display SIZE [ARGUMENTS OF XVFB]` starts a display and sets DISPLAY;
# `start_window_manager` starts a window manager there. Both end with the script.

# Without -noreset the server resets, and refuses connections meanwhile, whenever its last client leaves.
run_virtual_display() {
  exec Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset "${@:2}" 3>&1 >/dev/null 2>&1
}

start_virtual_display() {
  local ready number
  ready=$(mktemp -u)
  mkfifo "$ready"
  (run_virtual_display "$@") >"$ready" &
  virtual_display_programs=$!
  trap 'kill $virtual_display_programs 2>/dev/null || true' EXIT
  read -r number <"$ready"
  rm -f "$ready"
  export DISPLAY=":$number"
  unset WAYLAND_DISPLAY
}

start_window_manager() {
  openbox >/dev/null 2>&1 &
  virtual_display_programs="$! $virtual_display_programs"
  # It announces itself before it handles events, and misses windows that appear in between: ask it for something until
  # it is done.
  until [ "$(xdotool get_num_desktops 2>/dev/null)" = 1 ]; do
    kill -0 "$!"
    xdotool set_num_desktops 1 2>/dev/null || true
    sleep 0.05
  done
}

[ "${BASH_SOURCE[0]}" != "$0" ] || run_virtual_display "$@"
