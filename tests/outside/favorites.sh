# shellcheck shell=bash
# Journeys of the favourites.

open_favorites() { press "the favourites" "$PAGE" "${FAVORITES_BUTTON[@]}"; }

# load_favorite KEY...: loads the favourite that the keys reach from the first row of the list.
load_favorite() {
  open_favorites
  click "${FIRST_FAVORITE[@]}"
  (($# == 0)) || press_key "$@"
  click "${LOAD_FAVORITE[@]}"
  dismiss Information
}

favorites_saved_loaded_and_deleted() {
  local file="$PROGRAM/Favorites/Sky_new_two.nbf"
  record 2 1 >"$PROGRAM/Data/History.nbh"
  favorite Alpha "the first" 4 0 >"$PROGRAM/Favorites/Alpha.nbf"
  favorite Beta "the second" 1 1 >"$PROGRAM/Favorites/Beta.nbf"
  start
  add_favorite "Sky (new), two" "calm, clear" "for the coast"
  click "${CONTINUE_BUTTON[@]}"
  dismiss Information
  favorite "Sky (new), two" $'calm, clear\r\nfor the coast' 2 1 >"$JOURNEY/expected.nbf"
  expect "size of the favourite" "$(stat -c %s "$file")" 1315
  # All but the moment of saving, which has the 8 bytes at 1279.
  cmp -n 1279 "$JOURNEY/expected.nbf" "$file"
  cmp -i 1287 "$JOURNEY/expected.nbf" "$file"
  load_favorite
  install_now
  expect_installed 4
  load_favorite End
  install_now
  expect_installed 2
  expect_newest_entry
  open_favorites
  click "${FIRST_FAVORITE[@]}"
  press_key Down
  click "${DELETE_FAVORITE[@]}"
  dismiss Question
  exit_program
  expect "the favourites" "$(ls "$PROGRAM/Favorites")" $'Alpha.nbf\nSky_new_two.nbf'
}
