# shellcheck shell=bash disable=SC2034
# A demo of its own for one journey and what can be said of it afterwards. To be sourced after
# tools/screen.sh.

# lay_out PROGRAM DEMO: a folder, a copy of the demo in it, the executable alone beside the demo's
# data, and a screen. Sets SIMULATOR, PROGRAM, MEDIA, CFG.
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
  install -m 755 "$1" "$PROGRAM/nimbrel"
}

# leave STATUS: tidies up; a failure leaves the last sight of the screen behind.
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
  press_install "$MEDIA"
  dismiss Information
}

# dismiss KIND: waits for a message of that kind, which is the last one, and for its end.
dismiss() {
  answer "$MEDIA" "$1" "${OK_BUTTON[@]}"
  wait_until "end of the message" no_window "$MESSAGE_TITLE"
}

exit_program() { press_exit || fail "the program ended with status $?"; }

# The files of folder, with their sums, sorted by name. The program's own folder is left out.
simulator_sums() {
  (cd "$SIMULATOR" && find . -path ./Modules -prune -o -type f -print0 | sort -z | xargs -0 sha256sum)
}

expect() { # WHAT ACTUAL EXPECTED
  [[ $2 == "$3" ]] || fail "$1 is '$2' instead of '$3'"
}

# expect_set SET TARGET: every file of a folder under Data lies in the simulator's folder as it is.
expect_set() {
  local file
  for file in "$PROGRAM/Data/$1"/*; do
    cmp "$file" "$SIMULATOR/$2/${file##*/}" || fail "$2/${file##*/} is not that of $1"
  done
}

# expect_sets CIRRUS SUNRISE DAY SUNSET NIGHT BASE ENVIRONMENT WAVES: these sets are in place, and
# what goes with each install.
expect_sets() {
  local period
  expect_set "Cirrus/Set.$1" Texture
  for period in Sunrise Day Sunset Night; do
    shift
    expect_set "Sky/$period.$1" Texture
  done
  expect_set "Water/Base.$2" Scenery/World/Texture
  expect_set "Water/Environment.$3" Scenery/World/Texture
  expect_set "Water/Waves.$4" Effects/Texture
  expect_set Clouds/Cld Texture
  expect_set Clouds/cumulus Texture
  expect_set Clouds/stratus Texture
  cmp "$PROGRAM/TempBitmaps/cumulus01.bmp" "$SIMULATOR/Texture/cumulus01.bmp" ||
    fail "the composed cloud texture is not in place"
}
# expect_installed OPTION: the sets of that option of every group.
expect_installed() { expect_sets "$1" "$1" "$1" "$1" "$1" "$1" "$1" "$1"; }

# expect_switches SUN CONTRAILS: what the two have done to the simulator.
expect_switches() {
  local short=1.50,1.50 long=30.50,30.50
  (($2 == 0)) || short=180.0,180.0 long=180.0,180.0
  if (($1 == 1)); then expect_set Sun Texture; else expect_set ../Backups/TEX Texture; fi
  expect "short contrail" "$(contrail_life "$SIMULATOR/Effects/fx_contrail_s.fx")" $short
  expect "long contrail" "$(contrail_life "$SIMULATOR/Effects/fx_contrail_L.fx")" $long
}

# newest_entry: the numbers of the newest history entry behind its date: source, solid, wispy,
# stratus, cirrus, base, environment, waves, sunrise, day, sunset, night, sun, contrails.
newest_entry() { tail -c 28 "$PROGRAM/Data/History.nbh" | od -A n -t d2 -w28 | xargs; }

# expect_newest_entry: what the newest history entry says is what is installed.
expect_newest_entry() {
  local numbers
  read -r -a numbers <<<"$(newest_entry)"
  expect_sets "${numbers[4]}" "${numbers[@]:8:4}" "${numbers[@]:5:3}"
  expect_switches "${numbers[@]:12:2}"
}

# number FILE OFFSET: the 32-bit number there. letters FILE OFFSET COUNT.
number() { od -A n -t u4 -j "$2" -N 4 "$1" | tr -d ' '; }
letters() { tail -c +$(($2 + 1)) "$1" | head -c "$3"; }

# expect_cumulus WIDTH COMPRESSION: the head and the size of the texture in place; compression is DXT3
# or none.
expect_cumulus() {
  local file="$SIMULATOR/Texture/cumulus01.bmp" bytes=$(($1 * $1))
  expect "width of the texture" "$(number "$file" 18)" "$1"
  expect "the texture's extension" "$(letters "$file" 54 4)" FS70
  if [[ $2 == DXT3 ]]; then
    expect "compression" "$(letters "$file" 30 4)" DXT3
  else
    expect "compression" "$(number "$file" 30)" 0
    bytes=$((bytes * 4))
  fi
  expect "size of the texture" "$(stat -c %s "$file")" $((bytes + 74))
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

# favorite TITLE DESCRIPTION INDEX SWITCH: the bytes of a favourite's file.
favorite() {
  printf '%s' "$1"
  head -c $((255 - ${#1})) /dev/zero
  printf '%s' "$2"
  head -c $((1024 - ${#2})) /dev/zero
  record "$3" "$4" 2
}

no_temporaries() {
  local left
  left=$(find "$SIMULATOR" -name '~nimbrel-*.tmp')
  [[ -z $left ]] || fail "left over: $left"
}
