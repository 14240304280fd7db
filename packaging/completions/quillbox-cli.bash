# Completion of quillbox-cli for bash.
_quillbox_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command= word
  local collections='!*.@([MmVvCcSsBbWwIiGg][Cc][Ss]|[Mm][Pp][Ss])'
  COMPREPLY=()
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in
    -*) ;;
    *)
      command=$word
      break
      ;;
    esac
  done
  if [ -z "$command" ]; then
    mapfile -t COMPREPLY < <(compgen -W 'info export import check restore list loans doubles summary
      sort undelete --help --version' -- "$current")
    return
  fi
  case $previous in
  -f | --format)
    if [ "$command" = import ]; then
      mapfile -t COMPREPLY < <(compgen -W 'csv json' -- "$current")
    else
      mapfile -t COMPREPLY < <(compgen -W 'csv json sqlite html' -- "$current")
    fi
    return
    ;;
  --from)
    mapfile -t COMPREPLY < <(compgen -W 'sort upgrade' -- "$current")
    return
    ;;
  -b | --by)
    mapfile -t COMPREPLY < <(compgen -W 'Artist Album RecordCo MediaType Genre Label Publisher
      Commercial DiskLabel BookTitle ComicTitle Artists Author FileName' -- "$current")
    return
    ;;
  -o | --output)
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    return
    ;;
  --text | -w | --where | -s | --sort | -c | --columns) return ;;
  esac
  if [[ $current == -* ]]; then
    local options='--help'
    case $command in
    info | check | loans | doubles | summary) options+=' --json' ;;
    export) options+=' --format --output --for-spreadsheet' ;;
    import) options+=' --format --dry-run --new --cut --replace --json' ;;
    restore) options+=' --from' ;;
    list) options+=' --where --sort --columns --deleted --tsv --json' ;;
    sort) options+=' --by' ;;
    undelete) options+=' --text --cut --replace' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    return
  fi
  compopt -o filenames
  mapfile -t COMPREPLY < <(
    compgen -d -- "$current"
    shopt -s extglob
    if [ "$command" = import ]; then compgen -f -- "$current"; else
      compgen -f -X "$collections" -- "$current"; fi | sort -u
  )
}
complete -F _quillbox_cli quillbox-cli
