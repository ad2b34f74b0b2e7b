#!/usr/bin/env bash
# A user tool whose output is read with a message format: the stand-in replays captured GHDL
# output in a working directory with a blank in its name; NextError steps through the first
# file to the columns GHDL gives, then into a second file that was not open, PrevError steps
# back (each selected source line read through the clipboard). Screenshots: the result window
# beside both sources with their markers, and the tool's format in the Tool Configuration
# dialog.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

captured=$E2E_ROOT/tests/fixtures/compiler-output
proj="$WINEPREFIX/drive_c/my proj"
mkdir -p "$proj" "$E2E_APP_DIR/outputs"
cp "$captured/src/vhdl/many_errors.vhd" "$captured/src/vhdl/warnings.vhd" "$proj/"
cp "$captured/outputs/ghdl_a__many_errors.txt" "$captured/outputs/ghdl_a__warnings_default.txt" \
    "$E2E_APP_DIR/outputs/"
e2e_ini_set "$E2E_PROFILE" UserDefinedTools ToolName1 'GHDL check'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Executable1 'C:\ruvo\replay_output.exe'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Argument1 \
    'C:\ruvo\outputs\ghdl_a__many_errors.txt C:\ruvo\outputs\ghdl_a__warnings_default.txt'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools WorkingDirectory1 'C:\my proj'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Messages1 'GHDL'

first='C:\my proj\many_errors.vhd'
second='C:\my proj\warnings.vhd'
line() { sed -n "$2p" "$proj/$1"; }
# Copies the active window's selection and compares it with the expected text.
expect_selection() {
    e2e_driver command EditCopy clipboard
    e2e_expect "$1" "$(e2e_value clipboard)" "$2"
}

e2e_start_ruvo "$first"
e2e_driver wait-frame "$E2E_TIMEOUT" foreground command RunTool1 active children
e2e_expect "result title" "$(e2e_value active)" "Result of tool 'GHDL check'."
e2e_expect "windows before stepping" "$(e2e_value children)" "2"

# Through the first file; the caret stands at the column of each message.
declare -A caret_x
for entry in 4 5 7 8 9; do
    e2e_driver command NextError active caret
    e2e_expect "NextError window" "$(e2e_value active)" "$first"
    read -r x _ <<<"$(e2e_value caret)"
    caret_x[$entry]=$x
    expect_selection "NextError to line $entry" "$(line many_errors.vhd "$entry")"
done
# Columns 25, 21 and 8 of lines 4, 5 and 7 lie 4 and 13 characters apart.
((13 * (caret_x[4] - caret_x[5]) == 4 * (caret_x[5] - caret_x[7]) && caret_x[4] > caret_x[5])) ||
    e2e_fail "carets not at the message columns: x ${caret_x[4]} ${caret_x[5]} ${caret_x[7]}"

# Into the second file, which opens.
e2e_driver command NextError active children
e2e_expect "second file opened" "$(e2e_value active)" "$second"
e2e_expect "windows after stepping" "$(e2e_value children)" "3"
expect_selection "NextError into the second file" "$(line warnings.vhd 25)"
e2e_driver command WindowTileVertical
e2e_shot tool_formats_second_file

# Back into the first file, which is activated, not opened again.
e2e_driver command PrevError active children
e2e_expect "PrevError window" "$(e2e_value active)" "$first"
e2e_expect "windows after stepping back" "$(e2e_value children)" "3"
expect_selection "PrevError to line 9" "$(line many_errors.vhd 9)"
e2e_shot tool_formats_back

# The tool's format is on the row below the specification in the Tool Configuration dialog.
e2e_driver post-command ToolOptions wait-window "Tool Configuration" "$E2E_TIMEOUT" \
    dialog-controls "Tool Configuration"
grep -q '^control ComboBox .*GHDL' <<<"$E2E_OUT" || e2e_fail "the Messages row does not show GHDL"
e2e_shot tool_formats_dialog
e2e_key Escape
e2e_driver wait-no-window "Tool Configuration" 10
e2e_close_ruvo
