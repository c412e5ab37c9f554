#!/usr/bin/env bash
# install-packages.sh GROUP... : installs the packages of these groups of packages.txt that are missing.
# Asks for rights and for the network only when something is missing.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

fail() {
    echo "install-packages: $*" >&2
    exit 1
}

packagesOf() {
    local group
    for group in "$@"; do
        grep -q "^$group:" "$here/packages.txt" || fail "no group '$group' in packages.txt"
        sed -n "s/^$group://p" "$here/packages.txt"
    done | tr -s ' ' '\n' | sed '/^$/d'
}

missingOf() {
    local installed package
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' 2>/dev/null | sed -n 's/^installed //p')
    for package in "$@"; do
        grep -qxF "$package" <<<"$installed" || echo "$package"
    done
}

# Runs apt-get with rights, waiting for another apt to end rather than failing beside it.
aptGet() {
    local call=(env DEBIAN_FRONTEND=noninteractive apt-get -y -q -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3 "$@")
    if [ "$(id -u)" -eq 0 ]; then
        "${call[@]}"
    elif [ -t 0 ]; then
        sudo "${call[@]}"
    else
        sudo -n "${call[@]}"
    fi </dev/null
}

install() { aptGet install --no-install-recommends "$@"; }

[ $# -gt 0 ] || fail "usage: install-packages.sh GROUP..."
if ! command -v dpkg-query >/dev/null; then
    echo "install-packages: no dpkg here; going on with what is installed" >&2
    exit 0
fi
wanted=$(packagesOf "$@")
mapfile -t names <<<"$wanted"
mapfile -t missing < <(missingOf "${names[@]}")
[ ${#missing[@]} -gt 0 ] || exit 0

echo "== installing: ${missing[*]}"
[ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
    fail "these packages are missing, and installing them needs root or sudo: ${missing[*]}"
# Lists that are absent or too old show as a failed install: only then are they fetched anew.
if ! apt-get install -s --no-install-recommends "${missing[@]}" >/dev/null 2>&1 || ! install "${missing[@]}"; then
    aptGet update || fail "apt-get update failed; is there a network?"
    install "${missing[@]}" || fail "could not install: ${missing[*]}"
fi
