# Every script of this folder sources this file first.
# shellcheck shell=bash
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=script/packages.sh
source script/packages.sh

# build <preset> [<argument of the configuration> ...]
build() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@"
    cmake --build --preset "$preset"
}
