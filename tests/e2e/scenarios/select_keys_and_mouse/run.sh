#!/usr/bin/env bash
# Selections made as a person makes them: Shift with the arrow keys, a mouse drag across
# lines with tabs, a double click on a word. Each is copied with EditCopy and read from the
# clipboard. Screenshots: the coloured VHDL file with line numbers and a selection, and the
# status line.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
cp "$E2E_ROOT/tests/fixtures/alu.vhd" "$work/alu.vhd"
e2e_ini_set "$E2E_PROFILE" Options FirstChildMaximized yes

e2e_start_ruvo 'C:\work\alu.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground caret active-rect scroll-bars MDICLIENT
# The maximised window fills the client, which has nothing to scroll.
e2e_expect "client scroll bars" "$(e2e_value scroll-bars)" "none"
read -r x0 y0 _ line_height <<<"$(e2e_value caret)"
read -r sx sy _ _ <<<"$(e2e_value active-rect)"
e2e_key End
e2e_driver caret
read -r x _ _ _ <<<"$(e2e_value caret)"
line1='-- Arithmetic and logic unit: eight operations on two 8-bit operands.'
char_width=$(((x - x0) / ${#line1}))
e2e_key ctrl+Home

# Two lines down and six characters right with Shift held.
e2e_key shift+Down shift+Down shift+Right shift+Right shift+Right shift+Right shift+Right shift+Right
e2e_driver command EditCopy clipboard
e2e_expect "Shift+arrow selection" "$(e2e_value clipboard)" \
    "$line1\\n-- The flags follow the result of the last clock edge.\\nlibrar"

# A drag from the start of "entity alu is" (line 7) to the end of "clk" on line 10, which
# begins with two tabs (4 columns each): display column 11 is byte 5.
px() { echo $((sx + x0 + $1 * char_width + 1)); }
py() { echo $((sy + y0 + $1 * line_height + line_height / 2)); }
timeout 30 xdotool mousemove "$(px 0)" "$(py 6)" mousedown 1 ||
    e2e_fail "xdotool could not press the mouse button"
sleep 0.2
timeout 30 xdotool mousemove "$(px 5)" "$(py 7)" sleep 0.1 mousemove "$(px 9)" "$(py 8)" \
    sleep 0.1 mousemove "$(px 11)" "$(py 9)" sleep 0.2 mouseup 1 ||
    e2e_fail "xdotool could not drag the mouse"
sleep 0.3
e2e_driver command EditCopy clipboard
e2e_expect "dragged selection" "$(e2e_value clipboard)" \
    "entity alu is\\n"$'\t'"generic (WIDTH : integer := 8);\\n"$'\t'"port (\\n"$'\t\t'"clk"
e2e_shot vhdl_colours_selection
e2e_driver child-screen-rect StatusClass
read -r tx ty tw th <<<"$(e2e_value child-screen-rect)"
convert "$E2E_SHOTS/vhdl_colours_selection.png" -crop "${tw}x${th}+${tx}+${ty}" +repage \
    "$E2E_SHOTS/status_line.png" || e2e_fail "cannot cut the status line out of the screenshot"
# The selection is drawn white on black: a pixel inside "entity" on line 7 between letters
# is black.
e2e_expect "selection background" \
    "$(e2e_pixel vhdl_colours_selection "$(px 6)" $((sy + y0 + 6 * line_height + 1)))" "0,0,0"

# A double click selects the word under the pointer.
timeout 30 xdotool mousemove "$(px 8)" "$(py 6)" click --repeat 2 --delay 80 1 ||
    e2e_fail "xdotool could not double-click"
sleep 0.3
e2e_driver command EditCopy clipboard
e2e_expect "double-clicked word" "$(e2e_value clipboard)" "alu"
e2e_close_ruvo
