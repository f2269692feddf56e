#!/usr/bin/env bash
# table.sh: builds all benchmarks as released, runs one after the other and prints one table: figure,
# ours, what it is held against in the same run, the ratio of the two, the highest ratio that is good
# enough, and whether it was met. What else they say goes to build/release/bench/*.log. Fails when a
# bound was not met. Nothing else should run meanwhile: what waits for the disk or for its turn on a
# busy machine tells of its neighbours. So the table begins with the machine's load.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh

need_packages "${BUILD_PACKAGES[@]}" "${SCREEN_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${BENCH_PACKAGES[@]}"
build=${BUILD:-build/release}
if [[ -z ${BUILD:-} ]]; then
  cmake --preset release -DNIMBREL_BENCH=ON >/dev/null
  cmake --build --preset release -j "$(nproc)" >&2
fi

printf 'load before: %s, of %s processors\n\n' "$(cut -d ' ' -f 1-3 /proc/loadavg)" "$(nproc)"
status=0
# figures NAME COMMAND...: the lines that the benchmark gives, and its name when it failed.
figures() {
  local name=$1
  shift
  "$@" 2>"$build/bench/$name.log" || {
    status=1
    printf '%s ended with failure: %s\n' "$name" "$build/bench/$name.log" >&2
  }
}
lines=$(mktemp)
trap 'rm -f "$lines"' EXIT
export QT_QPA_PLATFORM=offscreen
for bench in "$build"/bench/*_bench; do
  arguments=()
  # It looks for leaks as well, an eighth of a second a turn; here the times alone count.
  [[ $bench != */ring_bench ]] || arguments=(50)
  figures "$(basename "$bench")" "$bench" "${arguments[@]}" >>"$lines"
done
figures idle_memory bench/idle_memory.sh "$build/nimbrel" "$build/demo/nimbrel-demo" >>"$lines"

awk -F '\t' 'NF != 5 { next }
  { met = $5 == "-" ? "" : $4 <= $5 ? "met" : "NOT MET"
    printf "%-70s %12s   %-52s %7s %7s  %s\n", $1, $2, $3, $4, $5, met
    if (met == "NOT MET") missed = 1 }
  BEGIN { printf "%-70s %12s   %-52s %7s %7s\n", "figure", "ours", "beside", "ratio", "bound" }
  END { exit missed }' "$lines" || status=1
exit "$status"
