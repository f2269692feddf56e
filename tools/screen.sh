# shellcheck shell=bash disable=SC2034
# A screen without a monitor, a window manager on it, and mouse, keyboard and eyes for the program
# that runs there. To be sourced. Every wait has a bound and names what did not come.

STEP_SECONDS=${STEP_SECONDS:-60} # the longest wait for one step, wide enough for a busy machine
SCREEN=                          # the folder of start_screen
SCREEN_PIDS=()
SCREEN_OPTIONS=() # more for the X server
PROGRAM_PID=
MEDIA= # the artwork of the program that runs; set by the script that sources this file

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# wait_until WHAT COMMAND...: polls the command until it succeeds.
wait_until() {
  local what=$1 end=$((SECONDS + STEP_SECONDS))
  shift
  until "$@"; do
    ((SECONDS < end)) || fail "no $what within $STEP_SECONDS seconds"
    sleep 0.05
  done
}

# start_screen FOLDER: sets DISPLAY; logs, pictures and the runtime folder go into FOLDER.
start_screen() {
  SCREEN=$1
  mkdir -p "$SCREEN/runtime"
  chmod 700 "$SCREEN/runtime"
  export XDG_RUNTIME_DIR=$SCREEN/runtime LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb NO_AT_BRIDGE=1
  unset WAYLAND_DISPLAY QT_SCALE_FACTOR QT_STYLE_OVERRIDE DBUS_SESSION_BUS_ADDRESS
  Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp -noreset "${SCREEN_OPTIONS[@]}" \
    3>"$SCREEN/display" >"$SCREEN/xvfb.log" 2>&1 &
  SCREEN_PIDS=($!)
  wait_until "X server" test -s "$SCREEN/display"
  DISPLAY=:$(<"$SCREEN/display")
  export DISPLAY
  openbox >"$SCREEN/openbox.log" 2>&1 &
  SCREEN_PIDS+=($!)
  wait_until "window manager" window_manager_is_up
}

window_manager_is_up() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

stop_screen() {
  local pid
  stop_program
  for pid in "${SCREEN_PIDS[@]}"; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  SCREEN_PIDS=()
}

# start_program FOLDER LOG: runs FOLDER/nimbrel.
start_program() {
  (cd "$1" && exec ./nimbrel) >>"$2" 2>&1 &
  PROGRAM_PID=$!
}

program_ended() { ! kill -0 "$PROGRAM_PID" 2>/dev/null; }

stop_program() {
  if [[ -n $PROGRAM_PID ]]; then
    kill -9 "$PROGRAM_PID" 2>/dev/null || true
    wait "$PROGRAM_PID" 2>/dev/null || true
  fi
  PROGRAM_PID=
}

# wait_program: waits until the program ends by itself; gives its exit status.
wait_program() {
  local status=0
  wait_until "end of the program" program_ended
  wait "$PROGRAM_PID" || status=$?
  PROGRAM_PID=
  return "$status"
}

# find_window TITLE: sets WINDOW to the visible window of that very title, the newest of several.
find_window() {
  WINDOW=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)
  [[ -n $WINDOW ]]
}
no_window() { ! find_window "$1"; }

MAIN_TITLE=Nimbrel
MESSAGE_TITLE='Nimbrel Message'
FAVORITE_TITLE='Add Settings to Favorites'

# main_window: waits for the main window, with the splash gone.
main_window() { wait_until "main window" main_window_is_up; }
main_window_is_up() {
  program_ended && fail "the program ended instead of showing its window"
  find_window "$MAIN_TITLE"
}

# point PLACE, click PLACE...: moves the pointer there in WINDOW, and presses the left button. A place is
# the name of an array of two numbers, see below.
point() {
  local -n _place=$1
  xdotool mousemove --window "$WINDOW" "${_place[@]}"
}
click() {
  local _name _presses=()
  for _name; do
    local -n _place=$_name
    _presses+=(mousemove --window "$WINDOW" "${_place[@]}" click 1)
  done
  xdotool "${_presses[@]}"
}
# leave_windows: moves the pointer where nothing is highlighted by it.
leave_windows() { xdotool mousemove 1279 899; }

# has_keyboard TITLE: whether keys go to the window of that title.
has_keyboard() { find_window "$1" && [[ $(xdotool getwindowfocus 2>/dev/null) == "$WINDOW" ]]; }
# press_key KEY...: one after the other, into the control that has the keyboard.
press_key() { xdotool key --clearmodifiers "$@"; }

# find_corner: sets X and Y to the place of WINDOW on the screen.
find_corner() { eval "$(xdotool getwindowgeometry --shell "$WINDOW" | grep -E '^[XY]=-?[0-9]+$')"; }

# grab FILE X Y WIDTH HEIGHT: a picture of that part of WINDOW, with whatever lies over it.
grab() {
  local X=0 Y=0
  find_corner
  import -silent -window root -crop "$4x$5+$((X + $2))+$((Y + $3))" +repage "$1"
}

# same_picture FILE FILE: whether two pictures look the same.
same_picture() { [[ $(compare -metric AE -fuzz 4% "$1" "$2" null: 2>&1) == 0 ]]; }

