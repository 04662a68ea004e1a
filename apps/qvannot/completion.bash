# Completion of qvannot for bash. It asks the tool's own help, so it always knows the commands and options that the
# installed tool has.

# _qvannot_options HELP: the options that a help text lists, one a line.
_qvannot_options() {
  sed -n 's/^ *\(--\{0,1\}[a-zA-Z][^ ]*\).*/\1/p' <<<"$1" | tr ',' '\n'
}

# _qvannot_commands HELP: the commands that a help text lists, one a line.
_qvannot_commands() {
  sed -n '/^Subcommands:/,/^$/s/^  \([a-z][^ ]*\).*/\1/p' <<<"$1"
}

# _qvannot_value HELP OPTION: what the option takes, as the help text names it; nothing for a flag.
_qvannot_value() {
  sed -n "s/^ *\(.*,\)\{0,1\}$2\(,[^ ]*\)\{0,1\} \([^ ]\{1,\}\).*/\3/p" <<<"$1"
}

# _qvannot_codes TOOL: the codes of findings, one a line.
_qvannot_codes() {
  "$1" explain 2>/dev/null | sed -n 's/^\([a-z][a-z.-]*\) .*/\1/p'
}

_qvannot() {
  local tool=$1 current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' word help value=''
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    [[ $word == -* ]] || { command=$word && break; }
  done
  # shellcheck disable=SC2086 # a command or nothing
  help=$("$tool" $command --help 2>/dev/null)
  [[ $previous == -* ]] && value=$(_qvannot_value "$help" "$previous")
  COMPREPLY=()
  if [[ $value == *'{'*'}'* ]]; then
    value=${value#*\{}
    value=${value%%\}*}
    mapfile -t COMPREPLY < <(compgen -W "${value//[,|]/ }" -- "$current")
  elif [[ $value == DIR ]]; then
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
  elif [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_qvannot_options "$help")" -- "$current")
  elif [[ $command == explain ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_qvannot_codes "$tool")" -- "$current")
  elif [[ -z $command ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_qvannot_commands "$help")" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  fi
}

complete -o filenames -F _qvannot qvannot
