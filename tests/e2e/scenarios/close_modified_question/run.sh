#!/usr/bin/env bash
# Closing the frame with a modified buffer asks whether to save it. Cancel (Escape) keeps
# every window open; No (the n key) closes without saving, and the program ends with the
# file as it was. An unmodified buffer beside it is not asked about.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"
printf 'entity b is\r\nend b;\r\n' >"$work/b.vhd"
cp "$work/b.vhd" "$work/b.orig"

e2e_start_ruvo 'C:\work\a.vhd' 'C:\work\b.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground active
e2e_expect "active window" "$(e2e_value active)" 'C:\work\b.vhd'
e2e_type '-- changed'
e2e_key Return

question="Editor contents modified"
e2e_driver close wait-window "$question" "$E2E_TIMEOUT" dialog-text "$question"
e2e_expect "question" "$(e2e_value dialog-text)" "Edit buffer 'C:\\work\\b.vhd'\\nis modified, Save changes ?"
e2e_shot close_modified_question
e2e_key Escape
e2e_driver wait-no-window "$question" 10 wait-frame "$E2E_TIMEOUT" frames children
e2e_expect "frames after Cancel" "$(e2e_value frames)" "1"
e2e_expect "edit windows after Cancel" "$(e2e_value children)" "2"
cmp -s "$work/b.vhd" "$work/b.orig" || e2e_fail "b.vhd changed on disk after Cancel"

e2e_driver close wait-window "$question" "$E2E_TIMEOUT"
e2e_key n
e2e_driver wait-no-window "$question" 10 wait-gone "$E2E_TIMEOUT"
e2e_wait_ruvo_exit
cmp -s "$work/b.vhd" "$work/b.orig" || e2e_fail "b.vhd was saved although No was chosen"
e2e_log "ok: b.vhd is unchanged"
