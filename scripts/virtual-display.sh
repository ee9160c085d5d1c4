# For other scripts: `start_virtual_display SIZE` starts a display with a window manager and sets DISPLAY.
# Both go when the script ends.

start_virtual_display() {
  local ready number
  ready=$(mktemp -u)
  mkfifo "$ready"
  Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp 3<>"$ready" >/dev/null 2>&1 &
  virtual_display_programs=$!
  trap 'kill $virtual_display_programs 2>/dev/null || true' EXIT
  read -r number <"$ready"
  export DISPLAY=":$number"
  unset WAYLAND_DISPLAY
  rm -f "$ready"
  openbox --sm-disable >/dev/null 2>&1 &
  virtual_display_programs="$! $virtual_display_programs"
  until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep window >/dev/null; do sleep 0.05; done
  sleep 0.3 # it announces itself before it looks at windows
}
