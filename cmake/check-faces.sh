#!/usr/bin/env bash
# check-faces.sh : what two faces say or reckon with alike belongs in the core. Names each text and each named number
# that stands in faces/qt and in faces/com.
set -euo pipefail
export LC_ALL=C
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# Texts that may stand twice:
#   the control's own names of its properties, which each face hands to its host, are read from the core's table.
names=$(grep -hoE '"[A-Za-z]+"' core/control/propert*.cpp | sort -u)
#   a container's property window names what a value means, in words that a paper may have too.
names_only='/predefinedvalues\.'

sources() {
    find "faces/$1" \( -name '*.cpp' -o -name '*.h' \) -print | grep -vE "$names_only"
}

# FACE : each text, once, without what tells its characters' type. A single character is no text.
texts() {
    # shellcheck disable=SC2016 # awk's
    sources "$1" | xargs awk '
        /^[ \t]*#/ { next }
        {
            line = $0
            gsub(/\047(\\.|[^\047\\])*\047/, "", line)
            while (match(line, /"([^"\\]|\\.)*"|\/\/.*/)) {
                text = substr(line, RSTART, RLENGTH)
                line = substr(line, RSTART + RLENGTH)
                if (text ~ /^"/ && length(text) > 3)
                    print text
            }
        }' | sort -u
}

# FACE : each named number, as NAME = NUMBER.
numbers() {
    sources "$1" | xargs grep -hoE 'constexpr [A-Za-z0-9_:]+ [A-Za-z0-9_]+(\[\])? *[={({] *[-0-9][^;/]*;' |
        sed -E 's/^constexpr [A-Za-z0-9_:]+ //; s/ *[={(] */ = /; s/[})]*;$//' | sort -u
}

status=0
while IFS= read -r twice; do
    echo "faces/qt and faces/com both have $twice" >&2
    status=1
done < <(
    comm -12 <(texts qt) <(texts com) | comm -23 - <(echo "$names")
    comm -12 <(numbers qt) <(numbers com)
)
exit "$status"
