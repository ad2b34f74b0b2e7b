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

e2e_shot frame_start_close

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
