#!/usr/bin/env bash
# User tools as a person sets them up and runs them. A tool whose output is read with a
# message format: the stand-in replays captured GHDL output in a working directory with a
# blank in its name; NextError steps through the first file to the columns GHDL gives, then
# into a second file that was not open, PrevError steps back (each selected source line read
# through the clipboard). Then "Tool Configuration" shows the format, a tool is added (its
# name asked in the input dialog, its fields typed) and run at once. Screenshots: the result
# window beside both sources with their markers, and the dialog with the format and the new tool.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

captured=$E2E_ROOT/tests/fixtures/compiler-output
proj="$WINEPREFIX/drive_c/my proj"
mkdir -p "$proj" "$E2E_APP_DIR/outputs"
cp "$captured/src/vhdl/many_errors.vhd" "$captured/src/vhdl/warnings.vhd" "$proj/"
cp "$captured/outputs/ghdl_a__many_errors.txt" "$captured/outputs/ghdl_a__warnings_default.txt" \
    "$E2E_APP_DIR/outputs/"
e2e_profile UserDefinedTools 'ToolName1=GHDL check' 'Executable1=C:\ruvo\replay_output.exe' \
    'Argument1=C:\ruvo\outputs\ghdl_a__many_errors.txt C:\ruvo\outputs\ghdl_a__warnings_default.txt' \
    'WorkingDirectory1=C:\my proj' Messages1=GHDL

first='C:\my proj\many_errors.vhd'
second='C:\my proj\warnings.vhd'
line() { sed -n "$2p" "$proj/$1"; }

e2e_open "$first" -- command RunTool1 active children
e2e_is active "Result of tool 'GHDL check'." children 2
# Through the first file (the columns GHDL gives are the message format's rule).
for entry in 4 5 7 8 9; do
    e2e_driver command NextError active
    e2e_is active "$first"
    e2e_selection "NextError to line $entry" "$(line many_errors.vhd "$entry")"
done
# Into the second file, which opens; back into the first, which is activated, not opened again.
e2e_driver command NextError active children
e2e_is active "$second" children 3
e2e_selection "NextError into the second file" "$(line warnings.vhd 25)"
e2e_driver command WindowTileVertical
e2e_shot tool_formats_second_file
e2e_driver command PrevError active children
e2e_is active "$first" children 3
e2e_selection "PrevError to line 9" "$(line many_errors.vhd 9)"
e2e_shot tool_formats_back

# The tool's format is on the row below the executable, argument and directory; a second tool typed in after it.
e2e_dialog ToolOptions "Tool Configuration"
e2e_expect "listed tool" "$(e2e_control '^control ComboBox')" "control ComboBox - GHDL check"
e2e_control '^control ComboBox .*GHDL' >/dev/null
e2e_shot tool_formats_dialog
e2e_key alt+a
e2e_driver wait-window RUVO 10
e2e_type 'Lister'
e2e_key Return
e2e_driver wait-no-window RUVO 10
e2e_key Tab Tab
e2e_type 'C:\ruvo\vmap.exe'
e2e_key Tab
e2e_type '-l $$'
e2e_driver dialog-controls "Tool Configuration"
e2e_expect "new tool" "$(e2e_control '^control ComboBox')" "control ComboBox - Lister"
e2e_shot tool_configuration_dialog
e2e_key Return
e2e_driver wait-no-window "Tool Configuration" 10 command RunTool2 active
e2e_is active "Result of tool 'Lister'."
e2e_key ctrl+Home Down shift+End
e2e_selection "new tool's command line" "C:\\ruvo\\vmap.exe -l $first"
e2e_close_ruvo
