#!/usr/bin/env bash
# tour.sh PROGRAM GENERATOR OUTPUT: lays out a fresh demo under OUTPUT, starts the program in it on a
# screen of its own, presses its buttons, keeps pictures in OUTPUT and tells what changed in the
# simulator. Ends with 0 only when every step came in time.
set -euo pipefail
. "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/screen.sh"

program_file=$(readlink -f "$1")
generator=$(readlink -f "$2")
rm -rf "$3"
mkdir -p "$3"
output=$(readlink -f "$3")
simulator="$output/demo/Flight Simulator 9"
program="$simulator/Modules/Nimbrel"
media="$program/Media"
work=$(mktemp -d)
trap 'stop_screen; rm -rf "$work"' EXIT
trap 'exit 130' INT TERM

say() { printf '%s\n' "$*"; }
shot() { # NAME: the main window's part of the screen
  find_window "$MAIN_TITLE" || fail "no main window to picture"
  sleep 0.4
  grab "$output/$1.png" 0 0 798 603
  say "  picture: $1.png"
}
sums() { (cd "$simulator" && find . -path ./Modules -prune -o -type f -print0 | sort -z | xargs -0 sha256sum); }

# A row for each page: name, the button in the navigation column, then places to press on the page.
# A place behind a ~ turns a ring, and is pictured in the middle of the turn.
pages=(
  "cloud-options ${CLOUDS_BUTTON[*]} 210,447 ~740,447 499,488"
  "sky-options ${SKY_BUTTON[*]} 284,288 ~671,288 499,488"
  "water-options ${WATER_BUTTON[*]} 740,447 ~210,447 499,488"
  "about ${ABOUT_BUTTON[*]}"
)
# shellcheck disable=SC2153 # PAGE is screen.sh's
visit() { # NAME X Y [[~]X,Y...]
  local name=$1 place
  press "the page $name" "$PAGE" "$2" "$3"
  shot "$name"
  shift 3
  for place; do
    if [[ $place == ~* ]]; then
      turn "$name" "${place#\~}"
    else
      click "${place%,*}" "${place#*,}"
      sleep 0.6
    fi
  done
  (($# == 0)) || shot "$name-pressed"
}
# A turn is over after an eighth of a second, and a picture takes about as long to begin. So a row of
# pictures is begun round the press, and one is kept that shows the ring neither as before nor after.
turn() { # NAME X,Y
  local number ring=320x285+320+135 pictures=()
  point "${2%,*}" "${2#*,}"
  grab "$work/rest.png" 0 0 798 603
  xdotool mousedown 1
  for number in {1..16}; do
    grab "$work/turn-$number.png" 0 0 798 603 &
    pictures+=($!)
    ((number != 4)) || xdotool mouseup 1
    sleep 0.015
  done
  wait "${pictures[@]}"
  sleep 0.6
  grab "$work/turned.png" 0 0 798 603
  for number in {1..16}; do
    if ! same_picture "$work/turn-$number.png[$ring]" "$work/rest.png[$ring]" &&
      ! same_picture "$work/turn-$number.png[$ring]" "$work/turned.png[$ring]"; then
      cp "$work/turn-$number.png" "$output/$1-turning.png"
      say "  picture: $1-turning.png"
      return 0
    fi
  done
  say "  $1: no turn was caught in the middle"
}

# message NAME KIND X Y: waits for a message of that kind, pictures it and presses a button of it.
message() {
  wait_until "message of kind $2" message_shows "$media" "$2"
  shot "$1"
  find_window "$MESSAGE_TITLE" || fail "no message to answer"
  click "$3" "$4"
  point 20 20 # off the checkmark, so that the next message shows it as enabled
}
no_message() { wait_until "end of the message" no_window "$MESSAGE_TITLE"; }

# untick NAME TAB-X TAB-Y [X Y]...: opens a tab and unticks the first two rows of the lists that have
# their first row there.
untick() {
  local name=$1
  press "the tab $name" "$PAGE" "$2" "$3"
  shift 3
  while (($# > 0)); do
    press "a row of $name" "$PAGE" "$1" "$2"
    press_key Down space
    shift 2
  done
  shot "$name"
}

# keep NAME TITLE LINE LINE: saves what the page in sight shows as a favourite.
keep() {
  add_favorite "$2" "$3" "$4"
  shot "$1"
  find_window "$FAVORITE_TITLE" || fail "no dialog to end"
  click "${CONTINUE_BUTTON[@]}"
  message "$1-saved" Information "${OK_BUTTON[@]}"
  no_message
}

say "Laying out the demo simulator"
start_screen "$work"
"$generator" "$output/demo"
install -m 755 "$program_file" "$program/nimbrel"
sums >"$work/before"
short_before=$(contrail_life "$simulator/Effects/fx_contrail_s.fx")
long_before=$(contrail_life "$simulator/Effects/fx_contrail_L.fx")

say "Starting the program"
start_program "$program" "$output/program.log"
main_window
shot main

say "Pressing Save and Install"
press_install "$media"
shot installed
press_ok
no_message
sums >"$work/after"
short_after=$(contrail_life "$simulator/Effects/fx_contrail_s.fx")
long_after=$(contrail_life "$simulator/Effects/fx_contrail_L.fx")

say "Looking round the main page"
main_window
point 95 343
sleep 1
shot tooltip
click 555 218
shot preview
click 300 340
click "${FAST_LABEL[@]}"
click "${DXT_LABEL[@]}"
shot switches

say "Visiting the pages"
for page in "${pages[@]}"; do
  # shellcheck disable=SC2086 # a row is words
  visit $page
done
press "the main page" "$PAGE" "${HOME_BUTTON[@]}"
shot main-again

say "Keeping the choice as a favourite"
keep favorite-of-main "Calm evening" "The first sets of all," "for slow flights."

say "Randomizing within constraints"
press "the randomizer" "$PAGE" "${RANDOMIZER_BUTTON[@]}"
shot randomizer
untick randomizer-clouds "${CLOUDS_TAB[@]}" "${FIRST_SOLID[@]}" 300 414
untick randomizer-sky "${SKY_TAB[@]}" "${FIRST_DAY[@]}"
untick randomizer-water "${WATER_TAB[@]}" "${FIRST_SOLID[@]}"
press "the overview" "$PAGE" "${OVERVIEW_TAB[@]}"
click "${RANDOMIZE_BUTTON[@]}"
message randomize-question Question "${OK_BUTTON[@]}"
message randomize-installed Information "${OK_BUTTON[@]}"
no_message
shot randomized

say "Keeping what was drawn, and loading it from the list"
keep favorite-of-randomizer "Drawn by chance" "Found by the randomizer:" "worth a second flight."
press "the favourites" "$PAGE" "${FAVORITES_BUTTON[@]}"
shot favorites
click "${FIRST_FAVORITE[@]}"
press_key End
sleep 0.4
shot favorites-selected
click "${LOAD_FAVORITE[@]}"
message favorites-loaded Information "${OK_BUTTON[@]}"
no_message
shot main-loaded

say "Deleting the other favourite"
press "the favourites" "$PAGE" "${FAVORITES_BUTTON[@]}"
click "${FIRST_FAVORITE[@]}"
click "${DELETE_FAVORITE[@]}"
message favorites-delete-question Question "${OK_BUTTON[@]}"
no_message
find_window "$MAIN_TITLE" || fail "no main window after the favourites"
shot favorites-deleted

say "Pressing Exit"
press_exit || fail "the program ended with status $?"

say ""
say "What the install changed in the simulator:"
comm -13 <(sort "$work/before") <(sort "$work/after") | cut -c67- | sort >"$work/changed"
count=0
bytes=0
while IFS= read -r file; do
  size=$(stat -c %s "$simulator/$file")
  count=$((count + 1))
  bytes=$((bytes + size))
  printf '  %8d  %s\n' "$size" "${file#./}"
done <"$work/changed"
((count > 0)) || fail "the install changed nothing"
say "  $count files of $(wc -l <"$work/before") replaced or added, $bytes bytes"
say "  fx_contrail_s.fx Lifetime: $short_before -> $short_after"
say "  fx_contrail_L.fx Lifetime: $long_before -> $long_after"
say "  unticked for the randomizer: $(grep -c 'InhibitRandomizer\.[0-9]*=1' "$program/NB_Information.cfg") options"
say "  in Favorites: $(cd "$program/Favorites" && stat -c '%n (%s bytes)' -- *.nbf | paste -sd ,)"
say "  useDXT, useLowRes after the exit: $(value_of "$program/NB_Information.cfg" useDXT), $(value_of "$program/NB_Information.cfg" useLowRes)"
say "Pictures and the demo are in $output"
