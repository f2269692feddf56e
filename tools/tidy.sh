#!/usr/bin/env bash
# tidy.sh [BUILD-FOLDER]: runs clang-tidy on the product's sources with the options of that build
# (build/release by default) and fails on any finding. Skips a source if its object file has not been
# compiled again since clang-tidy last found it clean.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
export build=${1:-build/release}
export clean=$build/tidy # an empty file for each clean source
mkdir -p "$clean"

# The build's object files and the product's sources, each on a line of its own.
pairs=$(awk -v root="$PWD/" '
  /"command":/ { match($0, / -o [^ ]*/); object = substr($0, RSTART + 4, RLENGTH - 4) }
  /"file":/ {
    split($0, part, "\"")
    file = substr(part[4], length(root) + 1)
    if (file ~ /^(src|demo|tools)\//) printf "%s\n%s\n", object, file
  }' "$build/compile_commands.json")
[[ -n $pairs ]]

tidy() { # OBJECT SOURCE
  local stamp=$clean/${1//\//_}
  [[ $stamp -nt $build/$1 && $stamp -nt .clang-tidy ]] && return
  # The number of warnings in system headers is no finding.
  clang-tidy-14 -p "$build" --quiet "$2" 2> >(grep -v ' generated\.$' >&2) && touch "$stamp"
}
export -f tidy
xargs -d '\n' -P "$(nproc)" -n 2 bash -c 'tidy "$@"' tidy <<<"$pairs"
