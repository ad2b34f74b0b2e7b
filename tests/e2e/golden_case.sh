#!/usr/bin/env bash
# Runs a golden case: a scenario folder with an input file in.<ext>, a file `steps` and the
# expected result out.<ext>. The input is opened as C:\work\<case>.<ext>, the steps are
# carried out, the buffer is saved with SaveFile and the editor closed; the saved bytes
# must equal out.<ext>. Lines of `steps` ('#' starts a comment):
#   command NAME      a command of the table, through the frame (e.g. DeleteLine)
#   type TEXT         real key presses typing TEXT (the rest of the line)
#   key KEY...        real key presses (xdotool names: Return, shift+Down, ctrl+c)
#   driver ARGS...    any ruvo_driver commands
# Usage: golden_case.sh CASE_DIR
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case_dir=$1
name=$(basename "$case_dir")
inputs=("$case_dir"/in.*)
[[ -f ${inputs[0]} ]] || e2e_fail "$case_dir has no in.<ext>"
extension=${inputs[0]##*.}
expected=$case_dir/out.$extension
[[ -f $expected ]] || e2e_fail "$case_dir has no out.$extension"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
cp "${inputs[0]}" "$work/$name.$extension"

e2e_start_ruvo "C:\\work\\$name.$extension"
# Real key presses go to the foreground window.
e2e_driver wait-frame "$E2E_TIMEOUT" foreground
while IFS= read -r line || [[ -n $line ]]; do
    [[ $line =~ ^[[:space:]]*(#|$) ]] && continue
    verb=${line%% *}
    rest=${line#"$verb"}
    rest=${rest# }
    case $verb in
    command) e2e_driver command "$rest" ;;
    type) e2e_type "$rest" ;;
    key) read -r -a keys <<<"$rest" && e2e_key "${keys[@]}" ;;
    driver) read -r -a args <<<"$rest" && e2e_driver "${args[@]}" ;;
    *) e2e_fail "unknown step '$line' in $case_dir/steps" ;;
    esac
done <"$case_dir/steps"
e2e_driver command SaveFile
e2e_shot "$name"
e2e_close_ruvo

if ! cmp -s "$work/$name.$extension" "$expected"; then
    diff <(od -c "$expected") <(od -c "$work/$name.$extension") | head -n 20 >&2 || true
    e2e_fail "the saved file differs from $expected (expected < > saved)"
fi
e2e_log "ok: the saved file equals out.$extension"
