#!/usr/bin/env bash
# usage: validate.sh PACKAGING-FOLDER VERSION
# Validates desktop entry, metadata and manual pages, and that all name the version that is built.
set -euo pipefail
cd "$1"
failed=0
complain() {
  echo "$*" >&2
  failed=1
}

desktop-file-validate nimbrel-setup.desktop || failed=1
appstreamcli validate --no-net --no-color invalid.nimbrel.nimbrel.metainfo.xml || failed=1
for page in nimbrel.1 nimbrel-setup.1; do
  warnings=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [[ -z $warnings ]] || complain "$page: $warnings"
  grep -q "Nimbrel $2" "$page" || complain "$page does not name version $2"
done
grep -q "release version=\"$2\"" invalid.nimbrel.nimbrel.metainfo.xml || complain "no release $2"
head -n 1 changelog | grep -q "($2)" || complain "the changelog does not begin with $2"
exit $failed
