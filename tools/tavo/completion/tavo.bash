# Completion of tavo for bash.

_tavo_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$1"; compgen -f -X '!*.[aA]2[lL]' -- "$1")
}

_tavo() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]} options="--help --quiet --verbose"
    COMPREPLY=()
    # --option=value comes as three words.
    if [ "$current" = "=" ]; then
        current=
    elif [ "$previous" = "=" ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "convert normalize check list tokens --help --version" -- "$current")
        return
    fi
    case "$previous" in
    --output-dir | -d)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
    --format)
        mapfile -t COMPREPLY < <(compgen -W "table csv json" -- "$current")
        return
        ;;
    --jobs | -j | --match)
        return
        ;;
    esac
    case "$command" in
    convert) options+=" --force --output-dir --jobs --strict --werror" ;;
    normalize) options+=" --force --output-dir --jobs --werror" ;;
    check) options+=" --strict --werror" ;;
    list) options+=" --format --match --strict" ;;
    tokens) ;;
    *) return ;;
    esac
    case "$current" in
    -*) mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current") ;;
    *) _tavo_files "$current" ;;
    esac
}

complete -F _tavo tavo
