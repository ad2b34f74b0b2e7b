#!/usr/bin/env bash
# Closing the frame asks about each modified buffer in turn. Cancel (Escape) keeps every
# window open; No (the n key) closes that window without saving and goes on to the next,
# where a Cancel stops the close again. The last No ends the program with the files as they
# were on disk.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"
printf 'entity b is\r\nend b;\r\n' >"$work/b.vhd"
cp "$work/a.vhd" "$work/a.orig"
cp "$work/b.vhd" "$work/b.orig"

question="Editor contents modified"
# Waits for the question about FILE (the box about the previous file may still be closing).
asked_about() {
    local expected="Edit buffer 'C:\\work\\$1'\\nis modified, Save changes ?" tries=0
    while :; do
        e2e_driver wait-window "$question" "$E2E_TIMEOUT" dialog-text "$question"
        [[ $(e2e_value dialog-text) == "$expected" ]] && break
        ((++tries < 20)) || e2e_expect "question" "$(e2e_value dialog-text)" "$expected"
        sleep 0.2
    done
    e2e_log "ok: asked about $1"
}
windows_left() {
    e2e_driver wait-no-window "$question" 10 wait-frame "$E2E_TIMEOUT" frames children
    e2e_expect "frames" "$(e2e_value frames)" "1"
    e2e_expect "edit windows" "$(e2e_value children)" "$1"
}

e2e_start_ruvo 'C:\work\a.vhd' 'C:\work\b.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground active
e2e_expect "active window" "$(e2e_value active)" 'C:\work\b.vhd'
e2e_type '-- changed'
e2e_key Return
e2e_driver command WindowNext active
e2e_expect "active window" "$(e2e_value active)" 'C:\work\a.vhd'
e2e_type '-- changed too'
e2e_key Return

# The active window is asked first.
e2e_driver close
asked_about a.vhd
e2e_shot close_modified_question
e2e_key Escape
windows_left 2

e2e_driver close
asked_about a.vhd
e2e_key n
asked_about b.vhd
e2e_key Escape
windows_left 1
e2e_expect "the window left" "$(e2e_value child)" 'C:\work\b.vhd'

e2e_driver close
asked_about b.vhd
e2e_key n
e2e_driver wait-no-window "$question" 10 wait-gone "$E2E_TIMEOUT"
e2e_wait_ruvo_exit
cmp -s "$work/a.vhd" "$work/a.orig" || e2e_fail "a.vhd was saved although No was chosen"
cmp -s "$work/b.vhd" "$work/b.orig" || e2e_fail "b.vhd was saved although No was chosen"
e2e_log "ok: both files are unchanged"
