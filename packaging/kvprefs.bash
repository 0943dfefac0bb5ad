# Completion of kvprefs for bash. The program itself says what may follow; this joins the words that
# bash splits at "=", and takes back the part of a candidate that bash does not replace.

_kvprefs()
{
    local word i words=() parted=0
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if ((i > 1)) && [[ $word == "=" || ${COMP_WORDS[i - 1]} == "=" ]]; then
            words[-1]+=$word
            parted=1
        else
            words+=("$word")
            parted=0
        fi
    done
    COMPREPLY=()
    ((${#words[@]} > 0)) || return 0

    # Inside an open quote a candidate needs no escapes.
    local quote="" current=${words[-1]}
    [[ $current == [\"\']* || $current == *=[\"\']* ]] && quote=open
    for i in "${!words[@]}"; do
        words[i]=${words[i]//[\"\'\\]/}
    done
    current=${words[-1]}

    # Where "=" parts words, bash replaces only what follows it.
    local kept=""
    ((parted)) && kept=${current%%=*}=

    local line candidate paths
    while IFS= read -r line; do
        case $line in
            $'\tfiles') paths=-f ;;
            $'\tfolders') paths=-d ;;
        esac
        candidate=${line%%$'\t'*}
        [[ -n $candidate && $candidate == "$current"* ]] || continue
        candidate=${candidate#"$kept"}
        [[ -n $quote ]] || printf -v candidate '%q' "$candidate"
        COMPREPLY+=("$candidate")
    done < <("${COMP_WORDS[0]/#\~/$HOME}" complete "${words[@]}" 2>/dev/null)

    if [[ -n ${paths-} ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen "$paths" -- "$current")
    elif [[ ${COMPREPLY[0]-} == *= ]]; then
        compopt -o nospace 2>/dev/null
    fi
    return 0
}

complete -F _kvprefs kvprefs
