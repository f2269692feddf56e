#!/usr/bin/env bash
# journey.sh COMMAND PROGRAM DEMO: Nimbrel gets into a bare simulator by its own command, is used there
# on a screen, and leaves no trace.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
. "$here/../../tools/screen.sh"
. "$here/../outside/support.sh"

# everything FOLDER: its files and folders by name, and the files' sums.
everything() { (cd "$1" && find . -printf '%y %p\n' | sort && find . -type f -exec sha256sum {} + | sort -k 2); }
expect_all() { # WHAT FILE
  everything "$SIMULATOR" | diff "$2" - >&2 || fail "$1"
}
ctl() { # SUBCOMMAND: without a display
  env -u DISPLAY -u WAYLAND_DISPLAY "$JOURNEY/from/nimbrelctl" "$1" --yes "$SIMULATOR" >&2
}
use() { # installs once
  start
  install_now
  exit_program
}

lay_out "$2" "$3"
mkdir "$JOURNEY/from"
mv "$PROGRAM" "$JOURNEY/from/pack"
rm -r "$SIMULATOR/Modules"
cp "$1" "$2" "$JOURNEY/from"
everything "$SIMULATOR" >"$JOURNEY/before"
sums=$(simulator_sums)

ctl setup
use
expect_installed 0
record 3 0 >>"$PROGRAM/Data/History.nbh"
use
expect_installed 3
expect_switches 0 0
ctl restore
expect "the simulator after restore" "$(simulator_sums)" "$sums"
use
ctl remove
expect_all "not as it was after remove" "$JOURNEY/before"
