#!/usr/bin/env bash
# pictures.sh: makes the pictures of the README and the help in docs/pictures anew, from the real
# program in the demo. Nothing else should run meanwhile: a turn of a ring is recorded as it happens.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
. tools/screen.sh

need_packages "${BUILD_PACKAGES[@]}" "${SCREEN_PACKAGES[@]}"
build=${BUILD:-build/release}
if [[ -z ${BUILD:-} ]]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
  cmake --build "$build" --target nimbrel nimbrel-demo
fi
output=$PWD/docs/pictures
# In memory where that can be: the screen itself and the frames of a turn.
work=$(mktemp -d -p "$([[ -d /dev/shm ]] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")
trap 'stop_screen; rm -rf "$work"' EXIT
trap 'exit 130' INT TERM
mkdir -p "$work/screen" "$work/frames"

program="$work/demo/Flight Simulator 9/Modules/Nimbrel"
MEDIA="$program/Media"
SCREEN_OPTIONS=(-fbdir "$work/screen")
start_screen "$work/run"
"$build/demo/nimbrel-demo" "$work/demo"
install -m 755 "$build/nimbrel" "$program/nimbrel"
start_program "$program" "$work/program.log"
main_window

# keep NAME: saves the main window at rest, with what lies over it, cut to its outline: what is outside
# is black in its artwork. shot NAME: the same without the pointer.
keep() {
  rest WHOLE
  convert "$SCREEN/now.png" \( "$MEDIA/MainInterface.bmp" -fill white +opaque black \) -alpha off \
    -compose CopyOpacity -composite -define png:compression-level=9 "$output/$1.png"
}
shot() {
  leave_windows
  keep "$1"
}

# record_turn BUTTON: appends the pictures that the screen shows during one turn. The
# server's memory is read every few milliseconds. One reading may hold half a picture, so a frame
# counts only if two readings agree.
record_turn() {
  local number last="" sum frame
  point "$1"
  xdotool mousedown 1
  xdotool mouseup 1
  for number in {100..199}; do
    cp "$work/screen/Xvfb_screen0" "$work/frames/raw-$number"
    sleep 0.002
  done
  for number in {100..199}; do
    sum=$(sha256sum <"$work/frames/raw-$number")
    if [[ $sum == "$last" && $sum != "${recorded[-1]}" ]]; then
      recorded+=("$sum")
      frame="$work/frames/frame-${#recorded[@]}.png"
      convert "xwd:$work/frames/raw-$number" -crop "596x450+$((X + 177))+$((Y + 128))" +repage \
        "$frame"
      animation+=(-delay 6 "$frame")
    fi
    last=$sum
  done
  rm "$work/frames/raw-"*
  animation[-2]=120 # the last one stays for a while
}
recorded=(none)  # the sums of the frames
animation=()     # the frames, each with its time in hundredths of a second

press PAGE CLOUDS_BUTTON
press RING STEP_RIGHT
shot clouds
find_corner
for _ in 1 2 3 4; do
  record_turn COUNTERCLOCKWISE
done
((${#recorded[@]} > 10)) || fail "only ${#recorded[@]} pictures of four turns"

press PAGE SKY_BUTTON
press RING STEP_RIGHT
shot sky
press PAGE WATER_BUTTON
press RING STEP_RIGHT
shot water
press PAGE HOME_BUTTON

favorite() { # TITLE LINE
  add_favorite "$1" "$2"
  save_favorite
}
favorite "Winter morning over the fjord" "Thin cirrus, cold light and a calm sea."
favorite "Thunder in the afternoon" "Heavy cumulus, long swell."
add_favorite "Trade wind cumulus" "White clouds on a deep blue sky."
keep add-favorite
save_favorite
main_window
press PAGE FAVORITES_BUTTON
shot favorites
press PAGE RANDOMIZER_BUTTON
shot randomizer
press PAGE CLOUDS_TAB
shot randomizer-clouds
press PAGE HOME_BUTTON
press_install
dismiss Information
shot main
exit_program

convert "${animation[@]}" -resize 75% -colors 192 -layers OptimizePlus -loop 0 "$output/ring.gif"
du -ch "$output"/*.png "$output/ring.gif"
