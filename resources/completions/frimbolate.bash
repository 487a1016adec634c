# Completion of frimbolate for bash.

_frimbolate() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local words="check explain new on off list command"
    local common="--json --help"
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$words --help --version --new-instance" -- "$current")
        return
    fi
    case ${COMP_WORDS[1]} in
        new)
            case $previous in
                --on)
                    mapfile -t COMPREPLY < <(compgen -W "day sun mon tue wed thu fri sat" -- "$current")
                    return
                    ;;
                --name | --script | --at | --every | --nice) return ;;
            esac
            if [[ $current == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$common --name --run --script --at --on --every
                    --at-load --watch --on-mount --keep-running --allow-successful-exit --queue
                    --also-at-load --also-on-mount --also-watch --low-priority --nice --stdin
                    --stdout --stderr --working-directory --root-directory --globbing --output
                    --force" -- "$current")
                return
            fi
            ;;
        command)
            if [[ $previous == command && $current != -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "load unload" -- "$current")
                return
            fi
            common+=" --modern"
            ;;
        check | explain | on | off | list) ;;
        *) return ;;
    esac
    if [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$common" -- "$current")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        compopt -o filenames 2>/dev/null
    fi
}
complete -F _frimbolate frimbolate
