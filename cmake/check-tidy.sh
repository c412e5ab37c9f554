#!/usr/bin/env bash
# check-tidy.sh [ROOM...] : clang-tidy over every room, or over these ("core", "faces/com"). The whole report is in
# build/tidy.log. Neither build it reads has precompiled headers, which clang does not understand; nor does clang know
# some of the compiler's warnings.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/cmake/shell.sh"
tools=i686-w64-mingw32
report=$root/build/tidy.log
status=0

# tidy BUILD ROOMS ARGUMENTS... : checks the build's files in these rooms.
tidy() {
    local build=$1 rooms=$2 here
    shift 2
    here=$(sed 's/[^A-Za-z0-9_/-]/\\&/g' <<<"$root")
    run-clang-tidy-14 -quiet -p "$build" -j "$(nproc)" -extra-arg=-Wno-unknown-warning-option "$@" \
        "^$here/($rooms)/.*\\.cpp\$" >>"$report" 2>&1 || status=1
}

# The folders of the standard library that the Windows compiler uses.
libraryFolders() {
    "$tools-g++-posix" -x c++ -E -v /dev/null 2>&1 | sed -n 's/^ \(.*\/c++\(\/.*\)\?\)$/-extra-arg=-isystem\1/p'
}

# What a build generates for its sources to include.
generate() {
    cmake --build "$1" --parallel "$(nproc)" --target "$2" >/dev/null || fail "$2 cannot be generated"
}

# The rooms that Linux builds and those that only Windows does.
linux=()
windows=()
[ $# -gt 0 ] || set -- core codecs icons faces/scripted faces/qt apps docs tests bench fuzz faces/com apps/windows tests/com
for room in "$@"; do
    case $room in
    faces/com* | apps/windows* | tests/com*) windows+=("$room") ;;
    *) linux+=("$room") ;;
    esac
done

# either ROOM... : a pattern for any of them.
either() { (IFS='|' && echo "$*"); }

mkdir -p "$root/build"
: >"$report"
if [ ${#linux[@]} -gt 0 ]; then
    cmake --preset asan -S "$root" --log-level=WARNING >/dev/null || fail "cannot configure"
    generate "$root/build/asan" pixmo_icons
    tidy "$root/build/asan" "$(either "${linux[@]}")"
fi
if [ ${#windows[@]} -gt 0 ]; then
    cmake --preset windows32-checked -S "$root" -B "$root/build/windows-tidy" -DPIXMO_PRECOMPILE=OFF \
        --log-level=WARNING >/dev/null || fail "cannot configure for Windows"
    generate "$root/build/windows-tidy" vellaneinet2_types
    mapfile -t library < <(libraryFolders)
    # Objects of COM end by Release and nothing else; the type library has a name that the core has too.
    tidy "$root/build/windows-tidy" "$(either "${windows[@]}")" \
        -checks=-cppcoreguidelines-virtual-class-destructor,-bugprone-forward-declaration-namespace \
        "-extra-arg-before=--target=$tools" "${library[@]}"
fi

sed 's/\x1b\[[0-9;]*m//g' "$report" | grep -E '(error|warning): ' | sort -u >&2 || true
[ "$status" -eq 0 ] || say "the whole report is in $report"
exit "$status"
