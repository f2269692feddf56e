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
  "cloud-options 95 193 210,447 ~740,447 499,488"
  "sky-options 95 243 284,288 ~671,288 499,488"
  "water-options 95 293 740,447 ~210,447 499,488"
  "randomizer 95 343 319,147"
  "favorites 95 393"
  "about 95 547"
)
visit() { # NAME X Y [[~]X,Y...]
  local name=$1 x=$2 y=$3 place
  shift 3
  find_window "$MAIN_TITLE" || fail "no main window before $name"
  grab "$work/before.png" 177 128 596 450
  click "$x" "$y"
  sleep 0.6
  grab "$work/after.png" 177 128 596 450
  same_picture "$work/before.png" "$work/after.png" && fail "the page $name did not open"
  shot "$name"
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
wait_until "end of the message" no_window "$MESSAGE_TITLE"
sums >"$work/after"

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
say "Randomizing"
click 95 343
sleep 0.6
click 546 527
wait_until "question" message_shows "$media" Question
shot randomize-question
press_ok
wait_until "closing message" message_shows "$media" Information
press_ok
wait_until "end of the message" no_window "$MESSAGE_TITLE"
shot randomized

find_window "$MAIN_TITLE" || fail "no main window after the pages"
click 95 143
sleep 0.6
shot main-again

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
say "  fx_contrail_s.fx Lifetime: $short_before -> $(contrail_life "$simulator/Effects/fx_contrail_s.fx")"
say "  fx_contrail_L.fx Lifetime: $long_before -> $(contrail_life "$simulator/Effects/fx_contrail_L.fx")"
say "  useDXT, useLowRes after the exit: $(value_of "$program/NB_Information.cfg" useDXT), $(value_of "$program/NB_Information.cfg" useLowRes)"
say "Pictures and the demo are in $output"
