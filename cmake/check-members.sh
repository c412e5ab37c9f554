#!/usr/bin/env bash
# check-members.sh : names each public member function that nothing calls, neither the program nor its tests: whose name
# stands nowhere but in its declaration and definition. What a host calls, and what overrides, is left out.
set -euo pipefail
export LC_ALL=C
cd "$(dirname "${BASH_SOURCE[0]}")/.."
rooms=(core codecs icons faces)

withoutComments() { xargs -0 sed 's://.*$::'; }

count() { sort | uniq -c | awk '{ print $2, $1 }'; }

mentioned() {
    find "${rooms[@]}" apps tests bench fuzz docs \( -name '*.cpp' -o -name '*.h' \) -print0 | withoutComments |
        grep -oE '[A-Za-z_][A-Za-z0-9_]*' | count
}

defined() {
    find "${rooms[@]}" -name '*.cpp' -print0 | withoutComments |
        sed -nE 's/^[A-Za-z~].*[A-Za-z]::([A-Za-z_][A-Za-z0-9_]*)\(.*/\1/p' | count
}

declared() {
    # shellcheck disable=SC2016 # awk's
    find "${rooms[@]}" -name '*.h' ! -path 'faces/com/control/*' ! -path faces/qt/widget/imageview.h -print0 | xargs -0 awk '
        { sub(/\/\/.*/, "") }
        /^[ \t]*(class|struct) .*\{/ { isPublic = $1 == "struct" }
        /^[ \t]*public:/ { isPublic = 1 }
        /^[ \t]*(private|protected):/ { isPublic = 0 }
        isPublic && /^    [^ (][^(]*[^( ] [&*]*[A-Za-z_][A-Za-z0-9_]*\(/ &&
            !/override|HRESULT|STDMETHOD|operator|^ *(return|using|friend) / &&
            match($0, /[A-Za-z_][A-Za-z0-9_]*\(/) { print substr($0, RSTART, RLENGTH - 1) }' | count
}

awk 'FILENAME == ARGV[1] { mentions[$1] = $2; next }
     FILENAME == ARGV[2] { definitions[$1] = $2; next }
     mentions[$1] <= $2 + definitions[$1] { print "nothing calls " $1; dead = 1 }
     END { exit dead }' <(mentioned) <(defined) <(declared) >&2
