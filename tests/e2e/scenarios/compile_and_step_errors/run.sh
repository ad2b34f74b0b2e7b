#!/usr/bin/env bash
# Compiling from the editor with the stand-in compilers and stepping through the messages:
# a user tool with "$$", one whose program is missing and one that prints megabytes, a
# V-System compile of a file with two errors and a warning, NextError and PrevError (each
# selected source line read through the clipboard), the result window followed with a key, a
# click and Return, a Leonardo run, and stepping after the source window was closed.
# Screenshot: the result window beside the source with its markers.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
cp "$here/counter.vhd" "$work/counter.vhd"
rm -f "$work/leonardo.script"
e2e_ini_set "$E2E_PROFILE" Vsystem Executable 'C:\ruvo\vcom.exe'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools ToolName1 'Arguments'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Executable1 'C:\ruvo\vmap.exe'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Argument1 '-f $$ -o $$.log'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools WorkingDirectory1 'C:\work'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools ToolName2 'Missing'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Executable2 'C:\ruvo\no-such-tool.exe'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools ToolName3 'Flood'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Executable3 'C:\ruvo\vcom.exe'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Argument3 'flood.vhd'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools WorkingDirectory3 'C:\work'
flood=17500 # lines of about 60 bytes with CR LF: 1 MB
printf -- '-- vcom: flood %d\r\n' "$flood" >"$work/flood.vhd"

line() { sed -n "$1p" "$here/counter.vhd"; }
# Copies the active window's selection and compares it with the expected text.
expect_selection() {
    e2e_driver command EditCopy clipboard
    e2e_expect "$1" "$(e2e_value clipboard)" "$2"
}

e2e_start_ruvo 'C:\work\counter.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground

# A user tool gets the file name for each "$$" and runs in its working directory.
e2e_driver command RunTool1 active status-pane 3
e2e_expect "tool result title" "$(e2e_value active)" "Result of tool 'Arguments'."
e2e_expect "tool status" "$(e2e_value status-pane)" "Running scriptfile 'ruvotool.bat' for Arguments."
e2e_key ctrl+Home Down shift+End
expect_selection "tool command line" 'C:\ruvo\vmap.exe -f C:\work\counter.vhd -o C:\work\counter.vhd.log'
e2e_key Down Down Down Down Home shift+End
expect_selection "tool output" 'argument 2: C:\work\counter.vhd'

# A tool whose program does not exist.
e2e_driver post-command RunTool2 wait-window Error 30 dialog-text Error
e2e_expect "missing program" "$(e2e_value dialog-text)" "Can not create process 'C:\\ruvo\\no-such-tool.exe '"
e2e_driver answer Error ok

# A tool that prints megabytes in one go: every line arrives, without its CR, up to the last.
started=$(date +%s%N)
e2e_driver command RunTool3
ms=$((($(date +%s%N) - started) / 1000000))
e2e_key ctrl+End
e2e_driver status-pane 0
read -r end_line _ end_column <<<"$(e2e_value status-pane)"
# The header's four lines, the command line, one line before the flood, one after it, and the
# empty line behind the last line feed.
e2e_expect "lines of the flood" "$end_line:$end_column" "$((flood + 7)):0"
e2e_key Up Up Home shift+End
expect_selection "last line of the flood" \
    "-- Elaborating instance $flood of $flood in the design hierarchy"
echo "a tool printing $flood lines ($((flood * 60 / 1000)) kB) into the result window: $ms ms" |
    tee -a "$E2E_ROOT/build/e2e-logs/performance.txt" >&2

# The result window is no language file; the source is.
e2e_driver command VsystemVHDL status-pane 4
e2e_expect "compiling the result window" "$(e2e_value status-pane)" "Active window is not a language file."
e2e_driver command WindowNext active
e2e_expect "source active" "$(e2e_value active)" 'C:\work\counter.vhd'
e2e_driver command VsystemVHDL active command WindowTileVertical
e2e_expect "compile title" "$(e2e_value active)" "V-System compiler"
e2e_key ctrl+Home Down shift+End
expect_selection "vcom command line" 'C:\ruvo\vcom -work work -explicit -93  counter.vhd'
e2e_key ctrl+Home

# Stepping: no wrap at either end.
steps=(NextError 11 NextError 12 NextError 17 NextError 17 PrevError 12)
for ((i = 0; i < ${#steps[@]}; i += 2)); do
    e2e_driver command "${steps[i]}" active
    e2e_expect "${steps[i]} window" "$(e2e_value active)" 'C:\work\counter.vhd'
    expect_selection "${steps[i]} to line ${steps[i + 1]}" "$(line "${steps[i + 1]}")"
done
e2e_driver status-pane 3
e2e_expect "message in the status line" "$(e2e_value status-pane)" \
    '###### counter.vhd(12): Warning: Signal "spare" is never used.'
e2e_shot compile_result_and_markers

# The source follows the caret of the result window: a key, then Return.
e2e_driver command WindowNext active
e2e_expect "result active" "$(e2e_value active)" "V-System compiler"
e2e_key Down Return
expect_selection "Down and Return" "$(line 17)"
# A click on the message line above, then Return.
e2e_driver command WindowNext caret active-rect
read -r cx cy _ ch <<<"$(e2e_value caret)"
read -r ax ay _ _ <<<"$(e2e_value active-rect)"
e2e_click $((ax + 120)) $((ay + cy - ch + ch / 2))
e2e_key Return
expect_selection "click and Return" "$(line 12)"

# Leonardo reads the script beside the source; NextError steps through its messages.
e2e_driver command LeonardoCompile active
e2e_expect "Leonardo title" "$(e2e_value active)" "Leonardo synthesis"
e2e_expect_file_has "$work/leonardo.script" "analyze -work work counter.vhd"
e2e_driver command NextError
expect_selection "Leonardo warning" "$(line 16)"
e2e_driver command NextError
expect_selection "Leonardo error" "$(line 20)"

# With the source window closed, stepping says so.
e2e_key ctrl+F4
e2e_driver children command PrevError status-pane 3
e2e_expect "windows left" "$(e2e_value children)" "1"
e2e_expect "closed source" "$(e2e_value status-pane)" "Source window has been removed."
e2e_close_ruvo
