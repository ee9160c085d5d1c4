#!/usr/bin/env bash
# Runs the show on a virtual display for some 20 seconds and leaves screenshots behind. Called by
# quorvale.sh, which has made the settings store that XDG_CONFIG_HOME names.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source scripts/virtual-display.sh
source scripts/play-list.sh

shots=build/screenshots
interval=3 # seconds between two pictures, the effect apart

option() { build/quorvale-settings set Options "$1" "$2"; }

# Waits until the show has stored that picture's position.
wait_for_picture() {
  local tries
  for tries in $(seq 300); do
    [ "$(build/quorvale-settings get Options LastPicture 2>/dev/null)" != "$1" ] || return 0
    sleep 0.1
  done
  echo "The show did not come to picture $1" >&2
  return 1
}

# Only copies what is on the screen: the show does not wait for a picture file to be written.
shoot() {
  sleep "$1"
  cp "$XDG_CONFIG_HOME/framebuffer/Xvfb_screen0" "$XDG_CONFIG_HOME/$2.xwd"
}

rm -rf "$shots" && mkdir -p "$shots"
# Where no session has made one, Qt would complain.
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
  export XDG_RUNTIME_DIR=$XDG_CONFIG_HOME/runtime
  mkdir -p -m 700 "$XDG_RUNTIME_DIR"
fi
mkdir -p "$XDG_CONFIG_HOME/framebuffer"
start_virtual_display 1920x1080 -fbdir "$XDG_CONFIG_HOME/framebuffer"

# The third picture is a smaller copy, so that its frame can be seen.
mkdir -p "$XDG_CONFIG_HOME/small"
djpeg -scale 3/8 -bmp -outfile "$XDG_CONFIG_HOME/small/Sample3.bmp" assets/samples/Sample3.jpg
build/quorvale-settings set PictureFiles File2 "$(entry "$XDG_CONFIG_HOME/small" Sample3.bmp)"
option Interval "$interval"
option Stretch 1
option SwapAffect "Sweep Right"
option TransSpeed 15

echo "== Running the show on the virtual display $DISPLAY"
build/quorvale /S &
show=$!
wait_for_picture 1
shoot 1 1-a-picture
shoot "$interval" 2-the-middle-of-an-effect
wait_for_picture 2
shoot 1 3-the-next-picture
option Stretch 0
option ShowFileName 1
option ShowFrame 1
option FrameColor 12632256
option SwapAffect Spotlight
wait_for_picture 3
shoot 1 4-file-name-and-frame
xdotool key space
wait "$show"
for shot in "$XDG_CONFIG_HOME"/*.xwd; do
  scripts/screenshot.py "$shot" "$shots/$(basename "$shot" .xwd).png"
done
echo "== The show ended on a key. Screenshots are in $PWD/$shots"
