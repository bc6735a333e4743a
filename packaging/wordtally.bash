# Bash completion for wordtally. The options and their values are read from the program's own
# --help, so that the completion knows every option the installed program has.

_wordtally() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}
  local help usage
  help=$("$1" --help 2>/dev/null) || return 0

  # An option that takes a value has a type after its name: "--order TEXT:{frequency,...}",
  # "--format INT:INT in [0 - 9]", "--output TEXT".
  if [[ $prev == --* ]]; then
    usage=$(grep -m 1 -E -- "^ +(-[a-z],)?$prev [A-Z]+" <<<"$help")
    if [[ $usage =~ :\{([^}]*)\} ]]; then
      COMPREPLY=($(compgen -W "${BASH_REMATCH[1]//,/ }" -- "$cur"))
      return 0
    elif [[ $usage =~ in\ \[([0-9]+)\ -\ ([0-9]+)\] ]]; then
      COMPREPLY=($(compgen -W "$(seq "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}")" -- "$cur"))
      return 0
    elif [[ -n $usage ]]; then
      COMPREPLY=($(compgen -f -- "$cur"))
      return 0
    fi
  fi

  if [[ $cur == -* ]]; then
    COMPREPLY=($(compgen -W "$(grep -o -E -- '--[a-z0-9-]+' <<<"$help" | sort -u)" -- "$cur"))
  else
    COMPREPLY=($(compgen -f -- "$cur"))
  fi
}

complete -o filenames -F _wordtally wordtally
