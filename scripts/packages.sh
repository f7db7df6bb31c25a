# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run and ./test: installs what is missing.

# What the program is built from and runs with.
build_packages=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-svg-dev
  libqcustomplot-dev libgl1-mesa-dev libfftw3-dev libsndfile1-dev
  nlohmann-json3-dev libsoapysdr-dev libasound2-dev libcli11-dev libutfcpp-dev libsqlite3-dev
  libmd4c-dev libmd4c-html0-dev fonts-b612 qt6-qpa-plugins qt6-wayland qt6-translations-l10n)
# A display where there is none, and the picture of it.
picture_packages=(xvfb xauth imagemagick x11-utils)
# What the tests need besides.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev libsm-dev openbox xdotool dbus-x11 at-spi2-core
  gir1.2-atspi-2.0 python3-gi
  soapysdr-module-remote soapyremote-server cups-daemon poppler-utils locales
  python3 python3-xlib git desktop-file-utils appstream groff-base clang libclang-rt-dev lld clang-format clang-tidy)

say() { printf '%s\n' "$*" >&2; }

missing_packages() {
  local package there
  # Asked at once: each question takes as long as all.
  there=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null) || true
  for package in "$@"; do
    [[ $'\n'$there$'\n' == *$'\n'"$package installed"$'\n'* ]] || printf '%s\n' "$package"
  done
}

# install_missing PACKAGE...
install_missing() {
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    say "This is not a Debian or Ubuntu system. Please see that these are installed (names of"
    say "Debian's packages): $*"
    return 0
  fi
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ "${#missing[@]}" -gt 0 ] || return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      say "Missing: ${missing[*]}"
      say "Install them as root: apt-get install ${missing[*]}"
      exit 1
    fi
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  "${as_root[@]}" apt-get update -qq >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
    --no-install-recommends "${missing[@]}" >&2
}
