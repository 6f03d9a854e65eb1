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
    --type) COMPREPLY=($(compgen -W "bios system board chassis processor memory-controller memory-module cache
        connector slot onboard oem option language group event-log array memory memory-error array-address
        memory-address pointing battery reset security power-controls voltage cooling temperature current
        remote-access boot-integrity boot memory-error-64 management management-component management-threshold
        channel ipmi power-supply additional onboard-extended host-interface tpm processor-additional firmware
        string platform-memory reserved-memory" -- "$word")) ;;
    --limit) COMPREPLY=() ;;
    --color) COMPREPLY=($(compgen -W "auto always never" -- "$word")) ;;
    --path) COMPREPLY=($(compgen -W "/SMBIOS /SMBIOS/ProcessorInfo /SMBIOS/MemoryArray /SMBIOS/Type" -- "$word")) ;;
    *)
        if [[ $word == -* ]]; then
            COMPREPLY=($(compgen -W "--path --type --read-as --newest --by-version --flat --value --json --jsonl
                --html --diff --dump --inputs --null --limit --color --log --version --help" -- "$word"))
        else
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
        fi
        ;;
    esac
}

complete -F _smbios_tree smbios-tree
