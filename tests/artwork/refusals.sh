#!/usr/bin/env bash
# refusals.sh TOOL SOURCES: the sources as they are become pictures of the right form; each of the
# rows below spoils one of them, and the tool has to say so and fail.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

"$1" "$2" "$work/media" || fail "the sources do not render"
# Bytes 2 to 6 the file's size, 18 and 22 width and height, bottom to top, 28 the depth.
number() { od -A n -t "d$3" -j "$2" -N "$3" "$work/media/$1.bmp" | tr -d ' '; }
while read -r name width height; do
  [[ "$(number "$name" 18 4) $(number "$name" 22 4) $(number "$name" 28 2)" == "$width $height 24" ]] ||
    fail "$name is not $width x $height in 24 bits"
  (($(number "$name" 2 4) == $(stat -c %s "$work/media/$name.bmp"))) || fail "$name is cut short"
done <<'SIZES'
MainInterface 798 603
AddFavorite_BG 500 348
btn_Exit 28 112
btn_Home 142 176
btn_Left 44 176
btn_Save 128 172
icon_Error 100 100
SIZES

# FILE | sed command | what the tool says
while IFS='|' read -r file edit says; do
  rm -rf "$work/sources"
  cp -r "$2" "$work/sources"
  sed -i "$edit" "$work/sources/$file"
  find "$work/sources" -size 0 -delete
  "$1" "$work/sources" "$work/media" 2>"$work/said" && fail "$file spoilt by $edit is taken"
  grep -q "$says" "$work/said" || fail "$file spoilt by $edit: $(cat "$work/said")"
done <<'ROWS'
palette.txt|s/^panel .*/panel blue/|palette.txt: no good line
palette.txt|/^paper /d|the palette has no "paper"
Preview_BG.svg|s/{plate.light}/{plate.lit2}/|Preview_BG.svg: the palette has no "plate.lit2"
Msg_BG.svg|s/<defs>/<defs/|Msg_BG.svg: it does not parse
Sub_BG.svg|s/#page-edge/#page-hedge/|Sub_BG.svg: it does not parse
btn_Left.svg|s/width="44"/width="45"/|btn_Left.svg: it has to be 44 x 44
About_BG.svg|s/xlink:href="#page"/xlink:href="#wordmark"/|About_BG.svg: not opaque
Splash_BG.svg|s/id="outline"/id="line"/|Splash_BG.svg: a window has to have
MainInterface.svg|s/{head}/#000000/|MainInterface.svg: black inside the outline
icon_Sky.svg|d|icon_Sky.svg is missing
ROWS
