#!/usr/bin/env bash
# A VHDL file named on the command line is edited with real key presses: Return keeps the
# indentation, Backspace and Delete remove characters, Insert switches to overwriting (the
# caret becomes a block) and back. Undo and redo go through the command table, SaveFile
# writes the buffer, and the saved bytes are compared with the expected file.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
cp "$here/in.vhd" "$work/counter.vhd"

e2e_start_ruvo 'C:\work\counter.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground active caret
e2e_expect "opened file" "$(e2e_value active)" 'C:\work\counter.vhd'
read -r x0 y0 insert_width line_height <<<"$(e2e_value caret)"
# One character's width from the caret at the end of the first line (17 characters).
e2e_key End
e2e_driver caret
read -r x _ _ _ <<<"$(e2e_value caret)"
char_width=$(((x - x0) / 17))
e2e_expect "caret at the end of line 1" "$x" "$((x0 + 17 * char_width))"
e2e_key Home

# To the end of the port line, a new line indented like it, a comment with a slip fixed by
# Backspace.
e2e_key Down End Return
e2e_type '-- clock resst'
e2e_key BackSpace BackSpace BackSpace
e2e_type 'set'
e2e_driver caret
read -r x y _ _ <<<"$(e2e_value caret)"
e2e_expect "caret row after Return" "$y" "$((y0 + 2 * line_height))"
e2e_expect "caret column after typing" "$((x - x0))" "$((16 * char_width))"

# Delete removes the character at the caret: "clock" loses its first "c".
e2e_key Left Left Left Left Left Left Left Left Left Left Left
e2e_key Delete
# Overwrite: the caret is a block as wide as a character, typed text replaces the old.
e2e_key Insert
e2e_driver caret
read -r _ _ overwrite_width _ <<<"$(e2e_value caret)"
((overwrite_width > insert_width)) ||
    e2e_fail "the overwrite caret ($overwrite_width px) is not wider than the insert caret ($insert_width px)"
e2e_type 'CL'
e2e_key Insert
e2e_driver caret
read -r _ _ width _ <<<"$(e2e_value caret)"
e2e_expect "insert caret again" "$width" "$insert_width"
e2e_type 'K'
e2e_shot edit_keys_before_undo

# Two undos take back the inserted "K" and the overwriting "L" (the "o" returns); one redo
# puts the "L" back: "  -- CLck reset".
e2e_driver command EditUndo command EditUndo command EditRedo
e2e_driver command SaveFile
e2e_close_ruvo

if ! cmp -s "$work/counter.vhd" "$here/expected.vhd"; then
    diff <(od -c "$here/expected.vhd") <(od -c "$work/counter.vhd") | head -n 20 >&2 || true
    e2e_fail "the saved file differs from expected.vhd (expected < > saved)"
fi
e2e_log "ok: the saved file equals expected.vhd"
