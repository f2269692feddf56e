#!/usr/bin/env bash
# tour.sh PROGRAM GENERATOR OUTPUT: lays out a fresh demo under OUTPUT, starts the program in it on a
# screen of its own, presses its buttons, saves screenshots in OUTPUT and lists what changed in the
# simulator. Ends with 0 only if every step came in time.
set -euo pipefail
. "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/screen.sh"

program_file=$(readlink -f "$1")
generator=$(readlink -f "$2")
rm -rf "$3"
mkdir -p "$3"
output=$(readlink -f "$3")
simulator="$output/demo/Flight Simulator 9"
program="$simulator/Modules/Nimbrel"
MEDIA="$program/Media"
work=$(mktemp -d)
trap 'stop_screen; rm -rf "$work"' EXIT
trap 'exit 130' INT TERM

say() { printf '%s\n' "$*"; }
shot() { # NAME: the main window with whatever lies over it, at rest
  rest WHOLE
  cp "$SCREEN/now.png" "$output/$1.png"
  say "  picture: $1.png"
}
sums() { (cd "$simulator" && find . -path ./Modules -prune -o -type f -print0 | sort -z | xargs -0 sha256sum); }

# visit NAME BUTTON [PLACE TURN PLACE]: opens a page, and presses its places; a picture is taken during
# the turn.
visit() {
  press PAGE "$2"
  shot "$1"
  (($# == 5)) || return 0
  press RING "$3"
  turn "$1" "$4"
  press RING "$5"
  shot "$1-pressed"
}
# A turn takes an eighth of a second, about as long as a picture takes to begin. So a row of pictures
# is begun round the press, and one is saved that shows the ring neither as before nor as after.
turn() { # NAME PLACE
  local number ring=320x285+320+135 pictures=()
  look "$work/rest.png" WHOLE
  point "$2"
  xdotool mousedown 1
  for number in {1..16}; do
    grab "$work/turn-$number.png" "${WHOLE[@]}" &
    pictures+=($!)
    ((number != 4)) || xdotool mouseup 1
    sleep 0.015
  done
  wait "${pictures[@]}"
  rest RING
  look "$work/turned.png" WHOLE
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

# tell NAME KIND BUTTON: waits for a message of that kind, takes its picture and presses its button.
tell() {
  message "$2"
  shot "$1"
  answer "$2" "$3"
}

# untick NAME TAB ROW...: opens a tab and unticks the first two rows of the lists with these first rows.
untick() {
  local name=$1 row
  press PAGE "$2"
  for row in "${@:3}"; do
    press PAGE "$row"
    press_key Down space
  done
  shot "$name"
}

# keep NAME TITLE LINE LINE: saves what the page in sight shows as a favourite.
keep() {
  add_favorite "$2" "$3" "$4"
  shot "$1"
  find_window "$FAVORITE_TITLE" || fail "no dialog to end"
  click CONTINUE_BUTTON
  tell "$1-saved" Information OK_BUTTON
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
press_install
shot installed
dismiss Information
sums >"$work/after"
short_after=$(contrail_life "$simulator/Effects/fx_contrail_s.fx")
long_after=$(contrail_life "$simulator/Effects/fx_contrail_L.fx")

say "Looking round the main page"
main_window
look "$SCREEN/before.png" WHOLE
cp "$SCREEN/before.png" "$SCREEN/now.png"
point RANDOMIZER_BUTTON
wait_until "tooltip" rests_changed WHOLE
shot tooltip
press PAGE SMALL_PREVIEW
shot preview
press PAGE SUN_LABEL
click FAST_LABEL DXT_LABEL
shot switches

say "Visiting the pages"
visit cloud-options CLOUDS_BUTTON CLOCKWISE COUNTERCLOCKWISE STEP_RIGHT
visit sky-options SKY_BUTTON SKY_CLOCKWISE SKY_COUNTERCLOCKWISE STEP_RIGHT
visit water-options WATER_BUTTON COUNTERCLOCKWISE CLOCKWISE STEP_RIGHT
visit about ABOUT_BUTTON
press PAGE HOME_BUTTON
shot main-again

say "Keeping the choice as a favourite"
keep favorite-of-main "Calm evening" "The first sets of all," "for slow flights."

say "Randomizing within constraints"
press PAGE RANDOMIZER_BUTTON
shot randomizer
untick randomizer-clouds CLOUDS_TAB FIRST_SOLID FIRST_WISPY
untick randomizer-sky SKY_TAB FIRST_DAY
untick randomizer-water WATER_TAB FIRST_SOLID
press PAGE OVERVIEW_TAB
click RANDOMIZE_BUTTON
tell randomize-question Question OK_BUTTON
tell randomize-installed Information OK_BUTTON
no_message
shot randomized

say "Keeping what was drawn, and loading it from the list"
keep favorite-of-randomizer "Drawn by chance" "Found by the randomizer:" "worth a second flight."
press PAGE FAVORITES_BUTTON
shot favorites
click FIRST_FAVORITE
press_key End
shot favorites-selected
click LOAD_FAVORITE
tell favorites-loaded Information OK_BUTTON
no_message
shot main-loaded

say "Deleting the other favourite"
press PAGE FAVORITES_BUTTON
click FIRST_FAVORITE
click DELETE_FAVORITE
tell favorites-delete-question Question OK_BUTTON
no_message
find_window "$MAIN_TITLE" || fail "no main window after the favourites"
shot favorites-deleted

say "Pressing Exit"
exit_program

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
