# Completion of smbios-tree for bash.

_smbios_tree() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    # bash splits --option=word at the equals sign
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    case $before in
    --read-as) COMPREPLY=($(compgen -W "2.3 2.4 2.5 2.6 2.7 2.8 3.0" -- "$word")) ;;
    --color) COMPREPLY=($(compgen -W "auto always never" -- "$word")) ;;
    --path) COMPREPLY=($(compgen -W "/SMBIOS /SMBIOS/ProcessorInfo /SMBIOS/MemoryArray /SMBIOS/Type" -- "$word")) ;;
    *)
        if [[ $word == -* ]]; then
            COMPREPLY=($(compgen -W "--path --read-as --flat --json --jsonl --html --diff --color --log --version
                --help" -- "$word"))
        else
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
        fi
        ;;
    esac
}

complete -F _smbios_tree smbios-tree
