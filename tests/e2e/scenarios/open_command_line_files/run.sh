#!/usr/bin/env bash
# Files named on the command line open in edit windows (a quoted name may hold blanks); at
# the exit every window closes and the names go into the recent-file list [Files]. The
# windows belong to the program's four classes.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity alu is\nend entity alu;\n' >"$work/alu.vhd"
printf 'module counter;\nendmodule\n' >"$work/my counter.v"

e2e_start_ruvo 'C:\work\alu.vhd' 'C:\work\my counter.v'
e2e_driver wait-frame "$E2E_TIMEOUT" children active
e2e_expect "open edit windows" "$(e2e_value children)" "2"
grep -q '^child .*alu\.vhd$' <<<"$E2E_OUT" || e2e_fail "no edit window for alu.vhd"
grep -q '^child .*my counter\.v$' <<<"$E2E_OUT" || e2e_fail "no edit window for 'my counter.v'"
[[ $(e2e_value active) == *"my counter.v" ]] ||
    e2e_fail "the last file opened should be the active window, not '$(e2e_value active)'"
e2e_shot open_command_line_files

# The four window classes with their exact names, styles and the edit window's buffer word.
e2e_driver class-info frame
e2e_expect "frame class" "$(e2e_value class-info)" "DavoEditClass 0x3 0"
e2e_driver class-info StatusClass
e2e_expect "status line class" "$(e2e_value class-info)" "StatusClass 0x3 0"
e2e_driver class-info ButtonClass
e2e_expect "button bar class" "$(e2e_value class-info)" "ButtonClass 0x43 0"
e2e_driver class-info active
e2e_expect "edit window class" "$(e2e_value class-info)" "EditWinCLass 0x4b 8"
e2e_close_ruvo

recent=$(e2e_ini_value "$E2E_PROFILE" Files 1)$'\n'$(e2e_ini_value "$E2E_PROFILE" Files 2)
grep -qi 'alu\.vhd$' <<<"$recent" || e2e_fail "alu.vhd is not in [Files] 1-2: $recent"
grep -qi 'my counter\.v$' <<<"$recent" || e2e_fail "'my counter.v' is not in [Files] 1-2: $recent"
e2e_log "ok: [Files] holds both names"
