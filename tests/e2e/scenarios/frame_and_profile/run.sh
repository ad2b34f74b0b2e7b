#!/usr/bin/env bash
# The frame with files named on the command line (a quoted name may hold blanks): its title,
# MDI client and 22-pixel status line, the program's four window classes, a stored placement
# restored, moves written back, the minimum tracking size, maximising. At the exit the
# placement and the recent files [Files] are written either way, the settings [Options] only
# with SaveOnExit (a saved boolean is written as yes/no, so "TRUE" shows whether they were).
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

printf 'entity alu is\nend entity alu;\n' >"$work/alu.vhd"
printf 'module counter;\nendmodule\n' >"$work/my counter.v"
# Written without blanks: read the same as with them.
e2e_profile GUI MainWindow=50,40,700,500 FullSize=no
e2e_profile Options Colors=TRUE SaveOnExit=no

e2e_open 'C:\work\alu.vhd' 'C:\work\my counter.v' -- children active frame-state frame-rect \
    client-size child-rect StatusClass
e2e_is children 2 active 'C:\work\my counter.v' frame-state normal frame-rect "50 40 700 500"
grep -qx 'child C:\\work\\alu.vhd' <<<"$E2E_OUT" || e2e_fail "no edit window for alu.vhd"
read -r width height <<<"$(e2e_value client-size)"
e2e_is child-rect "0 $((height - 22)) $width 22"
e2e_driver child-rect MDICLIENT child-screen-rect StatusClass
read -r _ client_top _ client_height <<<"$(e2e_value child-rect)"
e2e_expect "MDI client ends at the status line" "$((client_top + client_height))" "$((height - 22))"
read -r sx sy sw sh <<<"$(e2e_value child-screen-rect)"
e2e_shot frame_start_close
# The status line is light grey with a black border and a white line under its top edge;
# pane 0 starts near its left end as a sunken box (dark top edge, white bottom edge).
for check in "$((sx + sw - 40)) $sy 0,0,0" "$((sx + sw - 40)) $((sy + 1)) 255,255,255" \
    "$((sx + sw - 40)) $((sy + 11)) 192,192,192" "$((sx + 20)) $((sy + 2)) 92,92,92" \
    "$((sx + 20)) $((sy + 11)) 192,192,192" "$((sx + 20)) $((sy + sh - 3)) 255,255,255"; do
    read -r x y colour <<<"$check"
    e2e_expect "status line pixel $x,$y" "$(e2e_pixel frame_start_close "$x" "$y")" "$colour"
done
# The four window classes with their exact names, styles and the edit window's buffer word.
for check in "frame DavoEditClass 0x3 0" "StatusClass StatusClass 0x3 0" \
    "ButtonClass ButtonClass 0x43 0" "active EditWinCLass 0x4b 8"; do
    e2e_driver class-info "${check%% *}"
    e2e_is class-info "${check#* }"
done

e2e_driver move 60 70 640 480 frame-rect
e2e_is frame-rect "60 70 640 480"
e2e_driver move 60 70 200 100 frame-rect
e2e_expect "minimum tracking size" "$(e2e_value frame-rect)" "60 70 400 300"
e2e_driver move 80 90 720 560 show max frame-state
e2e_is frame-state maximized
e2e_shot frame_placement_maximized
e2e_close_ruvo
# Each argument "SECTION KEY VALUE" is a key of the profile.
profile_has() {
    for check; do
        read -r section key value <<<"$check"
        e2e_expect "[$section] $key" "$(e2e_ini_value "$E2E_PROFILE" "$section" "$key")" "$value"
    done
}
profile_has "GUI MainWindow 80, 90, 720, 560" "GUI FullSize yes" "Options Colors TRUE" \
    'Files 1 C:\work\alu.vhd' 'Files 2 C:\work\my counter.v'

# The next start, without files, comes up maximised; with SaveOnExit the settings are written.
e2e_profile Options SaveOnExit=1
e2e_open -- title frame-state show restore frame-rect
e2e_is title "RUVO / HDL Language Editor" frame-state maximized frame-rect "80 90 720 560"
e2e_close_ruvo
profile_has "GUI FullSize no" "Options Colors yes" "Options SaveOnExit yes"
