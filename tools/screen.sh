# shellcheck shell=bash disable=SC2034
# A screen of its own with a window manager, and hands and eyes on the program that runs there. To be
# sourced. Every wait is bounded and says what did not come.

STEP_SECONDS=${STEP_SECONDS:-60} # the longest wait for one step, wide enough for a busy machine

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
    sleep 0.1
  done
}

# start_screen FOLDER: sets DISPLAY; logs and the runtime folder go into FOLDER.
start_screen() {
  local folder=$1
  mkdir -p "$folder/runtime"
  chmod 700 "$folder/runtime"
  export XDG_RUNTIME_DIR=$folder/runtime LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb NO_AT_BRIDGE=1
  unset WAYLAND_DISPLAY QT_SCALE_FACTOR QT_STYLE_OVERRIDE DBUS_SESSION_BUS_ADDRESS
  Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp -noreset "${SCREEN_OPTIONS[@]}" \
    3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
  SCREEN_PIDS=($!)
  wait_until "X server" test -s "$folder/display"
  DISPLAY=:$(<"$folder/display")
  export DISPLAY
  openbox >"$folder/openbox.log" 2>&1 &
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
SCREEN_PIDS=()
SCREEN_OPTIONS=() # more for the X server
PROGRAM_PID=

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

# wait_program: waits for the program's end by itself; gives its exit status.
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

# point X Y: moves the pointer inside WINDOW. click X Y: and presses the left button there.
point() { xdotool mousemove --window "$WINDOW" "$1" "$2"; }
click() {
  point "$1" "$2"
  sleep 0.1
  xdotool mousedown 1
  sleep 0.05
  xdotool mouseup 1
}

# grab FILE X Y WIDTH HEIGHT: a picture of that part of WINDOW, with whatever lies over it.
grab() {
  local X=0 Y=0
  eval "$(xdotool getwindowgeometry --shell "$WINDOW" | grep -E '^[XY]=-?[0-9]+$')"
  import -silent -window root -crop "$4x$5+$((X + $2))+$((Y + $3))" +repage "$1"
}

# same_picture FILE FILE: whether two pictures look the same.
same_picture() {
  [[ $(compare -metric AE -fuzz 4% "$1" "$2" null: 2>&1) == 0 ]]
}

# Places of the artwork, in pixels of the main window: first the navigation column.
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
FAST_LABEL=(560 255)
DXT_LABEL=(560 288)
STEP_LEFT=(455 488)
STEP_RIGHT=(499 488)
OVERVIEW_TAB=(235 147)
CLOUDS_TAB=(319 147)
SKY_TAB=(403 147)
WATER_TAB=(487 147)
FIRST_SOLID=(300 241) # the first row of a list
FIRST_DAY=(600 241)
FIRST_FAVORITE=(300 225)
RANDOM_SUN=(199 532)
LOAD_FAVORITE=(419 545)
DELETE_FAVORITE=(365 545)
# And of the dialogs.
OK_BUTTON=(357 264)
CANCEL_BUTTON=(302 264)
CONTINUE_BUTTON=(417 297)

# Parts of the main window: left, top, width, height.
PAGE='177 128 596 450'
RING='320 135 320 285'

# look FILE PART: a picture of a part of the main window.
look() {
  find_window "$MAIN_TITLE" || fail "no main window to look at"
  # shellcheck disable=SC2086 # a part is four words
  grab "$1" $2
}

# press WHAT PART X Y: presses there and waits until that part of the main window has changed and
# stands still again.
press() {
  local seen
  seen=$(mktemp -d)
  look "$seen/before.png" "$2"
  cp "$seen/before.png" "$seen/now.png"
  click "$3" "$4"
  wait_until "rest after a change by $1" rests_changed "$seen" "$2"
  rm -r "$seen"
}
rests_changed() { # FOLDER PART
  mv "$1/now.png" "$1/last.png"
  look "$1/now.png" "$2"
  same_picture "$1/last.png" "$1/now.png" && ! same_picture "$1/before.png" "$1/now.png"
}

# looks_like FILE PART: whether that part of the main window looks so. Leaves what it saw beside FILE.
looks_like() {
  look "$1.now.png" "$2"
  same_picture "$1" "$1.now.png"
}

# message_shows MEDIA ICON: whether the dialog stands with that kind's icon and its checkmark enabled.
message_shows() {
  local seen
  program_ended && fail "the program ended instead of showing a message"
  find_window "$MESSAGE_TITLE" || return 1
  seen=$(mktemp -d)
  grab "$seen/ok.png" 335 242 44 44
  grab "$seen/icon.png" 15 120 100 100
  convert "$1/btn_CheckAll.bmp" -crop 44x44+0+0 +repage "$seen/ok-strip.png"
  convert "$1/icon_$2.bmp" "$seen/icon-file.png"
  local result=1
  same_picture "$seen/ok.png" "$seen/ok-strip.png" &&
    same_picture "$seen/icon.png" "$seen/icon-file.png" && result=0
  rm -r "$seen"
  return $result
}

# press_ok: presses the checkmark of the message that stands and waits until it has gone.
press_ok() {
  find_window "$MESSAGE_TITLE" || fail "no message to answer"
  click "${OK_BUTTON[@]}"
}

# press_install MEDIA: presses Save and Install and waits for the message that ends it.
press_install() {
  main_window
  click "${INSTALL_BUTTON[@]}"
  point 20 590 # off the dialog, so that its checkmark shows as enabled
  wait_until "closing message" message_shows "$1" Information
}

# press_key KEY...: one after the other, into the control that has the keyboard.
press_key() { xdotool key --clearmodifiers --delay 60 "$@"; }

# add_favorite TITLE LINE LINE: opens the dialog of the page in sight and types over what stands in
# its fields, the first of which has the keyboard.
add_favorite() {
  main_window
  click "${ADD_BUTTON[@]}"
  wait_until "favourite's dialog" find_window "$FAVORITE_TITLE"
  sleep 0.3
  xdotool type --delay 25 "$1"
  press_key Tab
  xdotool type --delay 25 "$2"
  press_key Return
  xdotool type --delay 25 "$3"
}

# answer MEDIA KIND X Y: waits for a message of that kind and presses one of its buttons.
answer() {
  wait_until "message of kind $2" message_shows "$1" "$2"
  click "$3" "$4"
}

press_exit() {
  main_window
  click "${EXIT_BUTTON[@]}"
  wait_program
}

# value_of FILE KEY: the first value of a key in a text file.
value_of() { sed -n "s/^$2=\(.*\)\$/\1/p" "$1" | tr -d '\r' | head -n 1; }
# contrail_life FILE: Lifetime of section Particle.0.
contrail_life() {
  tr -d '\r' <"$1" | sed -n '/^\[Particle\.0\]/,/^\[Par.*Attr/s/^Lifetime=\(.*\)$/\1/p'
}
