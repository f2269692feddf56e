#!/usr/bin/env bash
# journey.sh NAME PROGRAM DEMO: one journey through the real program, in a copy of the demo.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
. "$here/../../tools/screen.sh"
. "$here/support.sh"
. "$here/choices.sh"
. "$here/randomizer.sh"
. "$here/favorites.sh"

first_start_and_install() {
  local untouched
  untouched=$(sha256sum "$SIMULATOR/Texture/runway.bmp")
  start
  [[ ! -e $PROGRAM/Data/History.nbh ]] || fail "a start alone wrote a history"
  install_now
  exit_program
  expect_installed 0
  expect_switches 1 1
  expect_cumulus 512 DXT3
  expect "size of the history" "$(stat -c %s "$PROGRAM/Data/History.nbh")" 36
  expect "an untouched file" "$(sha256sum "$SIMULATOR/Texture/runway.bmp")" "$untouched"
  no_temporaries
}

restart_brings_back() {
  { record 1 1; record 3 0; } >"$PROGRAM/Data/History.nbh"
  start
  click "${FAST_LABEL[@]}"
  click "${DXT_LABEL[@]}"
  exit_program
  expect useDXT "$(value_of "$CFG" useDXT)" 0
  expect useLowRes "$(value_of "$CFG" useLowRes)" 1
  start
  press_install "$MEDIA"
  press_ok
  exit_program
  expect_installed 3
  expect_cumulus 256 none
  expect_switches 0 0
  expect "size of the history" "$(stat -c %s "$PROGRAM/Data/History.nbh")" 108
  expect "the new entry's choice" "$(tail -c 26 "$PROGRAM/Data/History.nbh" | sha256sum)" \
    "$(record 3 0 | tail -c 26 | sha256sum)"
}

about_and_help_do_no_harm() {
  local before
  mkdir "$JOURNEY/handlers"
  printf '#!/bin/sh\necho "$*" >>"%s/opened"\nexit 1\n' "$JOURNEY" >"$JOURNEY/handlers/xdg-open"
  chmod +x "$JOURNEY/handlers/xdg-open"
  before=$(cd "$SIMULATOR" && find . -type f -print0 | sort -z | xargs -0 sha256sum)
  PATH="$JOURNEY/handlers:$PATH" start
  press "the About page" "$PAGE" "${ABOUT_BUTTON[@]}"
  click 475 330
  click "${HELP_BUTTON[@]}"
  wait_until "opening of the help" test -s "$JOURNEY/opened"
  expect "the file opened" "$(sed 's/%20/ /g; s#.*/##' "$JOURNEY/opened")" "Nimbrel Help.pdf"
  press "the main page" "$PAGE" "${HOME_BUTTON[@]}"
  exit_program
  expect "the files" "$(cd "$SIMULATOR" && find . -type f -print0 | sort -z | xargs -0 sha256sum)" "$before"
}

missing_information_file() {
  local before
  rm "$CFG"
  before=$(cd "$SIMULATOR" && find . | sort)
  start_program "$PROGRAM" "$JOURNEY/program.log"
  wait_until "fatal message" message_shows "$MEDIA" Error
  press_ok
  wait_program || true
  expect "the list of files" "$(cd "$SIMULATOR" && find . | sort)" "$before"
}

no_artwork() {
  rm -r "$MEDIA"
  start
  click "${INSTALL_BUTTON[@]}"
  wait_until "history entry" test -s "$PROGRAM/Data/History.nbh"
  point 20 590
  wait_until "closing message" plain_checkmark_stands
  press_ok
  exit_program
  expect_installed 0
  expect_cumulus 512 DXT3
}
# Without artwork the dialog is one plain colour below the progress bar, but for the checkmark.
plain_checkmark_stands() {
  find_window "$MESSAGE_TITLE" || return 1
  grab "$JOURNEY/ok.png" 335 270 44 20
  (($(identify -format %k "$JOURNEY/ok.png") > 1))
}

read_only_texture() {
  local file="$SIMULATOR/Texture/sky_day_n.bmp" before
  before=$(sha256sum "$file")
  chmod 444 "$file"
  start
  press_install "$MEDIA"
  press_ok
  point 20 20
  wait_until "message of what was kept" message_shows "$MEDIA" Exclamation
  press_ok
  wait_until "end of the messages" no_window "$MESSAGE_TITLE"
  exit_program
  expect "the read-only file" "$(sha256sum "$file")" "$before"
  cmp "$PROGRAM/Data/Sky/Day.0/sky_day_n.bmp" "$file" >/dev/null && fail "nothing was to be refused"
  rm -f "$file" "$PROGRAM/Data/Sky/Day.0/sky_day_n.bmp"
  expect_installed 0
}

closed_by_the_window_manager() {
  start
  click "${FAST_LABEL[@]}"
  xdotool key --clearmodifiers alt+F4
  wait_program || fail "the program ended with status $?"
  expect useLowRes "$(value_of "$CFG" useLowRes)" 1
}

killed_during_an_install() {
  local first="$SIMULATOR/Scenery/World/Texture/water_coast.bmp" before
  touch "$SIMULATOR/Texture/~nimbrel-0-0.tmp"
  cp "$SIMULATOR/Texture/cumulus01.bmp" "$JOURNEY/old.bmp"
  before=$(sha256sum "$first")
  start
  click "${INSTALL_BUTTON[@]}"
  # In slices, so that the run cannot reach its end unseen.
  while [[ $(sha256sum "$first") == "$before" ]]; do
    kill -CONT "$PROGRAM_PID"
    sleep 0.005
    kill -STOP "$PROGRAM_PID"
    ((SECONDS < 2 * STEP_SECONDS)) || fail "the install did not begin"
  done
  stop_program
  cmp "$JOURNEY/old.bmp" "$SIMULATOR/Texture/cumulus01.bmp" || fail "the install was over too soon"
  start
  press_install "$MEDIA"
  press_ok
  exit_program
  expect_installed 0
  no_temporaries
}

lay_out "$2" "$3"
"$1"
