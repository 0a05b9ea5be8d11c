# Completion of `tessera` for bash. Commands and options are asked of the tool itself.

_tessera() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=() word i
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    [[ $word == -- ]] && return
    [[ $word == [a-z]* && ${#command[@]} -lt 2 ]] && command+=("$word")
    [[ ${command[0]:-} == bd ]] || [[ ${#command[@]} -eq 0 ]] || break
  done
  local help
  help=$("${COMP_WORDS[0]}" "${command[@]}" --help 2>/dev/null)
  case $previous in
    --format) COMPREPLY=($(compgen -W sarif -- "$current")); return ;;
    --color) COMPREPLY=($(compgen -W 'always never auto' -- "$current")); return ;;
  esac
  if [[ $current == -* ]]; then
    COMPREPLY=($(compgen -W "$(grep -oE -- '--[a-z][a-z-]*' <<< "$help" | sort -u)" -- "$current"))
  elif [[ ${#command[@]} -eq 0 || (${command[0]} == bd && ${#command[@]} -eq 1) ]]; then
    COMPREPLY=($(compgen -W "$(sed -n '/^Comandos:/,$s/^  \([a-z]\{2,\}\) .*/\1/p' <<< "$help")" -- "$current"))
  else
    compopt -o filenames
    local suffix=tsc
    [[ ${command[0]} == bd ]] && suffix='[Tt][Ss][Aa]'
    case $previous in -*) suffix='*' ;; esac
    mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X "!*.$suffix" -- "$current")
  fi
}
complete -F _tessera tessera
