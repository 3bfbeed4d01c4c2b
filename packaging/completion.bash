# Completion of nubo, nubo-configure and nubo-wsp for bash.
_nubo() {
    local word=$2
    if [[ $word = -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--help --version' -- "$word")
        return
    fi
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$word"; shopt -s nocasematch
        compgen -f -- "$word" | while IFS= read -r file; do
            [[ $file = *.@(gif|pcx|bmp|png|jpg|jpeg|lbm|wsp) ]] && printf '%s\n' "$file"
        done)
}

_nubo_configure() {
    [ "$COMP_CWORD" != 1 ] || mapfile -t COMPREPLY < <(compgen -W '1 2 3 4 --help' -- "$2")
}

_nubo_wsp() {
    if [ "$COMP_CWORD" = 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'list check extract make export --help' -- "$2")
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$2")
        [ "${COMP_WORDS[1]}" != export ] || mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W '--gif --apng --sheet --png
            --from --to --scale --clear --loop --once --ping-pong --rows --columns --square --border --gap --json' -- "$2")
        [ "${COMP_WORDS[1]}" != extract ] || mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W '--png' -- "$2")
    fi
}

complete -F _nubo nubo
complete -F _nubo_configure nubo-configure
complete -F _nubo_wsp nubo-wsp
