#!/usr/bin/env bash
# 32-bit Wine in a folder of its own, for the tests of the control library. Root or sudo is needed.
#   wine32.sh setup                  makes it, about a minute the first time
#   wine32.sh prepare MARK COMMAND.. runs the command in the template of all prefixes, once for each MARK
#   wine32.sh run NAME COMMAND...    runs the command in a prefix of its own, made from the template
#   wine32.sh stop NAME              ends what runs in that prefix and removes it
#   wine32.sh remove                 removes everything
# Inside, the checkout has the path it has outside, and the working folder is the caller's.
# PIXMO_WINE32 is the folder, TIMEOUT the seconds a command may take, DISPLAY the screen, DPI the pixels per inch of a
# prefix that is made (96). Variables whose name begins with PIXMO_ or GTEST_ reach the command. Status 75: this machine
# cannot do it; one line says why.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
wine=${PIXMO_WINE32:-/var/tmp/pixmo-wine32}
template=$wine/opt/template
packages=wine32,wine,fonts-wine,fonts-liberation
recipe="1 $packages" # the number is raised with whatever else setup makes otherwise than before

cannot() {
    echo "wine32: $*" >&2
    exit 75
}

if [ "$(id -u)" -ne 0 ]; then
    { command -v sudo && sudo -n true; } >/dev/null 2>&1 || cannot "no 32-bit Wine here: that needs root or sudo"
    kept=PIXMO_WINE32,TIMEOUT,DISPLAY,DPI,PIXMO_ENGINE,PIXMO_SAMPLES,GTEST_TOTAL_SHARDS,GTEST_SHARD_INDEX
    exec sudo -n --preserve-env=$kept "${BASH_SOURCE[0]}" "$@"
fi

