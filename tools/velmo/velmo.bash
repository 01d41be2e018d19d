# Completion of velmo's commands, of the types that `velmo read` takes, and of files.
_velmo() {
    local word=${COMP_WORDS[COMP_CWORD]}
    if [ "$COMP_CWORD" = 1 ]; then
        COMPREPLY=($(compgen -W "tree list find search lookup filter locate read export error" -- "$word"))
    elif [ "$COMP_CWORD" = 2 ] && [ "${COMP_WORDS[1]}" = read ]; then
        COMPREPLY=($(compgen -W "$("${COMP_WORDS[0]}" read --types 2>/dev/null)" -- "$word"))
    else
        COMPREPLY=($(compgen -f -- "$word"))
    fi
}
complete -o filenames -F _velmo velmo
