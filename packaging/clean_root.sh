#!/usr/bin/env bash
# clean_root.sh [FOLDER]: tests the package on a fresh Debian 12 that debootstrap makes, in FOLDER if
# given. Builds the package and installs it there by apt. An ordinary user sets Nimbrel up in a demo
# simulator, installs textures by pressing the real button, restores and removes; then the package is
# purged. Fails if anything is missing or left over. Needs root and the network.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
. tools/packages.sh
. tools/screen.sh
. tests/outside/support.sh

need_packages "${BUILD_PACKAGES[@]}" "${SCREEN_PACKAGES[@]}" debootstrap lintian
work=$(mktemp -d)
root=${1:-$work/root}
cleanup() {
  stop_screen
  ! mountpoint -q "$root/proc" || umount "$root/proc"
  rm -rf --one-file-system "$work"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

say() { printf '== %s\n' "$*"; }
inside() { # [chroot's options] COMMAND...
  chroot "${as[@]}" "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 "$@"
}
as=()
as_user() {
  local as=(--userspec=1000:1000)
  inside HOME=/home/user XDG_RUNTIME_DIR=/home/user/run DISPLAY="${DISPLAY:-}" "$@"
}
apt() {
  inside DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Acquire::Retries=3 "$@" \
    >"$work/apt.log" 2>&1 || fail "apt-get $*: $(tail "$work/apt.log")"
}
# The files of the system, without the records of apt and dpkg.
system() {
  local path out=()
  for path in proc sys dev tmp home var/lib/apt var/lib/dpkg var/cache var/log; do
    out+=(-path "./$path" -prune -o)
  done
  (cd "$root" && find . -xdev "${out[@]}" -printf '%y %M %u:%g %p\n' | sort -k 4)
}
ctl() { as_user nimbrelctl "$1" --yes "/home/user/Flight Simulator 9"; }

say "Building the package"
build=${BUILD:-build/package}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DNIMBREL_TESTS=OFF >"$work/build.log"
cmake --build "$build" >>"$work/build.log"
(cd "$build" && rm -f nimbrel_*.deb && cpack -G DEB >>"$work/build.log")
lintian --allow-root --fail-on error,warning "$build"/nimbrel_*.deb

if [[ ! -e $root/etc/debian_version ]]; then
  say "Making a Debian 12"
  debootstrap --variant=minbase bookworm "$root" >"$work/debootstrap.log" ||
    fail "$(tail "$work/debootstrap.log")"
fi
mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
apt update
inside id user >/dev/null 2>&1 || inside useradd -m -u 1000 user
system >"$work/before"

say "Installing it, without recommended packages"
install -m 644 "$build"/nimbrel_*.deb "$root/tmp/nimbrel.deb"
apt install --no-install-recommends /tmp/nimbrel.deb
rm "$root/tmp/nimbrel.deb"
inside dpkg -s nimbrel | grep -E '^(Status|Version|Depends|Installed-Size)'
inside dpkg --verify nimbrel
for program in /usr/bin/nimbrelctl /usr/lib/nimbrel/nimbrel; do
  ! inside ldd "$program" | grep 'not found' || fail "$program lacks a library"
done
as_user nimbrelctl --version
as_user nimbrelctl --help | head -n 3

say "Setting it up in a simulator"
"$build/demo/nimbrel-demo" "$work/demo" >/dev/null
SIMULATOR="$root/home/user/Flight Simulator 9"
PROGRAM="$SIMULATOR/Modules/Nimbrel"
MEDIA="$PROGRAM/Media"
JOURNEY=$work
rm -rf "$SIMULATOR" "$root/home/user/run"
cp -r "$work/demo/Flight Simulator 9" "$SIMULATOR"
rm -r "$SIMULATOR/Modules"
mkdir "$root/home/user/run"
chmod 700 "$root/home/user/run"
chown -R 1000:1000 "$root/home/user"
everything "$SIMULATOR" >"$work/simulator"
ctl setup

say "Using it there"
SCREEN_OPTIONS=(-ac)
start_screen "$work/screen"
start_program() { # FOLDER LOG
  # shellcheck disable=SC2016 # the inner shell's $0
  as_user QT_QPA_PLATFORM=xcb sh -c 'cd "$0" && exec ./nimbrel' "${1#"$root"}" >>"$2" 2>&1 &
  PROGRAM_PID=$!
}
start
install_now
exit_program
expect_installed 0
no_temporaries
stop_screen
unset DISPLAY

say "Restoring and removing"
ctl restore
ctl remove
everything "$SIMULATOR" | diff "$work/simulator" - >&2 || fail "the simulator is not as it was"

say "Purging the package"
apt purge nimbrel
apt autoremove --purge
system | diff "$work/before" - >&2 || fail "the system is not as it was"
! inside dpkg-query -W nimbrel >/dev/null 2>&1 || fail "dpkg still knows the package"
say "Nothing is left over"
