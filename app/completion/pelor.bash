# Completion of pelor for bash. Commands and options come from the program's own help.

_pelor_words() {
  # The options that `pelor [COMMAND] --help` lists.
  "$1" ${2:+"$2"} --help 2>/dev/null | grep -oE -e '(^|[ ,])--[a-z][a-z-]*' | tr -d ' ,' | sort -u
}

_pelor_commands() {
  "$1" --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z]*\) .*/\1/p'
}

_pelor_values() {
  # The words that the option can have, where its help lists them: "--to mif|dgn".
  "$1" "$2" --help 2>/dev/null | sed -nE "s/^ *$3 ([a-z]+(\|[a-z]+)+) .*/\1/p" | tr '|' ' '
}

_pelor() {
  local program=$1 current=$2 previous=$3 command= word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    if [[ $word != -* ]]; then
      command=$word
      break
    fi
  done
  COMPREPLY=()
  if [[ -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_pelor_commands "$program") --help --version" -- "$current")
    return
  fi
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_pelor_words "$program" "$command")" -- "$current")
    return
  fi
  if [[ $previous == --* ]]; then
    local values=$(_pelor_values "$program" "$command" "$previous")
    if [[ -n $values ]]; then
      mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current")
      return
    fi
  fi
  if [[ $previous == --out-dir ]]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
    compopt -o filenames 2>/dev/null
    return
  fi
  # Folders, and files that the command can take.
  local pattern='*.@(dgn|DGN|mif|MIF|mid|MID)'
  [[ $command == dump ]] && pattern='*.@(dgn|DGN)'
  [[ $previous == -o ]] && pattern='*'
  local extglob=$(shopt -p extglob)
  shopt -s extglob
  mapfile -t COMPREPLY < <(compgen -d -- "$current"; compgen -f -X "!$pattern" -- "$current")
  $extglob
  compopt -o filenames 2>/dev/null
}

complete -F _pelor pelor
