#!/usr/bin/env bash
# run.sh [RUNS]: builds the fuzzers of every reader and lets each try that many inputs (2000 unless
# told, 1000000 for a long night), from its seeds and from what earlier runs in build/fuzz found. An
# input that breaks a reader is kept as build/fuzz/fuzz/NAME-crash-*.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh

need_packages "${BUILD_PACKAGES[@]}" "${FUZZ_PACKAGES[@]}"
cmake --preset fuzz -DNIMBREL_FUZZ_RUNS="${1:-2000}" >/dev/null
cmake --build --preset fuzz -j "$(nproc)"
ctest --preset fuzz -R '^fuzz/' -j "$(nproc)"
