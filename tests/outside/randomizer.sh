# shellcheck shell=bash
# Journeys of the randomizer.

# leave_last_row X Y PREFIX: unticks all rows of a list but the last; the first of them stands there.
leave_last_row() {
  local i
  press "a row" "$PAGE" "$1" "$2"
  for ((i = $(value_of "$CFG" "num${3^}"); i > 1; i--)); do
    press_key Down space
  done
}

# allowed PREFIX: the options of a group that the information file leaves to the randomizer.
allowed() { tr -d '\r' <"$CFG" | sed -n "s/^$1InhibitRandomizer\.\([0-9]*\)=0$/\1/p" | xargs; }

# randomize: from the overview, to the end of the last message.
randomize() {
  click "${RANDOMIZE_BUTTON[@]}"
  answer "$MEDIA" Question "${OK_BUTTON[@]}"
  point 20 20 # off the checkmark, so that it shows as enabled
  dismiss Information
}

# expect_constrained ENTRIES: the lists' only choices are on disk as constraints, as the newest entry
# of a history that long, and in the simulator.
expect_constrained() {
  local day solid
  day=$(allowed day)
  solid=$(allowed solid)
  [[ $day == [0-9] && $solid == [0-9] ]] || fail "the days '$day' and the clouds '$solid' are left"
  expect "the day left" "$(value_of "$CFG" "dayTitle.$day")" \
    "$(sed -n 's/^dayTitle\.[0-9]*=//p' "$CFG" | tr -d '\r' | sort -f | tail -n 1)"
  expect "source, cloud, day and sun" "$(newest_entry | cut -d ' ' -f 1,2,10,13)" "1 $solid $day 0"
  expect "the sun's constraint" "$(value_of "$CFG" sunInhibitRandomizer)" 1
  expect_newest_entry
  expect "size of the history" "$(stat -c %s "$PROGRAM/Data/History.nbh")" $((36 * $1))
  no_temporaries
}

randomized_within_constraints() {
  start
  press "the randomizer" "$PAGE" "${RANDOMIZER_BUTTON[@]}"
  press "the clouds" "$PAGE" "${CLOUDS_TAB[@]}"
  leave_last_row "${FIRST_SOLID[@]}" solid
  press "the skies" "$PAGE" "${SKY_TAB[@]}"
  leave_last_row "${FIRST_DAY[@]}" day
  press "the sun's box" "$PAGE" "${RANDOM_SUN[@]}"
  press "the overview" "$PAGE" "${OVERVIEW_TAB[@]}"
  randomize
  exit_program
  expect_constrained 1
  start
  press "the randomizer" "$PAGE" "${RANDOMIZER_BUTTON[@]}"
  randomize
  exit_program
  expect_constrained 2
}

OVERVIEW='177 128 596 370' # down to its buttons, of which the pressed one stays lit

randomize_declined() {
  local before
  before=$(simulator_sums)
  cp "$CFG" "$JOURNEY/before.cfg"
  start
  press "the randomizer" "$PAGE" "${RANDOMIZER_BUTTON[@]}"
  look "$JOURNEY/overview.png" "$OVERVIEW"
  click "${RANDOMIZE_BUTTON[@]}"
  answer "$MEDIA" Question "${CANCEL_BUTTON[@]}"
  wait_until "end of the question" no_window "$MESSAGE_TITLE"
  wait_until "the overview as it was" looks_like "$JOURNEY/overview.png" "$OVERVIEW"
  exit_program
  expect "the simulator" "$(simulator_sums)" "$before"
  cmp "$CFG" "$JOURNEY/before.cfg"
  [[ ! -e $PROGRAM/Data/History.nbh ]] || fail "a history was written"
}
