#!/usr/bin/env bash
# A file handed over by a second start opens in the running frame; handing the same file
# over again brings its window forward instead of opening a second one. Alt+F4 closes all.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\nend a;\n' >"$work/a.vhd"
printf 'module b;\nendmodule\n' >"$work/b.v"

e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" children
e2e_expect "edit windows at start" "$(e2e_value children)" "0"

e2e_driver hand-over 'C:\work\a.vhd' hand-over 'C:\work\b.v' children active
e2e_expect "edit windows after two hand-overs" "$(e2e_value children)" "2"
e2e_expect "active window" "$(e2e_value active)" 'C:\work\b.v'

e2e_driver hand-over 'C:\work\a.vhd' children active
e2e_expect "edit windows after handing a.vhd over again" "$(e2e_value children)" "2"
e2e_expect "active window" "$(e2e_value active)" 'C:\work\a.vhd'
e2e_shot hand_over_file

# A user's Alt+F4 closes the frame with its edit windows.
e2e_key alt+F4
e2e_driver wait-gone "$E2E_TIMEOUT"
e2e_wait_ruvo_exit
