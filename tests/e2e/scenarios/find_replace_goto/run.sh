#!/usr/bin/env bash
# Find, Replace and Goto Line through their dialogs as a person uses them: the command opens
# the dialog, the word is typed and options toggled with their Alt keys, Return confirms. The
# found word is copied and read from the clipboard; a replace-all in a real VHDL file is saved
# and compared byte by byte; line 1000 of a large file is reached and marked.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
cp "$E2E_ROOT/tests/fixtures/alu.vhd" "$work/alu.vhd"
for ((i = 1; i <= 5000; i++)); do printf -- '-- line %d\r\n' "$i"; done >"$work/big.vhd"

# The state of one control of the dialog: "on", "off" or an edit's text.
control() {
    grep -m 1 -- "$1" <<<"$E2E_OUT" || e2e_fail "the dialog has no control like '$1'"
}
open_dialog() {
    e2e_driver post-command "$1" wait-window "$2" "$E2E_TIMEOUT" dialog-controls "$2"
}
confirm() {
    e2e_key Return
    e2e_driver wait-no-window "$1" 10
}

e2e_start_ruvo 'C:\work\big.vhd' 'C:\work\alu.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground active
e2e_expect "active window" "$(e2e_value active)" 'C:\work\alu.vhd'

# Find: the caret stands on no word, so the field starts empty.
open_dialog FindText "Find Text"
e2e_expect "first field" "$(control '^control Edit')" "control Edit - "
e2e_expect "entire text" "$(control 'Entire Text')" "control Button on &Entire Text"
e2e_type 'SUM'
e2e_key alt+w alt+r
e2e_driver dialog-controls "Find Text"
e2e_expect "whole words" "$(control 'Whole words')" "control Button on &Whole words"
e2e_expect "from cursor" "$(control 'Cursor')" "control Button on F&rom Cursor"
e2e_expect "entire text" "$(control 'Entire Text')" "control Button off &Entire Text"
e2e_shot find_dialog
confirm "Find Text"
e2e_driver command EditCopy clipboard
e2e_expect "found text" "$(e2e_value clipboard)" "sum"

# Replace all: the word at the caret fills the old text; the choices of Find stay, so the run
# starts at the caret, on the first match.
open_dialog ReplaceText "Replace Text"
e2e_expect "old text" "$(control '^control Edit')" "control Edit - sum"
e2e_expect "from cursor" "$(control 'Cursor')" "control Button on F&rom Cursor"
e2e_key Tab
e2e_type 'total'
e2e_key alt+a
e2e_driver dialog-controls "Replace Text"
e2e_expect "replace all" "$(control 'Replace &all')" "control Button on Replace &all"
e2e_shot replace_dialog
confirm "Replace Text"
e2e_driver command SaveFile
sed 's/\bsum\b/total/g' "$E2E_ROOT/tests/fixtures/alu.vhd" >"$work/expected.vhd"
if ! cmp -s "$work/alu.vhd" "$work/expected.vhd"; then
    diff <(od -c "$work/expected.vhd") <(od -c "$work/alu.vhd") | head -n 20 >&2 || true
    e2e_fail "the saved alu.vhd differs from the expected replacement (expected < > saved)"
fi
e2e_log "ok: every whole word sum became total"

# Goto Line in the large file; a typed mark lands at the start of line 1000.
e2e_driver command WindowNext active
e2e_expect "active window" "$(e2e_value active)" 'C:\work\big.vhd'
open_dialog GotoLine "Goto Line"
e2e_type '1000'
e2e_shot goto_line_dialog
confirm "Goto Line"
e2e_driver type '>' command SaveFile
e2e_expect "line 1000" "$(sed -n 1000p "$work/big.vhd" | tr -d '\r')" ">-- line 1000"
e2e_shot goto_line_done

e2e_close_ruvo
