#!/usr/bin/env bash
# What the demonstration's terminals show, drawn anew whenever the window takes another size:
#   follow PROGRAM LOG   the program's help, then its log as it grows
#   page FILE            the beginning of a text
mode=$1

text_to_follow() {
    printf '$ corvane --help\n%s\n\n$ tail -f corvane.log\n' "$help"
    cat "$log" 2>/dev/null
}

draw() {
    local line
    printf '\e[H\e[2J\e[?25l'
    while IFS= read -r line; do
        printf '%s\n' "${line:0:columns}"
    done
}

draw_page() {
    head -n $((rows - 1)) "$file" | draw
    printf '\e[7m %s \e[0m' "$(basename "$file")"
}

case $mode in
follow)
    help=$("$2" --help)
    log=$3
    ;;
page)
    file=$2
    ;;
esac

drawn=
while :; do
    read -r rows columns < <(stty size)
    state="$rows $columns $(stat -c %s "${log:-/dev/null}" 2>/dev/null)"
    if [ "$state" != "$drawn" ]; then
        drawn=$state
        if [ "$mode" = follow ]; then
            text_to_follow | tail -n $((rows - 1)) | draw
        else
            draw_page
        fi
    fi
    sleep 0.1
done
