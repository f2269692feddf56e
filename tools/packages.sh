# shellcheck shell=bash disable=SC2034
# What the commands need from Debian 12. To be sourced.

# Building the program, and the demo's pictures.
BUILD_PACKAGES=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-svg-dev
  libgl-dev libcanberra-dev libsquish-dev libssl-dev libicu-dev fonts-dejavu-core)
# A screen without a monitor, a window manager on it, and tools to press buttons and compare pictures.
SCREEN_PACKAGES=(xvfb openbox xdotool x11-utils imagemagick)
FUZZ_PACKAGES=(clang-14 libclang-rt-14-dev)
COVERAGE_PACKAGES=(llvm-14)
BENCH_PACKAGES=(libbenchmark-dev libstb-dev)
# Validators of the package's menu entry, metadata and manual pages.
VALIDATE_PACKAGES=(desktop-file-utils appstream man-db groff-base)
TEST_PACKAGES=(libgtest-dev libgmock-dev python3 clang-format-14 clang-tidy-14 shellcheck
  "${FUZZ_PACKAGES[@]}" "${VALIDATE_PACKAGES[@]}")

# need_packages NAME...: installs those that are missing; uses the network only then.
need_packages() {
  local package missing=() as_root=()
  if ! command -v dpkg-query >/dev/null; then
    echo "Not a Debian system. Assuming that these packages or their like are installed: $*" >&2
    return 0
  fi
  for package; do
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "Missing packages: ${missing[*]}. Install them, or start this as root." >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing from Debian: ${missing[*]}" >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o Acquire::Retries=3 \
    -o DPkg::Lock::Timeout=300 update
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends \
    -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300 install "${missing[@]}"
}
