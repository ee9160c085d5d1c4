# Completes quorvale and quorvale-settings in bash.

_quorvale() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  case "$previous" in
    /INSTALL) mapfile -t COMPREPLY < <(compgen -d -- "$current"); compopt -o nospace -o filenames ;;
    *) COMPREPLY=($(compgen -W '/C /S /P /INSTALL --root --window-id --version --help' -- "$current")) ;;
  esac
}

_quorvale_settings() {
  local current=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}
  [ "$COMP_CWORD" = 1 ] || [ "$command" != --key ] || return
  case "$COMP_CWORD" in
    1) COMPREPLY=($(compgen -W 'list get set delete reset --key --help' -- "$current")) ;;
    2)
      local sections="Options PictureFiles SoundFiles $(quorvale-settings list 2>/dev/null | cut -f 1)"
      COMPREPLY=($(compgen -W "$sections" -- "$current" | sort -u))
      ;;
    3) [ "$command" = list ] ||
      COMPREPLY=($(compgen -W "$(quorvale-settings list "${COMP_WORDS[2]}" 2>/dev/null | cut -f 2)" -- "$current")) ;;
  esac
}

complete -F _quorvale quorvale
complete -F _quorvale_settings quorvale-settings
