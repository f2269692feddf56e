#!/usr/bin/env bash
# links.sh PROGRAM...: fails if a program needs a library of the desktop.
set -euo pipefail
for program in "$@"; do
  needed=$(ldd "$program")
  if grep -E 'Qt|GL|libX|wayland|canberra' <<<"$needed"; then
    exit 1
  fi
done
