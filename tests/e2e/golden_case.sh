#!/usr/bin/env bash
# Runs a golden case: a scenario folder with an input file in.<ext>, a file `steps` and the
# expected result out.<ext>. The input is opened as C:\work\<case>.<ext>, the steps are
# carried out, the buffer is saved with SaveFile and the editor closed; the saved bytes
# must equal out.<ext>. Lines of `steps` ('#' starts a comment):
#   command NAME      a command of the table, through the frame (e.g. DeleteLine)
#   type TEXT         real key presses typing TEXT (the rest of the line)
#   key KEY...        real key presses (xdotool names: Return, shift+Down, ctrl+c)
#   driver ARGS...    any ruvo_driver commands (quoted as in the shell: "Find Text")
#   shot NAME         a screenshot
# Usage: golden_case.sh CASE_DIR
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case_dir=$1 inputs=("$1"/in.*)
file=$(basename "$case_dir").${inputs[0]##*.}
[[ -f ${inputs[0]} && -f $case_dir/out.${file##*.} ]] || e2e_fail "$case_dir needs in.<ext> and out.<ext>"
cp "${inputs[0]}" "$work/$file"
e2e_open "C:\\work\\$file"
while IFS= read -r line || [[ -n $line ]]; do
    [[ $line =~ ^[[:space:]]*(#|$) ]] && continue
    verb=${line%% *} rest=${line#* }
    case $verb in
    command) e2e_driver command "$rest" ;;
    type) e2e_type "$rest" ;;
    key | driver | shot) eval "args=($rest)" && "e2e_$verb" "${args[@]}" ;;
    *) e2e_fail "unknown step '$line' in $case_dir/steps" ;;
    esac
done <"$case_dir/steps"
e2e_driver command SaveFile
e2e_shot "${file%.*}"
e2e_close_ruvo
e2e_same_file "$case_dir/out.${file##*.}" "$work/$file"
