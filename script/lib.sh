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

# The two builds that the tests run. The reports of the sanitizers name lines; the rest of the debug
# information takes a fifth of the build time.
build_tested() {
    build dev -DFRIMBOLATE_BATCHES=ON -DCMAKE_CXX_FLAGS_DEBUG=-g0
    build asan -DFRIMBOLATE_BATCHES=ON -DCMAKE_CXX_FLAGS_DEBUG=-g1 \
        "-DCMAKE_CXX_COMPILER=$(clang_compiler)"
}
