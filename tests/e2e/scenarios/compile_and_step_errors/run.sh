#!/usr/bin/env bash
# Compiling from the editor with the stand-in compilers and stepping through the messages:
# a user tool with "$$", one whose program is missing and one that prints megabytes, a
# V-System compile of a file with two errors and a warning, NextError and PrevError (each
# selected source line read through the clipboard), the result window followed with a key and
# Return, a Leonardo run, and "V-System Options" making a library with "Create
# Library". Screenshots: the result window beside the source with its markers, the dialog.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

cp "$here/counter.vhd" "$work/counter.vhd"
flood=17500 # lines of about 60 bytes with CR LF: 1 MB
e2e_file flood.vhd "-- vcom: flood $flood"
e2e_profile Vsystem 'Executable=C:\ruvo\vcom.exe'
e2e_profile UserDefinedTools ToolName1=Arguments 'Executable1=C:\ruvo\vmap.exe' \
    'Argument1=-f $$ -o $$.log' 'WorkingDirectory1=C:\work' ToolName2=Missing \
    'Executable2=C:\ruvo\no-such-tool.exe' ToolName3=Flood 'Executable3=C:\ruvo\vcom.exe' \
    Argument3=flood.vhd 'WorkingDirectory3=C:\work'
line() { sed -n "$1p" "$here/counter.vhd"; }

# A user tool gets the file name for each "$$" and runs in its working directory.
e2e_open 'C:\work\counter.vhd' -- command RunTool1 active
e2e_is active "Result of tool 'Arguments'."
e2e_key ctrl+Home Down shift+End
e2e_selection "tool command line" 'C:\ruvo\vmap.exe -f C:\work\counter.vhd -o C:\work\counter.vhd.log'
e2e_key Down Down Down Down Home shift+End
e2e_selection "tool output" 'argument 2: C:\work\counter.vhd'

# A tool whose program does not exist.
e2e_driver post-command RunTool2 wait-window Error 30 dialog-text Error
e2e_is dialog-text "Can not create process 'C:\\ruvo\\no-such-tool.exe '"
e2e_driver answer Error ok

# A tool that prints megabytes in one go: every line arrives, without its CR, up to the last:
# the header's four lines, the command line, one line before the flood, one after it, and the
# empty line behind the last line feed.
started=$(date +%s%N)
e2e_driver command RunTool3
ms=$((($(date +%s%N) - started) / 1000000))
e2e_key ctrl+End
e2e_driver status-pane 0
read -r end_line _ end_column <<<"$(e2e_value status-pane)"
e2e_expect "lines of the flood" "$end_line:$end_column" "$((flood + 7)):0"
e2e_key Up Up Home shift+End
e2e_selection "last line of the flood" "-- Elaborating instance $flood of $flood in the design hierarchy"
echo "a tool printing $flood lines ($((flood * 60 / 1000)) kB) into the result window: $ms ms" |
    tee -a "$E2E_PERFORMANCE" >&2

# The tools' result window closed with Ctrl+F4; the source is compiled.
e2e_key ctrl+F4
e2e_driver children command VsystemVHDL active command WindowTileVertical
e2e_is children 1 active "V-System compiler"
e2e_key ctrl+Home Down shift+End
e2e_selection "vcom command line" 'C:\ruvo\vcom -work work -explicit -93  counter.vhd'
e2e_key ctrl+Home
for step in NextError:11 NextError:12 NextError:17 PrevError:12; do
    e2e_driver command "${step%:*}" active
    e2e_is active 'C:\work\counter.vhd'
    e2e_selection "$step" "$(line "${step#*:}")"
done
e2e_driver status-pane 3
e2e_is status-pane '###### counter.vhd(12): Warning: Signal "spare" is never used.'
e2e_shot compile_result_and_markers

# The source follows the caret of the result window: a key, then Return.
e2e_driver command WindowNext active
e2e_is active "V-System compiler"
e2e_key Down Return
e2e_selection "Down and Return" "$(line 17)"

# Leonardo reads the script beside the source; NextError steps through its messages.
e2e_driver command LeonardoCompile active
e2e_is active "Leonardo synthesis"
tr -d '\r' <"$work/leonardo.script" | grep -qx 'analyze -work work counter.vhd' || e2e_fail "no leonardo.script"
e2e_driver command NextError
e2e_selection "Leonardo warning" "$(line 16)"
e2e_driver command NextError
e2e_selection "Leonardo error" "$(line 20)"

# A library made from the first page of V-System Options.
e2e_dialog VsystemOptions "V-System Options"
e2e_expect "library" "$(e2e_control '^control Edit')" "control Edit - work"
e2e_key alt+d
e2e_type 'C:\work\mylib'
e2e_shot vsystem_options_dialog
e2e_key alt+l
e2e_key Tab Tab Tab space
e2e_until 20 test -d "$work/mylib" || e2e_fail "Create Library made no C:\\work\\mylib"
e2e_key Escape
e2e_driver wait-no-window "V-System Options" 10 active
e2e_is active "V-System compiler"
e2e_close_ruvo
