#!/usr/bin/env bash
# idle_memory.sh PROGRAM GENERATOR: lays out a demo, starts the program in it on a screen of its own
# and holds what it keeps in memory, once its window stands, against its pictures' pixels at 4 bytes.
# Fails above 1.25 times the pictures plus 60 MiB.
set -euo pipefail
program_file=$(readlink -f "$1")
generator=$(readlink -f "$2")
. "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../tools/screen.sh"

work=$(mktemp -d)
trap 'stop_screen; rm -rf "$work"' EXIT
trap 'exit 130' INT TERM

"$generator" "$work/demo" >/dev/null
program="$work/demo/Flight Simulator 9/Modules/Nimbrel"
install -m 755 "$program_file" "$program/nimbrel"
start_screen "$work"
start_program "$program" "$work/program.log"
main_window
sleep 2

pixels=$(identify -format '%[fx:w*h]\n' "$program/Media/Screen Shots/"*.bmp | awk '{ sum += $1 } END { print sum }')
resident=$(awk '/^VmRSS/ { print $2 }' "/proc/$PROGRAM_PID/status")
shared=$(awk '/^Rss(File|Shmem)/ { sum += $2 } END { print sum }' "/proc/$PROGRAM_PID/status")
awk -v resident="$resident" -v shared="$shared" -v pixels="$pixels" 'BEGIN {
  pictures = pixels * 4 / 1048576
  bound = 1.25 * pictures + 60
  printf "%.1f MiB of it code and files, pictures %.1f MiB\n", shared / 1024, pictures >"/dev/stderr"
  printf "Memory of the idle program\t%.1f MiB\t%.1f MiB, 1.25 x its pictures + 60\t%.2f\t1.00\n",
         resident / 1024, bound, resident / 1024 / bound
  exit resident / 1024 > bound
}'
