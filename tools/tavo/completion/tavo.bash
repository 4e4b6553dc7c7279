# Completion of tavo for bash.

_tavo_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$1"; compgen -f -X '!*.[aA]2[lL]' -- "$1")
}

_tavo() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local commands="convert normalize check list diff page tokens help"
    local command="" word options="--quiet --verbose --color --help"
    local selection="--match --exclude --ignore-case --regex --select --unit --type --address"
    local columns="file kind name description address address_extension type byte_order bit_mask min
        max unit factor offset dimensions conversion left_out protocol master_id slave_id
        station_address sources transports interface rate channel period period_ns coefficients formula
        inverse_formula table default rows"
    COMPREPLY=()
    # Options may stand before the command.
    for word in "${COMP_WORDS[@]:1:COMP_CWORD - 1}"; do
        case " $commands " in
        *" $word "*)
            command=$word
            break
            ;;
        esac
    done
    # --option=value comes as three words.
    if [ "$current" = "=" ]; then
        current=
    elif [ "$previous" = "=" ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    case "$previous" in
    --color)
        mapfile -t COMPREPLY < <(compgen -W "auto always never" -- "$current")
        return
        ;;
    --output-dir | -d)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
    --format)
        local formats="table csv json"
        [ "$command" != check ] || formats="gcc json sarif"
        [ "$command" != diff ] || formats="text json"
        mapfile -t COMPREPLY < <(compgen -W "$formats" -- "$current")
        return
        ;;
    --kind)
        mapfile -t COMPREPLY < <(compgen -W "interfaces sources measurements methods" -- "$current")
        return
        ;;
    --columns | --sort)
        mapfile -t COMPREPLY < <(compgen -W "$columns" -- "$current")
        return
        ;;
    --only)
        mapfile -t COMPREPLY < <(compgen -W "added gone renamed moved changed" -- "$current")
        return
        ;;
    --select)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
        ;;
    --type)
        mapfile -t COMPREPLY < <(compgen -W "uint8 int8 uint16 int16 uint32 int32 uint64 int64 real16 real32 real64" -- "$current")
        return
        ;;
    --jobs | -j | --match | --exclude | --unit | --address | --enable)
        return
        ;;
    esac
    case "$command" in
    convert) options+=" $selection --enable --force --output-dir --jobs --strict --werror" ;;
    normalize) options+=" --force --output-dir --jobs --werror" ;;
    check) options+=" --format --strict --werror" ;;
    list) options+=" $selection --format --kind --columns --sort --strict" ;;
    diff) options+=" --format --only --strict" ;;
    page) options+=" --force --strict" ;;
    tokens) ;;
    help)
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
        return
        ;;
    *)
        mapfile -t COMPREPLY < <(compgen -W "$commands $options --version" -- "$current")
        return
        ;;
    esac
    case "$current" in
    -*) mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current") ;;
    *) _tavo_files "$current" ;;
    esac
}

complete -F _tavo tavo
