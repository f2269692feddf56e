#!/usr/bin/env bash
# ring_journey.sh NAME PROGRAM DEMO WATCH: what the screen shows while the real program turns a ring.
# WATCH is ring_watch.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
. "$here/../../tools/screen.sh"
. "$here/support.sh"

# In pixels of the main window. The turn buttons are pressed low, so that their tooltips stand below
# the ring.
PAGE_PLACE=(177 128)
CLOUD_BUTTON=(95 193)
WATER_BUTTON=(95 293)
CLOCKWISE=(210 465)
COUNTERCLOCKWISE=(740 465)
NEXT_OPTION=(499 488)

# sees FORM RING_WATCH'S_WORDS...
sees() {
  local X=0 Y=0 form=$1
  shift
  eval "$(xdotool getwindowgeometry --shell "$WINDOW" | grep -E '^[XY]=-?[0-9]+$')"
  "$WATCH" "$PROGRAM" "$form" $((X + PAGE_PLACE[0])) $((Y + PAGE_PLACE[1])) "$@"
}

# turns FORM DIRECTION X Y: presses there for as long as the watch goes on.
turns() {
  local watch
  sees "$1" turn "$2" &
  watch=$!
  while kill -0 $watch 2>/dev/null; do
    click "$3" "$4"
    sleep 0.05
  done
  wait $watch || fail "the turns of $1 $2"
}

open_ring() { # FORM X Y
  click "$2" "$3"
  wait_until "ring of $1 at rest" sees "$1" rest 0 0
}

only_whole_frames() {
  start
  open_ring frm_3d "${CLOUD_BUTTON[@]}"
  turns frm_3d clockwise "${CLOCKWISE[@]}"
  turns frm_3d counterclockwise "${COUNTERCLOCKWISE[@]}"
  open_ring frm_Water "${WATER_BUTTON[@]}"
  turns frm_Water clockwise "${CLOCKWISE[@]}"
  turns frm_Water counterclockwise "${COUNTERCLOCKWISE[@]}"
  exit_program
}

# A turn takes an eighth of a second; all these clicks come at once, so most of them during it.
clicks_wait_for_the_turn() {
  start
  open_ring frm_3d "${CLOUD_BUTTON[@]}"
  xdotool mousemove --window "$WINDOW" "${CLOCKWISE[@]}" click 1 \
    mousemove --window "$WINDOW" "${NEXT_OPTION[@]}" click 1 click 1 \
    mousemove --window "$WINDOW" "${COUNTERCLOCKWISE[@]}" click 1 \
    mousemove --window "$WINDOW" "${CLOCKWISE[@]}" click 1
  wait_until "second group in front with its third option" sees frm_3d rest 1 2
  exit_program
}

WATCH=$4
lay_out "$2" "$3"
"$1"
