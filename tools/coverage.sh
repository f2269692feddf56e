#!/usr/bin/env bash
# coverage.sh: runs all tests with coverage counters, the journeys of the real program too, and prints
# how many lines and branches of each layer they reach. Writes what no test reaches to
# build/coverage/missed.txt and every line with its counts to build/coverage/lines.txt. Takes about a
# quarter of an hour.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh

need_packages "${BUILD_PACKAGES[@]}" "${SCREEN_PACKAGES[@]}" "${TEST_PACKAGES[@]}" \
  "${COVERAGE_PACKAGES[@]}"
build=${BUILD:-$PWD/build/coverage}
# Rewritten paths of a compiler cache would separate the counts from the sources.
export CCACHE_BASEDIR=
rm -rf "$build/profiles" && mkdir -p "$build/profiles"
# Counters that are mapped from the file: those of a test that is killed are kept too.
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++-14 -DNIMBREL_TESTS=ON \
  -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping -mllvm -runtime-counter-relocation" >/dev/null
# The build runs the demo and lists the tests. That is no testing, so it is not counted.
LLVM_PROFILE_FILE=/dev/null cmake --build "$build" -j "$(nproc)" >&2
failed=0
LLVM_PROFILE_FILE="$build/profiles/%p%c.profraw" \
  ctest --test-dir "$build" -j "$(nproc)" --output-on-failure >"$build/tests.log" || failed=1
tail -n 20 "$build/tests.log" >&2

# A process that is killed before its counters are set up leaves an empty file.
find "$build/profiles" -name '*.profraw' -size +0 >"$build/profiles.txt"
llvm-profdata-14 merge -f "$build/profiles.txt" -o "$build/all.profdata"
rm -rf "$build/profiles"
objects=()
for program in "$build"/tests/test_* "$build/nimbrel" "$build/nimbrelctl"; do
  [[ -x $program && -f $program ]] && objects+=(-object "$program")
done
# coverage COMMAND OPTION...: llvm-cov for the sources, without the tests. Its log holds warnings about
# inline functions that some program does not use.
coverage() {
  local command=$1
  shift
  llvm-cov-14 "$command" -instr-profile "$build/all.profdata" "${objects[@]:1}" "$@" "$PWD/src" \
    2>>"$build/llvm-cov.log"
}
coverage show -show-branches=count -show-instantiations=false >"$build/lines.txt"

# A file's name ends in a colon; a line is number, count and text between bars, and its branches
# follow it: `Branch (12:7): [True: 0, False: 5]`.
awk -F '|' '
  /^\/.*:$/ { file = substr($0, 1, length($0) - 1) ":"; next }
  /^ *[0-9]+\| *[0-9.kMG]*\|/ {
    number = $1 + 0
    text = $0
    sub(/^[^|]*\|[^|]*\| */, "", text)
    if ($2 ~ /^ *0$/) print file number ": never run: " text
  }
  /Branch \([0-9:]+\): \[True: 0, False: [^0]/ { print file number ": never true: " text }
  /Branch \([0-9:]+\): \[True: [^0][^,]*, False: 0\]/ { print file number ": never false: " text }
' "$build/lines.txt" | sort -t : -k 1,1 -k 2,2n -u >"$build/missed.txt"

# Of each file: regions, functions, lines and branches, each as number, missed, percent.
coverage report | awk '
  function layer(file) {
    sub(/\/.*/, "", file)
    return file
  }
  function share(all, missed) { return all ? sprintf("%5.1f %%", 100 * (all - missed) / all) : "-" }
  function row(name, l, lm, b, bm) {
    printf "%-14s %6d %7d %9s %9d %7d %9s\n", name, l, lm, share(l, lm), b, bm, share(b, bm)
  }
  NF == 13 && $1 ~ /\.(cpp|h)$/ {
    name = layer($1)
    if (!(name in lines)) order[++layers] = name
    lines[name] += $8; lines_missed[name] += $9
    branches[name] += $11; branches_missed[name] += $12
    l += $8; lm += $9; b += $11; bm += $12
  }
  END {
    printf "%-14s %6s %7s %9s %9s %7s %9s\n", "layer", "lines", "missed", "reached", "branches",
           "missed", "reached"
    for (i = 1; i <= layers; ++i) {
      name = order[i]
      row(name, lines[name], lines_missed[name], branches[name], branches_missed[name])
    }
    row("all", l, lm, b, bm)
  }'
exit $failed
