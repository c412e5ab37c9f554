# shellcheck shell=bash
# What the commands of the repository's root share; to be sourced after `root` is set.

say() { echo "== $*"; }

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# The cache of compilers needs a place.
if [ ! -w "${HOME:-/nonexistent}" ]; then
    export CCACHE_DIR=${root:?}/build/ccache
fi

# buildPreset PRESET [TARGET...] : configures the preset and builds it, or only these targets. What was built when the
# checkout stood elsewhere is of no use here.
buildPreset() {
    local preset=$1 cache configured
    shift
    say "building ($preset)"
    cache=$root/build/$preset/CMakeCache.txt
    if [ -f "$cache" ]; then
        configured=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
        [ "$configured" -ef "$root" ] || rm -rf "$root/build/$preset"
    fi
    cmake --preset "$preset" -S "$root" --log-level=WARNING >/dev/null || fail "cannot configure preset $preset"
    cmake --build "$root/build/$preset" --parallel "$(nproc)" ${1:+--target "$@"} || fail "preset $preset does not build"
}