# Places of the artwork, in pixels of the main window.
HOME_BUTTON=(95 143)
CLOUDS_BUTTON=(95 193)
SKY_BUTTON=(95 243)
WATER_BUTTON=(95 293)
RANDOMIZER_BUTTON=(95 343)
FAVORITES_BUTTON=(95 393)
HELP_BUTTON=(95 497)
ABOUT_BUTTON=(95 547)
INSTALL_BUTTON=(546 527)
RANDOMIZE_BUTTON=("${INSTALL_BUTTON[@]}")
ADD_BUTTON=(406 527) # on the main page and on the randomizer's overview
EXIT_BUTTON=(768 26)
HISTORY_LIST=(305 170)
HISTORY_BUTTON=(496 170)
SMALL_PREVIEW=(555 218)
SUN_LABEL=(300 340)
FAST_LABEL=(560 255)
DXT_LABEL=(560 288)
STEP_LEFT=(455 488)
STEP_RIGHT=(499 488)
# Low on the buttons, so that their tooltips appear below the ring.
CLOCKWISE=(210 465)
COUNTERCLOCKWISE=(740 465)
SKY_CLOCKWISE=(284 288)
SKY_COUNTERCLOCKWISE=(671 288)
OVERVIEW_TAB=(235 147)
CLOUDS_TAB=(319 147)
SKY_TAB=(403 147)
WATER_TAB=(487 147)
FIRST_SOLID=(300 241) # the first row of a list
FIRST_WISPY=(300 414)
FIRST_DAY=(600 241)
FIRST_FAVORITE=(300 225)
LOAD_FAVORITE=(419 545)
DELETE_FAVORITE=(365 545)
# And of the dialogs.
OK_BUTTON=(357 264)
CONTINUE_BUTTON=(417 297)

# Parts of the main window: left, top, width, height.
WHOLE=(0 0 798 603)
PAGE=(177 128 596 450)
RING=(320 135 320 285)

# look FILE PART: a picture of a part of the main window; the part is the name of one of these arrays.
look() {
  local -n _part=$2
  find_window "$MAIN_TITLE" || fail "no main window to look at"
  grab "$1" "${_part[@]}"
}

# rest PART: waits until two looks at a part of the main window agree.
rest() {
  look "$SCREEN/now.png" "$1"
  wait_until "rest" rests "$1"
}
rests() { # PART
  mv "$SCREEN/now.png" "$SCREEN/last.png"
  look "$SCREEN/now.png" "$1"
  same_picture "$SCREEN/last.png" "$SCREEN/now.png"
}

# press PART PLACE...: presses one place after the other. After each it waits until that part of the
# main window has changed and is at rest again.
press() {
  local part=$1 place
  shift
  for place; do
    look "$SCREEN/before.png" "$part"
    cp "$SCREEN/before.png" "$SCREEN/now.png"
    click "$place"
    wait_until "rest after a change by $place" rests_changed "$part"
  done
}
rests_changed() { rests "$1" && ! same_picture "$SCREEN/before.png" "$SCREEN/now.png"; }

# message KIND: waits for the dialog with that kind's icon and its checkmark enabled.
message() {
  leave_windows
  wait_until "message of kind $1" message_shows "$1"
}
message_shows() { # KIND
  program_ended && fail "the program ended instead of showing a message"
  find_window "$MESSAGE_TITLE" || return 1
  grab "$SCREEN/ok.png" 335 242 44 44
  grab "$SCREEN/icon.png" 15 120 100 100
  same_picture "$SCREEN/ok.png" "$MEDIA/btn_CheckAll.bmp[44x44+0+0]" &&
    same_picture "$SCREEN/icon.png" "$MEDIA/icon_$1.bmp"
}
no_message() { wait_until "end of the message" no_window "$MESSAGE_TITLE"; }

# answer KIND BUTTON: waits for a message of that kind and presses its button.
answer() {
  message "$1"
  click "$2"
}

# dismiss KIND: the same with the checkmark of the last message, and waits for its end.
dismiss() {
  answer "$1" OK_BUTTON
  no_message
}

# press_install: presses Save and Install and waits for the message that ends it.
press_install() {
  main_window
  click INSTALL_BUTTON
  message Information
}

# add_favorite TITLE LINE [LINE]: opens the dialog of the page in sight and types over what its
# fields hold. The first of them has the keyboard.
add_favorite() {
  main_window
  click ADD_BUTTON
  wait_until "keyboard of the favourite's dialog" has_keyboard "$FAVORITE_TITLE"
  xdotool type --delay 10 "$1"
  press_key Tab
  xdotool type --delay 10 "$2"
  (($# < 3)) || { press_key Return && xdotool type --delay 10 "$3"; }
}
# save_favorite: ends that dialog, and the message about it.
save_favorite() {
  find_window "$FAVORITE_TITLE" || fail "no dialog to end"
  click CONTINUE_BUTTON
  dismiss Information
}

exit_program() {
  main_window
  click EXIT_BUTTON
  wait_program || fail "the program ended with status $?"
}

# value_of FILE KEY: the first value of a key in a text file.
value_of() { sed -n "s/^$2=\(.*\)\$/\1/p" "$1" | tr -d '\r' | head -n 1; }
# contrail_life FILE: Lifetime of section Particle.0.
contrail_life() {
  tr -d '\r' <"$1" | sed -n '/^\[Particle\.0\]/,/^\[Par.*Attr/s/^Lifetime=\(.*\)$/\1/p'
}
