# Prints what bash offers for the command line $1, the cursor at its end.
. "${VARMODEL_COMPLETION:-/usr/share/bash-completion/completions/varmodel}"
eval "COMP_WORDS=($1)"
case $1 in *' ') COMP_WORDS+=('') ;; esac
COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) COMP_LINE=$1 COMP_POINT=${#1}
_varmodel
printf '%s\n' "${COMPREPLY[@]}"
