#!/usr/bin/env bash
# demo.sh GENERATOR DEMO: a second layout is the same byte for byte, and every option of the catalogue
# has its preview and its textures in their forms.
set -euo pipefail
again=$(mktemp -d)
trap 'rm -rf "$again"' EXIT
program="$2/Flight Simulator 9/Modules/Nimbrel"

"$1" "$again"
diff -rq --exclude=TempBitmaps "$2" "$again"

number() { od -A n -t u"$3" -j "$2" -N "$3" "$1" | tr -d ' '; } # FILE OFFSET BYTES
form() { # FILE WIDTH HEIGHT BITS COLOURS: plain rows from the bottom, nothing before or after
  local row=$((($2 * $4 / 8 + 3) / 4 * 4)) start=$((54 + 4 * $5))
  [[ $(number "$1" 10 4),$(number "$1" 18 4),$(number "$1" 22 4),$(number "$1" 28 2),$(stat -c %s "$1") == \
    "$start,$2,$3,$4,$((start + row * $3))" ]] || { echo "wrong form: $1" && exit 1; }
}

options=0
while IFS='=' read -r key value; do
  value=${value//\\//}
  if [[ $key == *Preview.* ]]; then
    form "$program/$value.bmp" 400 300 24 0
    options=$((options + 1))
  elif [[ $value == Data/Cumulus/* ]]; then
    for size in :512 _Fast:256; do
      form "$program/$value${size%:*}.bmp" "${size#*:}" "${size#*:}" 24 0
      form "$program/${value}_a${size%:*}.bmp" "${size#*:}" "${size#*:}" 8 256
    done
  else
    files=("$program/$value"/*.bmp)
    [[ -s ${files[1]} ]] || { echo "no set: $value" && exit 1; }
  fi
done < <(tr -d '\r' <"$program/NB_Information.cfg" | grep -aE '^[a-z]+(Preview|Textures)\.[0-9]+=')
((options >= 55)) || { echo "only $options options" && exit 1; }
