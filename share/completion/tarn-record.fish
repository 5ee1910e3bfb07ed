# Completion of tarn-record and tarnlog in fish. The programs themselves say what can follow.

function __tarn_record_candidates
    set -l words (commandline -opc)
    set -l typed (string replace -r '^["\']' '' -- (commandline -ct) | string replace -ra '\\\\(.)' '$1')
    set -l ask complete
    string match -qr '(^|/)tarnlog$' -- $words[1]; and set ask --complete
    set -l program (string replace -r '^~/' "$HOME/" -- $words[1])
    set -l before $words[2..-1]
    for line in ($program $ask -- $before "$typed" 2>/dev/null)
        switch $line
            case ':files'
                __fish_complete_path (string replace -r '^--[^=]*=' '' -- "$typed")
            case ':folders'
                __fish_complete_directories (string replace -r '^--[^=]*=' '' -- "$typed") ''
            case '*'
                printf '%s\n' $line
        end
    end
end

complete -c tarn-record -f -a '(__tarn_record_candidates)'
complete -c tarnlog -f -a '(__tarn_record_candidates)'
