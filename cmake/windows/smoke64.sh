#!/usr/bin/env bash
# smoke64.sh : builds the control library for 64-bit Windows and uses it in 64-bit Wine: it is registered, a script and
# a program open a document with it, and it is taken out of the registry again.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
. "$root/cmake/shell.sh"
programs=$root/build/windows64/bin

if [ "${1:-}" != inside ]; then
    "$root/cmake/install-packages.sh" windows windows64 screen
    buildPreset release engine
    buildPreset windows64
    exec "$root/cmake/with-engine.sh" "$root/cmake/with-screen.sh" 1400x1100 "$0" inside
fi

scratch=$(mktemp -d)
export WINEPREFIX=$scratch/prefix WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' LC_ALL=C.UTF-8
finish() {
    /usr/lib/wine/wineserver -k || true
    rm -rf "$scratch"
}
trap finish EXIT

wine() { timeout -k 10 "${limit:-120}" /usr/lib/wine/wine64 "$@"; }

# expect TEXT COMMAND... : the command succeeds and its output holds the text.
expect() {
    local text=$1 output
    shift
    output=$("$@" 2>&1) || fail "failed: $* : $output"
    [[ $output == *"$text"* ]] || fail "not '$text', but: $output"
    echo "$text"
}

limit=300 wine wineboot -i >/dev/null 2>&1 || fail "64-bit Wine does not start"
expect "Successfully registered" wine regsvr32 "Z:$programs/VellaneInet2.ocx"
expect "document 1001 has 12 pages" wine "$programs/pixmo_script.exe" "Z:$root/samples/windows/form.vbs" \
    "$PIXMO_ENGINE" 1001
expect "Successfully unregistered" wine regsvr32 /u "Z:$programs/VellaneInet2.ocx"
wine "$programs/pixmo_viewer.exe" --engine "$PIXMO_ENGINE" --doc 1001 --page 2 --screenshot "Z:$scratch/page.bmp" ||
    fail "the viewer does not show the page"
[ -s "$scratch/page.bmp" ] || fail "there is no picture of the viewer"
echo "the viewer shows the page"