# inside PREFIX COMMAND... : in the root of Wine, with nothing of the caller's environment but what is named.
# The mounts live in a namespace that ends with its last process, so none is left behind.
inside() {
    local prefix=$1 name own=()
    shift
    while IFS= read -r name; do
        own+=("$name=${!name}")
    done < <(compgen -e PIXMO_ || true; compgen -e GTEST_ || true)
    # shellcheck disable=SC2016
    unshare --mount --propagation private sh -c '
        set -e
        wine=$1 root=$2 folder=$3
        shift 3
        mount -t proc proc "$wine/proc"
        mkdir -p "$wine$root"
        mount --bind "$root" "$wine$root"
        case $folder in "$root" | "$root"/*) ;; *) folder=$root ;; esac
        exec chroot "$wine" /usr/bin/env -i "$@"' wine32 "$wine" "$root" "$PWD" \
        HOME=/root USER=root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 "DISPLAY=${DISPLAY:-}" \
        "WINEPREFIX=${prefix#"$wine"}" "WINEDEBUG=${WINEDEBUG:--all}" WINEDLLOVERRIDES='mscoree,mshtml=' \
        ${own+"${own[@]}"} sh -c 'cd "$0" && exec "$@"' "$PWD" "$@" </dev/null
}

# The packages of Debian's own archive for i386, from wherever this machine gets its packages.
sourceLines() {
    local codename
    # shellcheck disable=SC1091
    codename=$(. /etc/os-release && echo "$VERSION_CODENAME")
    # shellcheck disable=SC2016
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' \
        'Origin: Debian' 'Component: main' | grep -F " $codename " | sort -u
}

makeRoot() {
    local font
    command -v mmdebstrap >/dev/null || cannot "no 32-bit Wine here: mmdebstrap is not installed"
    unshare --mount true 2>/dev/null || cannot "no 32-bit Wine here: this machine allows no mounts"
    rm -rf --one-file-system "$wine"
    mkdir -p "$wine"
    sourceLines | mmdebstrap --quiet --arch=i386 --variant=minbase --include="$packages" \
        --aptopt='APT::Install-Recommends "false"' --dpkgopt='path-exclude=/usr/share/doc/*' \
        --dpkgopt='path-exclude=/usr/share/man/*' "" "$wine" - || cannot "32-bit Wine cannot be installed here"
    mkdir -p "$wine/usr/share/fonts/truetype/wine"
    for font in tahoma tahomabd symbol wingding marlett webdings ms_sans_serif; do
        ln -sf "/usr/share/wine/fonts/$font.ttf" "$wine/usr/share/fonts/truetype/wine/"
    done
}

# A crash must end the program, not open a dialog; and the usual fonts have their usual measures.
makeTemplate() {
    inside "$template" wineboot -i >/dev/null 2>&1
    printf '%s\r\n' REGEDIT4 '' \
        '[HKEY_CURRENT_USER\Software\Wine\WineDbg]' '"ShowCrashDialog"=dword:00000000' '' \
        '[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]' '"Arial"="Liberation Sans"' \
        '"Times New Roman"="Liberation Serif"' '"Courier New"="Liberation Mono"' >"$wine/root/settings.reg"
    inside "$template" wine regedit /S 'Z:\root\settings.reg' >/dev/null 2>&1
    endServer "$template"
}

# The registry is on the disk when the server has ended.
endServer() {
    inside "$1" sh -c 'wineserver -k; timeout 20 wineserver -w || wineserver -k9' >/dev/null 2>&1 || true
}

setup() {
    if [ "$(cat "$wine.made" 2>/dev/null)" = "$recipe" ]; then
        find "$wine/opt" -maxdepth 1 -name 'p-*' -mtime +1 -exec rm -rf --one-file-system {} +
        return 0
    fi
    rm -f "$wine.made"
    makeRoot
    makeTemplate
    echo "$recipe" >"$wine.made"
}

prepare() {
    local mark=$wine/opt/prepared-$1
    shift
    [ ! -e "$mark" ] || return 0
    inside "$template" timeout -k 5 "${TIMEOUT:-120}" "$@"
    endServer "$template"
    touch "$mark"
}

# The files of a prefix are links to the template's, but for the registry, which Wine writes in place.
# A server that outlives single programs makes them start at once and keeps no pipe of the caller open.
makePrefix() {
    local file
    [ ! -d "$1" ] || return 0 # made while this process waited
    cp -al "$template" "$1"
    for file in system user userdef; do
        cp --remove-destination "$template/$file.reg" "$1/"
    done
    sed -i "s/^\"LogPixels\"=.*/\"LogPixels\"=dword:$(printf %08x "${DPI:-96}")/" "$1/system.reg" "$1/user.reg"
    inside "$1" sh -c 'wineserver -p600; wine cmd /c exit' >/dev/null 2>&1 || true
}

locked() {
    exec 9>"$wine.lock"
    flock -w 900 9 || cannot "another process has kept 32-bit Wine locked for too long"
    "$@" 9>&-
    exec 9>&-
}

[ $# -gt 0 ] || cannot "usage: wine32.sh setup | prepare MARK COMMAND... | run NAME COMMAND... | stop NAME | remove"
action=$1
shift
case $action in
setup) locked setup ;;
prepare) locked prepare "$@" ;;
run)
    prefix=$wine/opt/p-$1
    shift
    [ -d "$prefix" ] || locked makePrefix "$prefix"
    inside "$prefix" timeout -k 5 "${TIMEOUT:-120}" "$@"
    ;;
stop)
    # A server that is killed would leave its services running.
    [ ! -d "$wine/opt/p-$1" ] || endServer "$wine/opt/p-$1"
    rm -rf --one-file-system "$wine/opt/p-$1"
    ;;
remove)
    for prefix in "$wine"/opt/p-*; do
        [ ! -d "$prefix" ] || endServer "$prefix"
    done
    rm -rf --one-file-system "$wine" "$wine.made" "$wine.lock"
    ;;
*) cannot "unknown action $action" ;;
esac
