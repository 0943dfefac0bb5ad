# Completion of kvprefs for fish. The program itself says what may follow.

function __kvprefs_candidates
    set -l words (commandline -opc)
    set -l current (commandline -ct)
    for line in ($words[1] complete $words[2..-1] "$current" 2>/dev/null)
        switch $line
            case \tfiles
                __fish_complete_path $current
            case \tfolders
                __fish_complete_directories $current
            case '*'
                echo $line
        end
    end
end

complete -c kvprefs -f -a '(__kvprefs_candidates)'
