# What the project needs of a system, and where the system has it. Sourced by lib.sh.
# shellcheck shell=bash

# The names are those of Debian 12. `a|b` is the first of both that the system has. `{14}` is the
# version that the project is developed with; a system without it gives its newest. `{clang}` is the
# version of clang that was chosen. `?` marks what the project can go without.
# shellcheck disable=SC2034
{
    program_packages=(cmake fonts-dejavu-core fonts-inter g++ libacl1-dev libcli11-dev
        'libqt6svg6|libqt6svg6t64'
        libxcb1-dev ninja-build qt6-base-dev 'qt6-svg-dev|libqt6svg6-dev')
    [[ -z ${WAYLAND_DISPLAY:-} ]] || program_packages+=(qt6-wayland)
    # A virtual desktop, and the tools that drive the program on it.
    desktop_packages=(at-spi2-core dbus-daemon imagemagick openbox python3-pyatspi
        python3-pytest x11-utils xdotool xvfb)
    # Other versions of clang-format, clang-tidy and cppcheck decide otherwise.
    test_packages=('clang-{14}' 'clang-format-14?' 'clang-tidy-14?' 'cppcheck?' dbus-daemon
        libbenchmark-dev 'libc++-{16}-dev' 'libclang-rt-{clang}-dev|libclang-common-{clang}-dev' libgmock-dev libgtest-dev
        libxml2-utils python3 python3-yaml)
    # What script/bench counts with, and what it compares with beside Python's own.
    bench_packages=(libexpat1-dev valgrind)
    # The tools that build the package and check it.
    package_packages=(appstream desktop-file-utils dpkg-dev lintian man-db mandoc python3)
    # On macOS, beside Xcode's command line tools.
    brew_packages=(cli11 cmake google-benchmark googletest ninja qt)
}
least_qt=6.4

# first_of <names> <wanted>: the name in the list that matches a wanted one without `|` and `?`.
first_of() {
    local names=$1 wanted=$2 before after version
    if [[ $wanted =~ ^(.*)\{([0-9]+)\}(.*)$ ]]; then
        before=${BASH_REMATCH[1]} version=${BASH_REMATCH[2]} after=${BASH_REMATCH[3]}
        grep -Fx "$before$version$after" <<<"$names" && return
        version=$(awk -v before="$before" -v after="$after" '
            index($0, before) == 1 && length($0) > length(before after) &&
            substr($0, length($0) - length(after) + 1) == after {
                number = substr($0, length(before) + 1, length($0) - length(before after))
                if (number ~ /^[0-9]+$/ && number + 0 > greatest + 0) greatest = number
            }
            END { print greatest }' <<<"$names")
        [[ -n $version ]] && echo "$before$version$after"
    else
        grep -Fx -- "$wanted" <<<"$names"
    fi
}

# choose_packages <wanted> ...: reads the names of the packages that a system has, and prints the
# chosen ones, one per line. Fails after it has told on standard error what the system lacks.
choose_packages() {
    local names wanted alternatives name chosen clang='' status=0
    names=$(cat)
    for wanted; do
        chosen=
        IFS='|' read -ra alternatives <<<"${wanted%\?}"
        for name in "${alternatives[@]}"; do
            chosen=$(first_of "$names" "${name//\{clang\}/$clang}") && break
        done
        [[ $wanted != 'clang-{'* ]] || clang=${chosen#clang-}
        if [[ -n $chosen ]]; then
            echo "$chosen"
        elif [[ $wanted != *\? ]]; then
            echo "This system has no package $wanted" >&2
            status=1
        fi
    done
    return "$status"
}

# The kind of this system: apt, brew (macOS), or other.
system_kind() {
    if [[ $(uname -s) == Darwin ]]; then
        echo brew
    elif command -v apt-get dpkg-query >/dev/null; then
        echo apt
    else
        echo other
    fi
}

# How many processes to run at once.
processors() {
    getconf _NPROCESSORS_ONLN
}

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

installed_packages() {
    # shellcheck disable=SC2016
    dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u
}

# With none missing it needs neither network nor root.
install_by_apt() {
    local installed chosen missing version
    installed=$(installed_packages)
    choose_packages "${@%\?}" <<<"$installed" >/dev/null 2>&1 && return
    chosen=$(apt-cache pkgnames | choose_packages "$@" 2>/dev/null) || chosen=
    if [[ -z $chosen || -n $(comm -23 <(sort -u <<<"$chosen") <(echo "$installed")) ]]; then
        as_root apt-get -q update
        chosen=$(apt-cache pkgnames | choose_packages "$@") || return
        mapfile -t missing < <(comm -23 <(sort -u <<<"$chosen") <(echo "$installed"))
        echo "Installing ${missing[*]}"
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get -qy install --no-install-recommends "${missing[@]}"
    fi
    # shellcheck disable=SC2016
    version=$(dpkg-query --show --showformat '${Version}' qt6-base-dev)
    dpkg --compare-versions "$version" ge "$least_qt" || {
        echo "Frimbolate needs Qt $least_qt or newer; this system has $version" >&2
        return 1
    }
}

install_by_brew() {
    local missing
    if ! command -v clang++ >/dev/null; then
        echo "Frimbolate needs Xcode's command line tools: call xcode-select --install" >&2
        return 1
    fi
    if ! command -v brew >/dev/null; then
        echo "Frimbolate needs ${brew_packages[*]}; this script installs them through Homebrew," \
            "which is missing" >&2
        return 1
    fi
    missing=$(comm -23 <(printf '%s\n' "${brew_packages[@]}" | sort) <(brew list --formula -1 | sort))
    # shellcheck disable=SC2086
    [[ -z $missing ]] || brew install $missing
}

# The compiler of the sanitized build: clang 14 where there is one, else the newest.
clang_compiler() {
    local version
    if [[ $(system_kind) == brew ]]; then
        echo clang++
    elif command -v clang++-14 >/dev/null; then
        echo clang++-14
    else
        version=$(installed_packages | sed -n 's/^clang-\([0-9]*\)$/\1/p' | sort -n | tail -n 1)
        echo "clang++-$version"
    fi
}

# install_missing <wanted> ...: on macOS, all that brew_packages lists.
install_missing() {
    case $(system_kind) in
    apt) install_by_apt "$@" ;;
    brew) install_by_brew ;;
    other)
        echo "This script installs packages through apt-get or Homebrew; this system has neither." \
            "Frimbolate needs CMake 3.25, Ninja, a compiler for C++20, Qt $least_qt with Widgets, Svg" \
            "and D-Bus, libacl and libxcb; its tests need clang, GoogleTest, Google Benchmark, Xvfb," \
            "openbox, xdotool, ImageMagick, pyatspi and pytest." >&2
        return 1
        ;;
    esac
}
