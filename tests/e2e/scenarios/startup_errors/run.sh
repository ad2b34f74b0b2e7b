#!/usr/bin/env bash
# A language options file that cannot be opened is not reported in a box at start-up; the
# frame comes up with the "startup.err" window listing the fault, next to the file named on
# the command line.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"
e2e_ini_set "$E2E_PROFILE" VHDL File 'C:\nowhere\vhdl.lsf'

e2e_start_ruvo 'C:\work\a.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground children active
e2e_expect "edit windows" "$(e2e_value children)" "2"
grep -qx 'child C:\\work\\a.vhd' <<<"$E2E_OUT" || e2e_fail "no edit window for a.vhd"
e2e_expect "the report is shown last" "$(e2e_value active)" "startup.err"
e2e_key ctrl+Home ctrl+shift+End
e2e_driver command EditCopy clipboard
grep -qF "C:\\nowhere\\vhdl.lsf" <<<"$(e2e_value clipboard)" ||
    e2e_fail "the report does not name the missing file: $(e2e_value clipboard)"
e2e_log "ok: the report names the missing file: $(e2e_value clipboard)"
e2e_shot startup_errors
e2e_close_ruvo
