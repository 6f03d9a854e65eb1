# Completion of smbios-tree for bash. The program says what may stand where; where it says nothing, a file may.

_smbios_tree() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
    # bash splits --option=word at the equals sign
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    words=$("$1" --complete "$before" "$word" 2>/dev/null | cut -f 1)
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
    fi
}

complete -F _smbios_tree smbios-tree
