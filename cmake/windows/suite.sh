#!/usr/bin/env bash
# suite.sh [build | CTEST ARGUMENTS] : builds the control library for 32-bit Windows and tests it under Wine; "build"
# leaves it at that. The sum of the results is in build/windows32-checked/tests.xml. Where there can be no Wine, one line
# says so.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
. "$root/cmake/shell.sh"
build=$root/build/windows32-checked
checkout=$(cksum <<<"$root/cmake/windows" | cut -d ' ' -f 1)

# The numbers of all programs' results as one.
sumUp() {
    local name value
    printf '<testsuite name="windows"'
    for name in tests failures disabled skipped errors; do
        value=$(sed -n "s/^<testsuites .*\b$name=\"\([0-9]*\)\".*/\1/p" "$build"/results/*.xml 2>/dev/null |
            awk '{ sum += $1 } END { print sum + 0 }')
        printf ' %s="%s"' "$name" "$value"
    done
    echo '/>'
}

removePrefixes() {
    local prefix
    for prefix in "${PIXMO_WINE32:-/var/tmp/pixmo-wine32}/opt/p-$checkout-"*; do
        [ ! -d "$prefix" ] || "$root/cmake/wine32.sh" stop "${prefix##*/p-}" || true
    done
}

"$root/cmake/install-packages.sh" windows screen
say "32-bit Wine"
status=0
timeout -k 10 900 "$root/cmake/wine32.sh" setup || status=$?
if [ "$status" -eq 75 ]; then
    say "Windows: the control library is built but not tested here"
    buildPreset windows32-checked VellaneInet2
    exit 0
fi
[ "$status" -eq 0 ] || fail "32-bit Wine cannot be set up (status $status)"
buildPreset windows32-checked
[ "${1:-}" != build ] || exit 0

say "testing (windows32-checked)"
rm -rf "$build/results"
(cd "$root" && timeout -k 30 1200 cmake/with-screen.sh 1400x1100 \
    ctest --preset windows32-checked --parallel "$(($(nproc) + 1))" "$@") || status=$?
sumUp >"$build/tests.xml"
removePrefixes
exit "$status"
