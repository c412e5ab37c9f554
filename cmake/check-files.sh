#!/usr/bin/env bash
# check-files.sh BUILD : the rules that every file of the house keeps. Names each file that breaks one.
# BUILD is the folder for the objects of the header check; CXX names the compiler.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
objects=$1/headers
cd "$root" || exit 1
rooms=(core codecs faces apps tests bench fuzz)
status=0

bad() {
    echo "$*" >&2
    status=1
}

# A file that grows past 600 lines holds more than one thing.
checkLengths() {
    local file lines
    while IFS= read -r -d '' file; do
        lines=$(wc -l <"$file")
        [ "$lines" -le 600 ] || bad "$file: $lines lines, more than 600"
    done < <(find "${rooms[@]}" cmake samples run test .ci -type f \
        \( -name '*.cpp' -o -name '*.h' -o -name '*.cmake' -o -name CMakeLists.txt -o -name '*.sh' -o -name '*.py' \
        -o -name run -o -name test \) -print0)
}

checkScripts() {
    local file
    while IFS= read -r file; do
        [ -x "$file" ] || bad "$file: a script that is not executable"
    done < <(grep -rlI --include='*.sh' --include='*.py' --include=run --include=test '\A#!' -P -z \
        "${rooms[@]}" cmake samples run test .ci)
}

# What a merge leaves behind where two have changed the same.
checkMarkers() {
    local place
    while IFS= read -r place; do
        bad "$place: a conflict marker"
    done < <(grep -rnIE '^(<{7}|>{7})( |$)|^={7}$' --exclude-dir=.git --exclude-dir=build . | cut -d : -f 1,2)
}

# What the documents point to is there: files and folders, and the tests that are said to show something.
checkDocuments() {
    local document target name suite test
    while IFS=: read -r document target; do
        [ -e "$(dirname "$document")/$target" ] || bad "$document: there is no $target"
    done < <(grep -oHE '\]\([^)#: ]+[./][^)#: ]+\)' ./*.md docs/*.md bench/*.md samples/*.md | sed 's/](//; s/)$//')
    while IFS= read -r name; do
        suite=${name%%.*}
        test=${name#*.}
        grep -rqE "TEST(_[FP])?\($suite, ${test//\**/}" tests || bad "docs/testing.md: there is no test $name"
    done < <(grep -oE '`[A-Z][A-Za-z]+\.[A-Za-z*]+' docs/testing.md | tr -d '`')
}

# Each header compiles alone: it includes what it uses. As an object, so that the compiler cache serves it.
# A header that its own source includes before anything else is proved by a build without precompiled headers
# (preset asan). The control library's headers need its own system and are left to its own build.
checkHeaders() {
    local compile=("${CXX:-g++}" -std=c++20 -fPIC -w "-I$root") without=(faces/com tests/com apps/windows) header flags
    command -v ccache >/dev/null && compile=(ccache "${compile[@]}")
    if flags=$(pkg-config --cflags Qt6Widgets Qt6Network Qt6PrintSupport Qt6Test 2>/dev/null); then
        read -r -a flags <<<"$flags"
        compile+=("${flags[@]}")
    else
        without+=(faces/qt apps/pixmo tests/qt tests/soak bench/view)
    fi
    rm -rf "$objects"
    mkdir -p "$objects"
    while IFS= read -r header; do
        grep -m1 '^#include' "${header%.h}.cpp" 2>/dev/null | grep -qF "\"$header\"" && continue
        echo "#include \"$header\"" >"$objects/${header//\//_}.cpp"
    done < <(find "${rooms[@]}" -name '*.h' | grep -v "${without[@]/#/-e^}")
    (cd "$objects" && find . -name '*.cpp' -print0 | xargs -0 -r -P "$(nproc)" -I{} "${compile[@]}" -c {} -o {}.o) ||
        bad "a header does not compile alone"
}

checkLengths
checkScripts
cmake -P cmake/PixmoChecks.cmake || status=1
cmake/check-faces.sh || status=1
cmake/check-members.sh || status=1
checkMarkers
checkDocuments
checkHeaders
exit "$status"
