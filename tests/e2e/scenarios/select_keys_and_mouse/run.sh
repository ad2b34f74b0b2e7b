#!/usr/bin/env bash
# Selections made as a person makes them: Shift with the arrow keys, a mouse drag across
# lines with tabs, a double click on a word. Each is copied with EditCopy and read from the
# clipboard. Screenshots: the coloured VHDL file with line numbers and a selection, and the
# status line.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

cp "$E2E_ROOT/tests/fixtures/alu.vhd" "$work/alu.vhd"
e2e_profile Options FirstChildMaximized=yes
line1='-- Arithmetic and logic unit: eight operations on two 8-bit operands.'

# The maximised window fills the client, which has nothing to scroll.
e2e_open 'C:\work\alu.vhd' -- caret active-rect scroll-bars MDICLIENT child-screen-rect StatusClass
e2e_is scroll-bars none
read -r x0 y0 _ line_height <<<"$(e2e_value caret)"
read -r sx sy _ _ <<<"$(e2e_value active-rect)"
status=$(e2e_value child-screen-rect)
e2e_key End
e2e_driver caret
read -r x _ <<<"$(e2e_value caret)"
char_width=$(((x - x0) / ${#line1}))
px() { echo $((sx + x0 + $1 * char_width + 1)); }
py() { echo $((sy + y0 + $1 * line_height + line_height / 2)); }

# Two lines down and six characters right with Shift held.
e2e_key ctrl+Home shift+Down shift+Down shift+Right shift+Right shift+Right shift+Right shift+Right shift+Right
e2e_selection "Shift+arrow selection" "$line1\\n-- The flags follow the result of the last clock edge.\\nlibrar"
# A drag from the start of "entity alu is" (line 7) to the end of "clk" on line 10, which
# begins with two tabs (4 columns each): display column 11 is byte 5.
e2e_xdotool mousemove "$(px 0)" "$(py 6)" mousedown 1 sleep 0.2 mousemove "$(px 5)" "$(py 7)" \
    sleep 0.1 mousemove "$(px 9)" "$(py 8)" sleep 0.1 mousemove "$(px 11)" "$(py 9)" sleep 0.2 mouseup 1
e2e_selection "dragged selection" "entity alu is\\n"$'\t'"generic (WIDTH : integer := 8);\\n"$'\t'"port (\\n"$'\t\t'"clk"
e2e_shot vhdl_colours_selection
e2e_shot status_line "$status"
# The selection is drawn white on black: a pixel inside "entity" on line 7 between letters.
e2e_expect "selection background" \
    "$(e2e_pixel vhdl_colours_selection "$(px 6)" $((sy + y0 + 6 * line_height + 1)))" "0,0,0"
# A double click selects the word under the pointer.
e2e_xdotool mousemove "$(px 8)" "$(py 6)" click --repeat 2 --delay 80 1
e2e_selection "double-clicked word" "alu"
e2e_close_ruvo
