#!/usr/bin/env bash
# What the demonstration's terminals show, drawn anew whenever the window takes another size:
#   follow PROGRAM   the program's help, then its log as it grows
#   page FILE        the beginning of a text
if [ "$1" = follow ]; then
    help=$("$2" --help)
    log=$CORVANE_DESKTOP/corvane.log
else
    file=$2
fi

text() {
    if [ "$file" ]; then
        head -n $((rows - 1)) "$file"
    else
        { printf '$ corvane --help\n%s\n\n$ tail -f corvane.log\n' "$help" && cat "$log"; } |
            tail -n $((rows - 1))
    fi
}

drawn=
while :; do
    read -r rows columns < <(stty size)
    state="$rows $columns $(stat -c %s "${log:-/dev/null}" 2>/dev/null)"
    if [ "$state" != "$drawn" ]; then
        drawn=$state
        printf '\e[H\e[2J\e[?25l'
        text 2>/dev/null | while IFS= read -r line; do
            printf '%s\n' "${line:0:columns}"
        done
        [ -z "$file" ] || printf '\e[7m %s \e[0m' "$(basename "$file")"
    fi
    sleep 0.1
done
