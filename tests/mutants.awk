# Draws the candidates of mutants.sh: of every line that stands exactly once in its file, with the line before it, in both
# trees (new/..., old/...), one fault of those that can be made of it. Prints "CHANCE NAME KIND<tab>BEFORE<tab>LINE<tab>FAULT".
BEGIN { srand(20) }

# The line with its texts blanked, so that no fault is planted in them.
function masked(text,    at, blank) {
    gsub(/'\\?.'/, "'_'", text)
    while (match(text, /"([^"\\]|\\.)+"/)) {
        blank = sprintf("%" RLENGTH "s", "")
        gsub(/ /, "_", blank)
        text = substr(text, 1, RSTART - 1) blank substr(text, RSTART + RLENGTH)
    }
    return text
}

function add(kind, text) { faults[++count] = text; kinds[count] = kind }

# The faults of one operator, wherever it stands.
function turn(kind, mask, from, to,    at, start) {
    for (start = 1; (at = index(substr(mask, start), from)) > 0; start = at + 1) {
        at += start - 1
        add(kind, substr(line, 1, at - 1) to substr(line, at + length(from)))
    }
}

function constants(mask,    start, at, size) {
    for (start = 1; match(substr(mask, start), /[0-9]+/); start = at + size) {
        at = start + RSTART - 1
        size = RLENGTH
        if (substr(mask, at - 1, 1) ~ /[A-Za-z0-9_.]/ || substr(mask, at + size, 1) ~ /[A-Za-z0-9_.]/)
            continue
        add("constant", substr(line, 1, at - 1) (substr(line, at, size) + 1) substr(line, at + size))
    }
}

function faultsOf(mask, before,    statement) {
    count = 0
    if (mask ~ /^(\/\/|\*|#|template|using|namespace|static_assert|class|struct|case .*:$)/ ||
        mask ~ /\/\/|[lL]ogLine|LogEvent|log_?\.|[.]reserve\(/)
        return
    turn("comparison", mask, " == ", " != "); turn("comparison", mask, " != ", " == ")
    turn("comparison", mask, " < ", " <= "); turn("comparison", mask, " <= ", " < ")
    turn("comparison", mask, " > ", " >= "); turn("comparison", mask, " >= ", " > ")
    turn("logic", mask, " && ", " || "); turn("logic", mask, " || ", " && ")
    turn("logic", mask, "(!", "(")
    turn("sum", mask, " + ", " - "); turn("sum", mask, " - ", " + ")
    constants(mask)
    statement = before ~ /[;{}:)]$|^else$/
    if (line == "return true;") add("return", "return false;")
    else if (line == "return false;") add("return", "return true;")
    else if (line ~ /^return [^{"]+;$/ && line !~ /^return [0-9]+;$/)
        add("return", "return !(" substr(line, 8, length(line) - 8) ");")
    if (statement && line ~ /^[A-Za-z_][A-Za-z0-9_.:>\[\]()-]*\(.*\);$/ &&
        line !~ /^(if|for|while|switch|return|throw|delete)/)
        add("call", ";")
    if (statement && line ~ /^([A-Za-z_][A-Za-z0-9_.>\[\]-]* [-+*\/|&]?= .*|[+][+].*|--.*|break|continue|return);$/)
        add("step", ";")
    if (line ~ /^\.step\(.*\)$/) add("step", "")
}

FNR == 1 { before = "" }
{
    line = $0
    sub(/^ +/, "", line)
    if (line == "") next
    name = FILENAME
    tree = sub(/^new\//, "", name) ? "new" : "old"
    sub(/^.*\//, "", name)
    if (line !~ /\t/) {
        seen[tree, name, before, line]++
        if (tree == "old") { order[++lines] = name SUBSEP before SUBSEP line }
    }
    before = line
}

END {
    for (i = 1; i <= lines; i++) {
        if (seen["old", order[i]] != 1 || seen["new", order[i]] != 1) continue
        split(order[i], part, SUBSEP)
        line = part[3]
        faultsOf(masked(line), part[2])
        if (count == 0) continue
        chosen = int(rand() * count) + 1
        printf "%.9f %s %s\t%s\t%s\t%s\n", rand(), part[1], kinds[chosen], part[2], line, faults[chosen]
    }
}
