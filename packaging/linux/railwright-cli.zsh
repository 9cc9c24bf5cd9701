#compdef railwright-cli
# Zsh completion of railwright-cli.

_railwright_cli_files() {
    _files -g '*.(#i)(nltrack|nlelem)(-.)'
}

_railwright_cli_steps() {
    local -a known
    known=(%TRACK_WORDS%)
    if [[ ${(L)words[(r)*.(#i)nlelem]} == *.nlelem ]]; then
        known=(%ELEMENT_WORDS%)
    fi
    if [[ $PREFIX == (%LIST_STEPS%)=*,* ]]; then
        known=(${(M)known:#${PREFIX%%=*}=*})
        known=(${known#*=})
        compset -P '*,'
    fi
    compadd -S '' -a known
}

_railwright_cli() {
    local -a commands
    local state line context
    commands=(
%ZSH_COMMANDS%
    )
    _arguments -C '(- *)'{-h,--help}'[print the help and exit]' '(- *)--version[print the version and exit]' \
        '1:command:->command' '*::argument:->arguments'
    case $state in
    command) _describe command commands ;;
    arguments)
        case $line[1] in
%ZSH_ARGUMENTS%
        esac
        ;;
    esac
}

_railwright_cli "$@"
