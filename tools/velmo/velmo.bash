# Completes the commands of velmo, the types of `velmo read`, and file names.
_velmo() {
    local word=${COMP_WORDS[COMP_CWORD]}
    if [ "$COMP_CWORD" = 1 ]; then
        local commands="tree list find search lookup filter locate read export error"
        COMPREPLY=($(compgen -W "$commands" -- "$word"))
    elif [ "$COMP_CWORD" = 2 ] && [ "${COMP_WORDS[1]}" = read ]; then
        COMPREPLY=($(compgen -W "$("${COMP_WORDS[0]}" read --types 2>/dev/null)" -- "$word"))
    else
        COMPREPLY=($(compgen -f -- "$word"))
    fi
}
complete -o filenames -F _velmo velmo
