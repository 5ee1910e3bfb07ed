# Completion of tarn-record and tarnlog in bash. The programs themselves say what can follow; here their answer is fitted
# to what bash takes for a word.

# Sets `plain` to a word without its quotes and backslashes, and `open` to the quote that is not closed yet.
_tarn_record_unquote() {
  local quoted=$1 c i
  plain= open=
  for ((i = 0; i < ${#quoted}; ++i)); do
    c=${quoted:i:1}
    if [[ $c == \\ && $open != "'" ]]; then
      ((++i))
      plain+=${quoted:i:1}
    elif [[ -n $open && $c == "$open" ]]; then
      open=
    elif [[ -z $open && $c == [\"\'] ]]; then
      open=$c
    else
      plain+=$c
    fi
  done
}

_tarn_record() {
  local program=${1/#\~/$HOME} ask=complete
  [[ ${program##*/} == tarnlog ]] && ask=--complete

  # Bash parts words at = and :, too. They are one again where no blank stands between them.
  local rest=${COMP_LINE:0:COMP_POINT} word blanks i
  local -a quoted=()
  for ((i = 0; i <= COMP_CWORD; ++i)); do
    blanks=${rest%%[![:space:]]*}
    rest=${rest#"$blanks"}
    word=${COMP_WORDS[i]}
    ((i == COMP_CWORD)) && word=$rest
    rest=${rest#"$word"}
    if ((i == 0)) || [[ -n $blanks ]]; then
      quoted+=("$word")
    else
      quoted[${#quoted[@]}-1]+=$word
    fi
  done

  local plain open
  local -a words=()
  for word in "${quoted[@]:1}"; do
    _tarn_record_unquote "$word"
    words+=("$plain")
  done

  # What bash replaces begins behind the last of these.
  local kept=
  [[ -z $open && $plain == *[:=@]* ]] && kept=${plain%"${plain##*[:=@]}"}

  local line text
  COMPREPLY=()
  while IFS= read -r line; do
    case $line in
      :files | :folders)
        compopt -o filenames
        local kind=-f value=$plain
        [[ $line == :folders ]] && kind=-d
        [[ $plain == --*=* ]] && value=${plain#*=}
        [[ $value == \~/* ]] && value=$HOME/${value#\~/}
        while IFS= read -r text; do COMPREPLY+=("$text"); done < <(compgen "$kind" -- "$value")
        continue
        ;;
    esac
    text=${line%%$'\t'*}
    [[ $text == *[/:=\<\>] ]] && compopt -o nospace
    text=${text#"$kept"}
    case $open in
      \") text=${text//\\/\\\\} text=${text//\"/\\\"} text=${text//\$/\\\$} text=${text//\`/\\\`} ;;
      \') ;;
      *) printf -v text %q "$text" ;;
    esac
    COMPREPLY+=("$text")
  done < <("$program" "$ask" -- "${words[@]}" 2>/dev/null)
}

complete -F _tarn_record tarn-record tarnlog
