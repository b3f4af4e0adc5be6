# Completions of corvane for bash.

_corvane_flags() {
    corvane --help 2>/dev/null | sed -nE 's/^  (--[a-z-]+).*/\1/p'
}

_corvane_placements() {
    corvane --help 2>/dev/null | sed -n '/^Placements:/,/^$/s/^  .*  //p' | tr ' ' '\n'
}

_corvane_panes() {
    corvane --help 2>/dev/null | sed -n '/^Panes:/{n;p}'
}

# Each name on a line. A program that hangs must not hang the shell.
_corvane_layouts() {
    local name
    timeout 5 corvane --layouts --json 2>/dev/null |
        grep -oE '"matches":(true|false),"name":"([^"\\]|\\.)*"' |
        sed -E 's/^"matches":[a-z]+,"name":"(.*)"$/\1/; s/\\"/"/g' |
        while IFS= read -r name; do printf '%b\n' "$name"; done
}

# _corvane_written QUOTE NAME: the name as one types it after such a quote, or without any. Bash takes
# colons and such as the ends of words unless they are quoted, too.
_corvane_written() {
    case $1 in
    \') sed "s/'/'\\\\''/g; s/$/'/" <<<"$2" ;;
    \") sed 's/["$`\\]/\\&/g; s/$/"/' <<<"$2" ;;
    *) printf '%q\n' "$2" | sed 's/[:=@]/\\&/g' ;;
    esac
}

_corvane() {
    local typed=${COMP_WORDS[COMP_CWORD]} quote='' name
    COMPREPLY=()
    case ${COMP_WORDS[COMP_CWORD - 1]} in
    --place) mapfile -t COMPREPLY < <(compgen -W "$(_corvane_placements)" -- "$typed") ;;
    --pane) mapfile -t COMPREPLY < <(compgen -W "$(_corvane_panes)" -- "$typed") ;;
    --appearance) mapfile -t COMPREPLY < <(compgen -W 'dark light' -- "$typed") ;;
    --render-status-icon | --save | --preview-notes)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$typed")
        ;;
    --apply-layout | --layout)
        case $typed in [\"\']*) quote=${typed:0:1} typed=${typed:1} ;; esac
        while IFS= read -r name; do
            name=$(_corvane_written "$quote" "$name")
            case $name in "$typed"*) COMPREPLY+=("$name") ;; esac
        done < <(_corvane_layouts)
        ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$(_corvane_flags)" -- "$typed") ;;
    esac
}

complete -F _corvane corvane
