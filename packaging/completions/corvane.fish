# Completions of corvane for fish.

function __corvane_placements
    corvane --help 2>/dev/null | sed -n '/^Placements:/,/^$/s/^  .*  //p' | string split ' '
end

function __corvane_panes
    corvane --help 2>/dev/null | sed -n '/^Panes:/{n;p}' | string split ' '
end

# A program that hangs must not hang the shell.
function __corvane_layouts
    timeout 5 corvane --layouts --json 2>/dev/null |
        string match -ra '"matches":(?:true|false),"name":"(?:[^"\\\\]|\\\\.)*"' |
        string replace -r '^"matches":[a-z]+,"name":"(.*)"$' '$1' |
        string replace -a '\\"' '"' |
        while read -l name
            printf '%b\n' $name
        end
end

complete -c corvane -f
corvane --help 2>/dev/null |
    string replace -rf '^  --([a-z-]+)(?: \[?[A-Z]+\]?)? +(.*)' '$1\t$2' |
    while read -l -d \t flag description
        complete -c corvane -l $flag -d $description
    end
complete -c corvane -n '__fish_prev_arg_in --place' -a '(__corvane_placements)'
complete -c corvane -n '__fish_prev_arg_in --pane' -a '(__corvane_panes)'
complete -c corvane -n '__fish_prev_arg_in --appearance' -a 'dark light'
complete -c corvane -n '__fish_prev_arg_in --render-status-icon --save --preview-notes' -F
complete -c corvane -n '__fish_prev_arg_in --apply-layout --layout' -a '(__corvane_layouts)'
