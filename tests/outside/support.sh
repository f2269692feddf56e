# shellcheck shell=bash
# A demo of its own for one journey and what can be said of it afterwards. To be sourced after
# tools/screen.sh.

# lay_out PROGRAM GENERATOR: a folder, a demo in it, the executable alone beside the demo's data, and
# a screen. Sets SIMULATOR, PROGRAM, MEDIA, CFG.
lay_out() {
  JOURNEY=$(mktemp -d)
  trap 'leave $?' EXIT
  trap 'exit 130' INT TERM
  start_screen "$JOURNEY/screen"
  "$2" "$JOURNEY"
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

# expect_installed OPTION: the sets of that option of every group, and what goes with each install.
expect_installed() {
  local n=$1 period
  expect_set "Cirrus/Set.$n" Texture
  for period in Sunrise Day Sunset Night; do
    expect_set "Sky/$period.$n" Texture
  done
  expect_set "Water/Base.$n" Scenery/World/Texture
  expect_set "Water/Environment.$n" Scenery/World/Texture
  expect_set "Water/Waves.$n" Effects/Texture
  expect_set Clouds/Cld Texture
  expect_set Clouds/cumulus Texture
  expect_set Clouds/stratus Texture
  cmp "$PROGRAM/TempBitmaps/cumulus01.bmp" "$SIMULATOR/Texture/cumulus01.bmp" ||
    fail "the composed cloud texture is not in place"
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

# record INDEX SWITCH: one history entry with that index in all groups and both switches so.
record() {
  local i
  printf '\0\0\0\0\0\0\346\100\0\0'
  for i in 1 2 3 4 5 6 7 8 9 10 11; do
    printf '%b' "\\x0$1\\0"
  done
  printf '%b' "\\x0$2\\0\\x0$2\\0"
}

no_temporaries() {
  local left
  left=$(find "$SIMULATOR" -name '~nimbrel-*.tmp')
  [[ -z $left ]] || fail "left over: $left"
}
