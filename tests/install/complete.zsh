# Prints what zsh offers for the command line $1, the cursor at its end: an interactive zsh on a terminal of its own
# completes, and what it hands to compadd is told.
zmodload zsh/zpty
zpty shell zsh -f -i
say() { zpty -w shell "$1"; }
say 'PS1= PS2= PROMPT_EOL_MARK=; stty -echo; unsetopt zle_bracketed_paste 2>/dev/null'
[ -z "$VARMODEL_COMPLETION" ] || say "fpath=('${VARMODEL_COMPLETION:h}' \$fpath)"
say 'autoload -Uz compinit && compinit -u -D'
say 'compadd() {
  local -a hits
  [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]] || { builtin compadd -A hits -D hits "$@" 2>/dev/null; builtin compadd -A hits "$@"; }
  local one; for one in $hits; do print -r -- "<hit:$one>"; done
  builtin compadd "$@"
}'
say 'told() { zle complete-word; print -r -- "<all told>"; zle kill-whole-line; }'
say 'zle -N told; bindkey "^T" told; zstyle ":completion:*" verbose no; LISTMAX=10000'
say 'print -r -- "<ready" now">"'
zpty -r shell text '*<ready now>*' >/dev/null
zpty -w -n shell "$1"$'\C-t'
zpty -r shell text '*<all told>*' >/dev/null
print -r -- "$text" | tr -d '\r' | sed -n 's/.*<hit:\([^<>]*\)>.*/\1/p' | sort -u
zpty -d shell
