# Prints what fish offers for the command line $argv[1], the cursor at its end.
set -q VARMODEL_COMPLETION; and source $VARMODEL_COMPLETION
complete -C $argv[1] | string replace -r '\t.*' ''
