# Shared functions and package lists. Every script of this folder sources it first.
# shellcheck shell=bash
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

program_packages=(cmake fonts-dejavu-core fonts-inter g++ libacl1-dev libqt6svg6 libxcb1-dev
    ninja-build qt6-base-dev qt6-svg-dev)
[[ -z ${WAYLAND_DISPLAY:-} ]] || program_packages+=(qt6-wayland)
# A virtual desktop, and the tools that drive the program on it.
# shellcheck disable=SC2034
desktop_packages=(at-spi2-core dbus-daemon imagemagick openbox python3-pyatspi
    python3-pytest x11-utils xdotool xvfb)
# shellcheck disable=SC2034
test_packages=(clang-14 clang-format-14 dbus-daemon libbenchmark-dev libc++-16-dev libclang-rt-14-dev
    libgmock-dev libgtest-dev libxml2-utils python3)

# The tools that build the package and check it.
# shellcheck disable=SC2034
package_packages=(appstream desktop-file-utils dpkg-dev lintian man-db mandoc python3)

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

# Installs the missing packages. With none missing it needs neither network nor root.
install_missing() {
    local missing=() package
    for package; do
        dpkg-query --show --showformat '${db:Status-Status}' "$package" 2>/dev/null |
            grep -qx installed || missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    echo "Installing ${missing[*]}"
    as_root apt-get -q update
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -qy install --no-install-recommends "${missing[@]}"
}

# build <preset> [<argument of the configuration> ...]
build() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@"
    cmake --build --preset "$preset"
}
