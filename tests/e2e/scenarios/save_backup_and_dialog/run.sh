#!/usr/bin/env bash
# Saving a large buffer (progress window) with BackupFile on keeps an LZ copy in top.bak;
# Save As goes through the common save dialog; ExitApp closes the frame.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
for i in $(seq 1 3000); do printf 'signal s%d : std_logic; -- line %d\r\n' "$i" "$i"; done \
    >"$work/top.vhd"
cp "$work/top.vhd" "$work/original.vhd"
e2e_ini_set "$E2E_PROFILE" Options BackupFile yes

e2e_start_ruvo 'C:\work\top.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" command SaveFile children
e2e_expect "edit windows after saving" "$(e2e_value children)" "1"
[[ -f $work/top.bak ]] || e2e_fail "no backup top.bak was made"
cmp -s "$work/top.bak" "$work/original.vhd" || e2e_fail "top.bak differs from the original"
e2e_log "ok: top.bak is a copy of the original"
[[ $(wc -l <"$work/top.vhd") -eq 3000 ]] || e2e_fail "top.vhd lost lines on saving"

e2e_driver post-command SaveFileAs wait-window "Save As" "$E2E_TIMEOUT"
e2e_shot save_as_dialog
e2e_key ctrl+a
e2e_type 'C:\work\copy.vhd'
e2e_key Return
for _ in $(seq 100); do [[ -f $work/copy.vhd ]] && break; sleep 0.2; done
[[ -f $work/copy.vhd ]] || e2e_fail "Save As did not write C:\\work\\copy.vhd"
e2e_driver wait-frame "$E2E_TIMEOUT" active
e2e_expect "title after Save As" "$(e2e_value active)" 'C:\work\copy.vhd'

e2e_driver command ExitApp wait-gone "$E2E_TIMEOUT"
e2e_wait_ruvo_exit
cmp -s <(tr -d '\r' <"$work/copy.vhd") <(tr -d '\r' <"$work/original.vhd") ||
    e2e_fail "copy.vhd does not hold the buffer's text"
e2e_log "ok: copy.vhd holds the text"
