#!/usr/bin/env bash
# show.sh [VIEWER ARGUMENTS] : builds the control library for 32-bit Windows, registers it by regsvr32 in a fresh
# prefix of Wine, opens a deed of the sample engine in the sample viewer on a virtual screen, and leaves the picture
# in pixmo-windows.png. The viewer's --doc and --page replace what is chosen here.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
. "$root/cmake/shell.sh"
programs=$root/build/windows32/bin
wine=$root/cmake/wine32.sh
prefix=show-$(cksum <<<"$root" | cut -d ' ' -f 1)-$$
bitmap=$root/build/windows32/$prefix.bmp # Wine sees nothing outside of the checkout
picture=$root/pixmo-windows.png
job=

finish() {
    if [ -n "$job" ] && kill "$job" 2>/dev/null; then
        wait "$job" 2>/dev/null || true
    fi
    "$wine" stop "$prefix" >/dev/null 2>&1 || true
    rm -f "$bitmap"
}

# registerAndShow VIEWER ARGUMENTS... : in the prefix, on the screen and beside the engine that are there.
registerAndShow() {
    say "registering VellaneInet2.ocx"
    "$wine" run "$prefix" wine regsvr32 /s "Z:$programs/VellaneInet2.ocx" || fail "regsvr32 ended with status $?"
    say "opening the viewer"
    TIMEOUT=60 "$wine" run "$prefix" wine "$programs/pixmo_viewer.exe" --registered --engine "$PIXMO_ENGINE" \
        --screenshot "Z:$bitmap" "$@" || fail "the viewer ended with status $? (1: it showed no page, 124: nor did it end)"
}

"$root/cmake/install-packages.sh" run windows screen
say "32-bit Wine"
timeout -k 10 900 "$wine" setup || fail "there can be no 32-bit Wine here, and without it nothing to show"
buildPreset release engine
buildPreset windows32

trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
rm -f "$picture"
export -f registerAndShow say fail
export wine prefix programs bitmap
# Beside the script, which is ended with what it waits for.
"$root/cmake/with-engine.sh" "$root/cmake/with-screen.sh" 1280x1024 \
    bash -c 'registerAndShow "$@"' show.sh --doc 1001 --page 1 "$@" <&0 &
job=$!
status=0
wait "$job" || status=$?
job=
[ "$status" -eq 0 ] || exit "$status"
[ -s "$bitmap" ] || fail "the viewer left no picture"
# A window's rectangle is larger than what is seen of it.
convert "$bitmap" -bordercolor black -border 1 -trim +repage "$picture" || fail "the picture cannot be converted"
say "the picture is in $picture"
