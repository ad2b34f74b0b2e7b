#!/usr/bin/env bash
# The empty frame comes up with its title, MDI client and 22-pixel status line, and closing
# it writes the window placement into the profile.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" title client-size child-rect StatusClass children
e2e_expect "frame title" "$(e2e_value title)" "RUVO / HDL Language Editor"
e2e_expect "open edit windows" "$(e2e_value children)" "0"

read -r width height <<<"$(e2e_value client-size)"
e2e_expect "status line" "$(e2e_value child-rect)" "0 $((height - 22)) $width 22"

e2e_driver child-rect MDICLIENT
read -r _ client_top _ client_height <<<"$(e2e_value child-rect)"
e2e_expect "MDI client ends at the status line" "$((client_top + client_height))" \
    "$((height - 22))"

e2e_driver child-screen-rect StatusClass
read -r sx sy sw sh <<<"$(e2e_value child-screen-rect)"
e2e_shot frame_start_close
# The status line is light grey with a black border and a white line under its top edge;
# pane 0 starts near its left end as a sunken box (dark top edge, white bottom edge).
e2e_expect "status line top border" "$(e2e_pixel frame_start_close $((sx + sw - 40)) "$sy")" "0,0,0"
e2e_expect "status line highlight" "$(e2e_pixel frame_start_close $((sx + sw - 40)) $((sy + 1)))" \
    "255,255,255"
e2e_expect "status line area" "$(e2e_pixel frame_start_close $((sx + sw - 40)) $((sy + 11)))" \
    "192,192,192"
e2e_expect "pane 0 top edge" "$(e2e_pixel frame_start_close $((sx + 20)) $((sy + 2)))" "92,92,92"
e2e_expect "pane 0 inside" "$(e2e_pixel frame_start_close $((sx + 20)) $((sy + 11)))" \
    "192,192,192"
e2e_expect "pane 0 bottom edge" "$(e2e_pixel frame_start_close $((sx + 20)) $((sy + sh - 3)))" \
    "255,255,255"

# Back to the normal placement (the stored one, else the default), then close: both keys
# of [GUI] are written.
e2e_driver show restore frame-state frame-rect
e2e_expect "state after restore" "$(e2e_value frame-state)" "normal"
read -r left top frame_width frame_height <<<"$(e2e_value frame-rect)"
e2e_close_ruvo

e2e_expect_file_has "$E2E_PROFILE" "[GUI]"
e2e_expect "MainWindow" "$(e2e_ini_value "$E2E_PROFILE" GUI MainWindow)" \
    "$left, $top, $frame_width, $frame_height"
e2e_expect "FullSize" "$(e2e_ini_value "$E2E_PROFILE" GUI FullSize)" "no"
