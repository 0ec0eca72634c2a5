# Completion of the arguments of velmora for bash.
_velmora() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    case $previous in
        --profile) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
        --screenshot) mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
        --appearance) mapfile -t COMPREPLY < <(compgen -W 'light dark' -- "$word") ;;
        --begin) mapfile -t COMPREPLY < <(compgen -W 'empty examples' -- "$word") ;;
        --removals) mapfile -t COMPREPLY < <(compgen -W 'keep remove' -- "$word") ;;
        --sandboxed) mapfile -t COMPREPLY < <(compgen -W 'on off' -- "$word") ;;
        *)
            local words='--profile --begin --preferences --appearance --sandboxed --screenshot --describe --json --repair --removals --timeout --version --help'
            [[ $COMP_CWORD -gt 1 ]] || words+=' sync status check verify'
            mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
            ;;
    esac
}
complete -F _velmora velmora
