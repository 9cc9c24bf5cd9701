# Bash completion of railwright-cli.
_railwright_cli() {
    local cur prev words cword
    _init_completion -n = || return
    local i command='' file='' options texts on target steps
    for ((i = 1; i < cword; ++i)); do
        if [[ ${words[i]} != -* ]]; then
            command=${words[i]}
            break
        fi
    done
    case $command in
    '')
        mapfile -t COMPREPLY < <(compgen -W '%WORDS%' -- "$cur")
        return
        ;;
%BASH_COMMANDS%
    *) return ;;
    esac
    for ((++i; i < cword; ++i)); do
        if [[ ${words[i],,} == *.@(nltrack|nlelem) && ${words[i - 1]} != -o ]]; then
            file=${words[i],,}
            break
        fi
    done
    if [[ $prev == -o ]]; then
        on=$target
    elif [[ $texts == *" $prev "* ]]; then
        return
    elif [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$cur")
        return
    elif [[ -n $steps && -n $file ]]; then
        _railwright_cli_steps
        return
    fi
    if [[ $on == FOLDER ]]; then
        _filedir -d
    else
        _filedir '@(nltrack|nlelem)'
    fi
}

# Completes a step for the document in `file`. After "=" bash replaces only the value.
_railwright_cli_steps() {
    local known='%TRACK_WORDS%' start=''
    [[ $file == *.nlelem ]] && known='%ELEMENT_WORDS%'
    if [[ $cur == @(%LIST_STEPS%)=*,* ]]; then
        start=${cur#*=}
        start=${start%,*},
        cur=${cur%%=*}=${cur##*,}
    fi
    mapfile -t COMPREPLY < <(compgen -W "$known" -- "$cur")
    if [[ $cur == *=* ]]; then
        COMPREPLY=("${COMPREPLY[@]#*=}")
        COMPREPLY=("${COMPREPLY[@]/#/$start}")
    fi
    if [[ ${COMPREPLY[*]} == *= || $cur == @(%LIST_STEPS%)=* ]]; then
        compopt -o nospace
    fi
}

complete -F _railwright_cli railwright-cli
