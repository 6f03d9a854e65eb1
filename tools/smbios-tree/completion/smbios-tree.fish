# Completion of smbios-tree for fish. The program says what may stand where; where it says nothing, a file may.

function __smbios_tree_words
    set -l before (commandline -opc)[-1]
    set -l word (commandline -ct)
    set -l option (string match -r -- '^--[a-z-]+=' $word)
    if test -n "$option"
        smbios-tree --complete (string trim -r -c = -- $option) 2>/dev/null | string replace -r '^' -- $option
    else
        smbios-tree --complete $before $word 2>/dev/null
    end
end

complete -c smbios-tree -n 'count (__smbios_tree_words) >/dev/null' -f -a '(__smbios_tree_words)'
