#!/usr/bin/env bash
# usage: validate.sh PACKAGING-FOLDER BUILD-FOLDER VERSION
# Validates the desktop entry, the metadata and the manual pages, and that the changelog begins with
# the version.
set -euo pipefail
failed=0
complain() {
  echo "$*" >&2
  failed=1
}

desktop-file-validate "$1"/*.desktop || failed=1
appstreamcli validate --no-net --no-color "$2"/*.metainfo.xml || failed=1
for page in "$2"/*.1; do
  warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [[ -z $warnings ]] || complain "$page: $warnings"
done
head -n 1 "$1/changelog" | grep -qF "($3)" || complain "the changelog does not begin with $3"
exit $failed
