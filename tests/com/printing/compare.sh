#!/usr/bin/env bash
# compare.sh PROGRAM FOLDER : the same pages as the control prints them on Windows (by PROGRAM) and as the Qt face
# prints them into a file must look the same. The pictures are left in FOLDER.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
program=$1
folder=$2
document=1001
pages=2
most=0.04 # of the difference between black and white, on average

fail() {
    echo "compare: $*" >&2
    exit 1
}

# differenceOf A B : of both made small, so that the form of a hairline does not matter.
differenceOf() {
    convert "$1" -resize 20% "$folder/a.png"
    convert "$2" -resize 20% "$folder/b.png"
    { compare -metric RMSE "$folder/a.png" "$folder/b.png" null: 2>&1 || true; } | sed 's/.*(\(.*\))/\1/'
}

rasterise() {
    gs -q -dBATCH -dNOPAUSE -dSAFER -sDEVICE=pnggray -r300 \
        "-sOutputFile=$folder/$1-%d.png" "$2" >"$folder/$1.log" 2>&1 || fail "ghostscript: $(cat "$folder/$1.log")"
}

rm -rf "$folder"
mkdir -p "$folder"
"$root/cmake/windows/run.sh" "$program" "$document" "$pages" >"$folder/windows.ps" 2>"$folder/windows.log" ||
    fail "nothing is printed on Windows: $(cat "$folder/windows.log")"
# shellcheck disable=SC2016
"$root/cmake/with-engine.sh" sh -c 'QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 "$0" --engine "$PIXMO_ENGINE" "$@"' \
    "$root/build/release/bin/pixmo" --doc "$document" --pages "1-$pages" --caption "Caption of the comparison" \
    --print-to "$folder/qt.pdf" >"$folder/qt.log" 2>&1 || fail "nothing is printed by Qt: $(cat "$folder/qt.log")"
rasterise windows "$folder/windows.ps"
rasterise qt "$folder/qt.pdf"
for ((page = 1; page <= pages; page++)); do
    difference=$(differenceOf "$folder/windows-$page.png" "$folder/qt-$page.png")
    echo "page $page differs by $difference"
    awk -v d="$difference" -v most="$most" 'BEGIN { exit !(d <= most) }' || fail "page $page does not look the same"
done
[ ! -e "$folder/windows-$((pages + 1)).png" ] || fail "there are more pages than were asked for"
other=$(differenceOf "$folder/windows-1.png" "$folder/qt-2.png")
awk -v d="$other" -v most="$most" 'BEGIN { exit !(d > 2 * most) }' || fail "different pages differ by $other only"
