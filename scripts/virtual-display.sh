# For other scripts: `start_virtual_display SIZE [ARGUMENTS OF XVFB]` starts a display and sets DISPLAY;
# `start_window_manager` starts one there. Both go when the script ends.

start_virtual_display() {
  local ready number
  ready=$(mktemp -u)
  mkfifo "$ready"
  # Without -noreset the server starts anew, windows lost, whenever its last client leaves.
  Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset "${@:2}" 3<>"$ready" >/dev/null 2>&1 &
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
  # It announces itself before it looks at events, and overlooks windows that come in between: ask it for
  # something until it is done.
  until [ "$(xdotool get_num_desktops 2>/dev/null)" = 1 ]; do
    kill -0 "$!"
    xdotool set_num_desktops 1 2>/dev/null || true
    sleep 0.05
  done
}
