# shellcheck shell=bash disable=SC2034
# A copy of the demo for one journey, and checks of the files afterwards. To be sourced after
# tools/screen.sh.

# lay_out PROGRAM DEMO: a folder, a copy of the demo in it, the executable beside the demo's data, and
# a screen. Sets JOURNEY, SIMULATOR, PROGRAM, MEDIA, CFG and HISTORY.
lay_out() {
  JOURNEY=$(mktemp -d)
  trap 'leave $?' EXIT
  trap 'exit 130' INT TERM
  start_screen "$JOURNEY/screen"
  cp -a "$2/." "$JOURNEY"
  SIMULATOR="$JOURNEY/Flight Simulator 9"
  PROGRAM="$SIMULATOR/Modules/Nimbrel"
  MEDIA="$PROGRAM/Media"
  CFG="$PROGRAM/NB_Information.cfg"
  HISTORY="$PROGRAM/Data/History.nbh"
  install -m 755 "$1" "$PROGRAM/nimbrel"
}

# leave STATUS: tidies up; after a failure it saves what the screen shows.
leave() {
  if (($1 != 0)) && [[ -n ${DISPLAY:-} ]]; then
    local sight
    sight=$(mktemp --suffix=.png nimbrel-journey-XXXXXX)
    import -silent -window root "$sight" && echo "the screen at the failure: $PWD/$sight" >&2
    cat "$JOURNEY/program.log" >&2 2>/dev/null
  fi
  stop_screen
  chmod -R u+w "$JOURNEY" && rm -rf "$JOURNEY"
  exit "$1"
}

start() {
  start_program "$PROGRAM" "$JOURNEY/program.log"
  main_window
}

# install_now: Save and Install, to the end of its message.
install_now() {
  press_install
  dismiss Information
}

# everything FOLDER: its files and folders by name, and the files' sums.
everything() { (cd "$1" && find . -printf '%y %p\n' | sort && find . -type f -exec sha256sum {} + | sort -k 2); }
# simulator_sums: the sums of the simulator's files outside Modules, sorted by name.
simulator_sums() {
  (cd "$SIMULATOR" && find . -path ./Modules -prune -o -type f -print0 | sort -z | xargs -0 sha256sum)
}

expect() { # WHAT ACTUAL EXPECTED
  [[ $2 == "$3" ]] || fail "$1 is '$2' instead of '$3'"
}
expect_entries() { expect "size of the history" "$(stat -c %s "$HISTORY")" $((36 * $1)); }

# expect_set SET TARGET: the simulator's folder holds every file of that folder of Data.
expect_set() {
  local file
  for file in "$PROGRAM/Data/$1"/*; do
    cmp "$file" "$SIMULATOR/$2/${file##*/}" || fail "$2/${file##*/} is not that of $1"
  done
}

# expect_sets CIRRUS SUNRISE DAY SUNSET NIGHT BASE ENVIRONMENT WAVES: these sets are in place, and
# what every install brings.
expect_sets() {
  local sets=("Cirrus/Set.$1" "Sky/Sunrise.$2" "Sky/Day.$3" "Sky/Sunset.$4" "Sky/Night.$5") set
  for set in "${sets[@]}" Clouds/Cld Clouds/cumulus Clouds/stratus; do
    expect_set "$set" Texture
  done
  expect_set "Water/Base.$6" Scenery/World/Texture
  expect_set "Water/Environment.$7" Scenery/World/Texture
  expect_set "Water/Waves.$8" Effects/Texture
  cmp "$PROGRAM/TempBitmaps/cumulus01.bmp" "$SIMULATOR/Texture/cumulus01.bmp" ||
    fail "the composed cloud texture is not in place"
}
# expect_installed OPTION: the sets of that option of every group.
expect_installed() { expect_sets "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$1"; }

# expect_switches SUN CONTRAILS: the simulator's files are as those two switches ask.
expect_switches() {
  local short=1.50,1.50 long=30.50,30.50
  (($2 == 0)) || short=180.0,180.0 long=180.0,180.0
  if (($1 == 1)); then expect_set Sun Texture; else expect_set ../Backups/TEX Texture; fi
  expect "short contrail" "$(contrail_life "$SIMULATOR/Effects/fx_contrail_s.fx")" $short
  expect "long contrail" "$(contrail_life "$SIMULATOR/Effects/fx_contrail_L.fx")" $long
}

# newest_entry: the numbers of the newest history entry after its date: source, solid, wispy,
# stratus, cirrus, base, environment, waves, sunrise, day, sunset, night, sun, contrails.
newest_entry() { tail -c 28 "$HISTORY" | od -A n -t d2 -w28 | xargs; }

# expect_newest_entry: what the newest history entry says is what is installed.
expect_newest_entry() {
  local numbers
  read -r -a numbers <<<"$(newest_entry)"
  expect_sets "${numbers[4]}" "${numbers[@]:8:4}" "${numbers[@]:5:3}"
  expect_switches "${numbers[@]:12:2}"
}

# expect_cumulus WIDTH COMPRESSION BYTES: the head of the texture in place, and the size of its pixels.
expect_cumulus() {
  local file="$SIMULATOR/Texture/cumulus01.bmp"
  expect "width of the texture" "$(od -A n -t u4 -j 18 -N 4 "$file" | xargs)" "$1"
  expect "compression" "$(od -A n -t x1 -j 30 -N 4 "$file" | xargs)" "$2"
  expect "the texture's extension" "$(tail -c +55 "$file" | head -c 4)" FS70
  expect "size of the texture" "$(stat -c %s "$file")" $(($3 + 74))
}

# record INDEX SWITCH [SOURCE]: one record with that index in all groups and both switches so, of a
# day in May.
record() {
  local i
  printf '\0\0\0\0\0\0\346\100'
  for i in "${3:-0}" "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$2" "$2"; do
    printf '%b' "\\x0$i\\0"
  done
}

no_temporaries() {
  local left
  left=$(find "$SIMULATOR" -name '~nimbrel-*.tmp')
  [[ -z $left ]] || fail "left over: $left"
}
