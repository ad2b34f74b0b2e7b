#!/usr/bin/env bash
# LoadFile shows the common open dialog; the chosen file opens in an edit window, and the
# next dialog starts in the directory the last one ended in.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

mkdir -p "$WINEPREFIX/drive_c/work/rtl"
printf 'entity alu is\nend alu;\n' >"$WINEPREFIX/drive_c/work/rtl/alu.vhd"
printf 'entity fifo is\nend fifo;\n' >"$WINEPREFIX/drive_c/work/rtl/fifo.vhd"

e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" post-command LoadFile wait-window "Open" "$E2E_TIMEOUT"
e2e_key ctrl+a
e2e_type 'C:\work\rtl\alu.vhd'
e2e_key Return
e2e_driver wait-frame "$E2E_TIMEOUT" children active
e2e_expect "edit windows" "$(e2e_value children)" "1"
e2e_expect "opened file" "$(e2e_value active)" 'C:\work\rtl\alu.vhd'

# Only a name this time: the dialog is in C:\work\rtl already.
e2e_driver post-command LoadFile wait-window "Open" "$E2E_TIMEOUT"
e2e_shot open_dialog
e2e_key ctrl+a
e2e_type 'fifo.vhd'
e2e_key Return
e2e_driver wait-frame "$E2E_TIMEOUT" children active
e2e_expect "edit windows" "$(e2e_value children)" "2"
e2e_expect "opened file" "$(e2e_value active)" 'C:\work\rtl\fifo.vhd'
e2e_close_ruvo
