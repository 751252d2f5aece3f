# Completion of @PROGRAM@ for bash, made from the help of the program when it was built.

_@FUNCTION@()
{
    @TABLES@
    local cur prev words cword split
    _init_completion -s -n : || return

    # The words before this one, without options and their values.
    local place= command= word i
    for ((i = 1; i < cword; i++)); do
        word=${words[i]}
        if [[ $word == --*=* ]]; then
            continue
        elif [[ $word == -* ]]; then
            [[ -z ${values[$command $word]-} ]] || ((++i))
        elif [[ -z $command && -n ${options[$word]-} ]]; then
            command=$word place=$word
        elif [[ -n ${places[${place:--} $word]-} || " ${places[${place:--}]-} " == *" $word "* ]]; then
            place+=${place:+ }$word
        else
            place+=${place:+ }*
        fi
    done

    local offered=${values[$command $prev]-}
    if [[ -z $offered || $prev != -* ]]; then
        offered=${places[${place:--}]-}
        [[ $cur != -* ]] || offered=${options[${command:--}]-}
    fi
    if [[ $cur == *=* && $cur != -* ]]; then # a setting and the beginning of its value
        offered=${values[$command ${cur%%=*}=]-}
        cur=${cur#*=}
    fi

    case $offered in
    ANY) ;;
    FILE) _filedir ;;
    DIR) _filedir -d ;;
    URL)
        if [[ $cur == sqlite://* ]]; then
            local address=sqlite://
            cur=${cur#"$address"}
            _filedir
            COMPREPLY=("${COMPREPLY[@]/#/$address}")
            cur=$address$cur
        else
            COMPREPLY=($(compgen -W 'sqlite:/// postgresql://' -- "$cur"))
            compopt -o nospace
        fi
        __ltrim_colon_completions "$cur"
        ;;
    *)
        COMPREPLY=($(compgen -W "$offered" -- "$cur"))
        [[ ${COMPREPLY[*]-} != *= ]] || compopt -o nospace
        ;;
    esac
} && complete -F _@FUNCTION@ @PROGRAM@
