#!/usr/bin/env bash
# check-files.sh : the rules that every file of the house keeps. Names each file that breaks one.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
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

# Rooms may include what the table of docs/architecture.md allows. That the check refuses anything else is seen in a
# house of empty rooms, into which one forbidden include is put after the other.
checkRooms() {
    cmake -P cmake/PixmoChecks.cmake || status=1
    local house file header said
    house=$(mktemp -d)
    cp -r --parents docs/architecture.md "$house"
    grep -oP '^\| \x60\K[a-z/]+(?=\x60)' docs/architecture.md | (cd "$house" && xargs mkdir -p)
    (cd "$house" && cmake -P "$root/cmake/PixmoChecks.cmake") || bad "PixmoChecks.cmake refuses empty rooms"
    while read -r file header; do
        echo "#include $header" >"$house/$file"
        said=$(cd "$house" && cmake -P "$root/cmake/PixmoChecks.cmake" 2>&1)
        [[ $said == *"$file"* ]] || bad "PixmoChecks.cmake lets $file include $header"
        rm "$house/$file"
    done <<'END'
core/base/up.h "core/platform/clock.h"
core/imaging/beside.h "core/protocol/cclienthandlers.h"
core/diag/outside.h <QString>
codecs/up.h "core/control/imageview.h"
faces/qt/ports/up.h "faces/qt/windows/dialogwindow.h"
faces/com/ports/across.h "faces/qt/ports/networkreader.h"
END
    rm -r "$house"
}

checkLengths
checkScripts
checkRooms
cmake/check-faces.sh || status=1
cmake/check-members.sh || status=1
checkMarkers
checkDocuments
exit "$status"
