#!/usr/bin/env bash
# A stored normal placement is restored, moves and size changes are written back, the frame
# keeps its minimum tracking size, and maximising keeps the last normal placement.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

set_placement() {
    e2e_ini_set "$E2E_PROFILE" GUI MainWindow "$1"
    e2e_ini_set "$E2E_PROFILE" GUI FullSize "$2"
}

# Written without blanks: read the same as with them.
set_placement "50,40,700,500" no
e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" frame-state frame-rect
e2e_expect "restored state" "$(e2e_value frame-state)" "normal"
e2e_expect "restored placement" "$(e2e_value frame-rect)" "50 40 700 500"

e2e_driver move 60 70 640 480 frame-rect
e2e_expect "moved placement" "$(e2e_value frame-rect)" "60 70 640 480"
e2e_driver move 60 70 200 100 frame-rect
e2e_expect "minimum tracking size" "$(e2e_value frame-rect)" "60 70 400 300"
e2e_driver move 80 90 720 560 show max frame-state
e2e_expect "maximised" "$(e2e_value frame-state)" "maximized"
e2e_shot frame_placement_maximized
e2e_close_ruvo

e2e_expect "MainWindow after maximise" "$(e2e_ini_value "$E2E_PROFILE" GUI MainWindow)" \
    "80, 90, 720, 560"
e2e_expect "FullSize after maximise" "$(e2e_ini_value "$E2E_PROFILE" GUI FullSize)" "yes"

# The next start comes up maximised.
e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" frame-state
e2e_expect "state at the next start" "$(e2e_value frame-state)" "maximized"
e2e_driver show restore frame-rect
e2e_expect "normal placement at the next start" "$(e2e_value frame-rect)" "80 90 720 560"
e2e_close_ruvo
e2e_expect "FullSize after restore" "$(e2e_ini_value "$E2E_PROFILE" GUI FullSize)" "no"
