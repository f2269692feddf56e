# shellcheck shell=bash
# Journeys of the rings, of the two switches of the cloud texture and of the history.

# step TIMES: that many options on, in the group in front.
step() {
  local i
  for ((i = 0; i < $1; i++)); do
    press "a step" "$RING" "${STEP_RIGHT[@]}"
  done
}
# turn X Y [TIMES]
turn() {
  local i
  for ((i = 0; i < ${3:-1}; i++)); do
    press "a turn" "$RING" "$1" "$2"
  done
}

changed_on_each_ring() {
  local plain
  plain=$(sha256sum <"$SIMULATOR/Texture/cumulus01.bmp")
  start
  press "the clouds" "$PAGE" "${CLOUDS_BUTTON[@]}"
  step 2
  turn 210 447
  step 1
  turn 740 447 2
  step 3
  press "the skies" "$PAGE" "${SKY_BUTTON[@]}"
  turn 671 288
  step 2
  turn 284 288 2
  step 1
  press "the waters" "$PAGE" "${WATER_BUTTON[@]}"
  step 1
  turn 210 447
  step 2
  turn 210 447
  step 4
  press "a step back" "$RING" "${STEP_LEFT[@]}"
  press "the main page" "$PAGE" "${HOME_BUTTON[@]}"
  install_now
  exit_program
  expect "the choice" "$(newest_entry)" "0 2 0 1 3 1 2 3 0 2 0 1 1 1"
  expect_newest_entry
  [[ $(sha256sum <"$SIMULATOR/Texture/cumulus01.bmp") != "$plain" ]] || fail "the old clouds are still in place"
}

both_switches_of_the_cloud_texture() {
  start
  click "${DXT_LABEL[@]}"
  install_now
  expect_cumulus 512 none
  main_window
  click "${FAST_LABEL[@]}"
  click "${DXT_LABEL[@]}"
  install_now
  expect_cumulus 256 DXT3
  exit_program
  expect useDXT "$(value_of "$CFG" useDXT)" 1
  expect useLowRes "$(value_of "$CFG" useLowRes)" 1
}

# find_open_list: sets WINDOW to the list that the history's box has opened, which bears the name of
# the executable.
find_open_list() {
  for WINDOW in $(xdotool search --onlyvisible --class nimbrel 2>/dev/null); do
    [[ $(xdotool getwindowname "$WINDOW") != nimbrel ]] || return 0
  done
  return 1
}
no_open_list() { ! find_open_list; }

history_loaded_from_its_list() {
  local WIDTH=0 HEIGHT=0
  { record 1 1; record 3 0; record 2 1; } >"$PROGRAM/Data/History.nbh"
  start
  click "${HISTORY_LIST[@]}"
  wait_until "list of the history" find_open_list
  eval "$(xdotool getwindowgeometry --shell "$WINDOW" | grep -E '^(WIDTH|HEIGHT)=[0-9]+$')"
  sleep 0.3
  click $((WIDTH / 2)) $((HEIGHT * 5 / 6)) # the last of three rows, the oldest entry
  wait_until "end of the list" no_open_list
  main_window
  click "${HISTORY_BUTTON[@]}"
  dismiss Information
  install_now
  exit_program
  expect_installed 1
  expect "size of the history" "$(stat -c %s "$PROGRAM/Data/History.nbh")" 144
  expect "the choice" "$(newest_entry)" "0 1 1 1 1 1 1 1 1 1 1 1 1 1"
  expect_newest_entry
}
