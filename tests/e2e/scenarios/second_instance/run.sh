#!/usr/bin/env bash
# A second start hands its command line to the running editor and ends: the file opens in
# the first frame, also when named relative to the second start's directory. "/n" starts a
# frame of its own; "/p" ends without showing a frame.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"
printf 'entity b is\r\nend b;\r\n' >"$work/b.vhd"
printf 'entity c is\r\nend c;\r\n' >"$work/c.vhd"

# Starts ruvo.exe in DIRECTORY with ARGS and waits until that start has ended.
start_and_wait_end() {
    local directory=$1
    shift
    (cd "$directory" && exec wine "$E2E_APP_DIR/ruvo.exe" "$@") \
        </dev/null >>"${E2E_SCENARIO_LOG:-/dev/null}" 2>&1 &
    local pid=$! waited=0
    while kill -0 "$pid" 2>/dev/null; do
        ((waited >= 300)) && e2e_fail "ruvo.exe $* did not end within 30 s"
        sleep 0.1
        waited=$((waited + 1))
    done
    wait "$pid" || e2e_fail "ruvo.exe $* ended with status $?"
    e2e_log "ruvo.exe $* ended by itself"
}

e2e_start_ruvo 'C:\work\a.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" children
e2e_expect "edit windows at start" "$(e2e_value children)" "1"

start_and_wait_end "$E2E_APP_DIR" 'C:\work\b.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" frames children active
e2e_expect "frames after a second start" "$(e2e_value frames)" "1"
e2e_expect "edit windows after a second start" "$(e2e_value children)" "2"
e2e_expect "handed-over file" "$(e2e_value active)" 'C:\work\b.vhd'

# A name relative to the second start's current directory is made absolute there.
start_and_wait_end "$work" c.vhd
e2e_driver wait-frame "$E2E_TIMEOUT" children active
e2e_expect "edit windows after a relative name" "$(e2e_value children)" "3"
e2e_expect "relative name handed over" "$(e2e_value active)" 'C:\work\c.vhd'

# The same name again brings its window forward instead of opening it twice.
start_and_wait_end "$E2E_APP_DIR" 'C:\work\a.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" children active
e2e_expect "edit windows after a.vhd again" "$(e2e_value children)" "3"
e2e_expect "a.vhd brought forward" "$(e2e_value active)" 'C:\work\a.vhd'

# Printing from the command line opens no frame; with no printer (a CUPS server that does not
# exist) it says so in an error box and ends.
(cd "$E2E_APP_DIR" && CUPS_SERVER=$E2E_WORK/no-cups.sock exec wine "$E2E_APP_DIR/ruvo.exe" /p \
    'C:\work\a.vhd') </dev/null >>"${E2E_SCENARIO_LOG:-/dev/null}" 2>&1 &
printing=$!
e2e_driver wait-window Error "$E2E_TIMEOUT" dialog-text Error frames children
e2e_expect "error box of /p" "$(e2e_value dialog-text)" "No printer is installed."
e2e_expect "frames after /p" "$(e2e_value frames)" "1"
e2e_expect "edit windows after /p" "$(e2e_value children)" "3"
e2e_driver answer Error ok
wait "$printing" || e2e_fail "ruvo.exe /p ended with status $?"

# "/n": a second frame with its own edit window.
(cd "$E2E_APP_DIR" && exec wine "$E2E_APP_DIR/ruvo.exe" /n 'C:\work\b.vhd') \
    </dev/null >>"${E2E_SCENARIO_LOG:-/dev/null}" 2>&1 &
second=$!
for _ in $(seq 200); do
    e2e_driver frames
    [[ $(e2e_value frames) == 2 ]] && break
    sleep 0.2
done
e2e_expect "frames after /n" "$(e2e_value frames)" "2"
e2e_shot second_instance_two_frames

# Close both frames (nothing is modified, so no question is asked).
e2e_driver close
for _ in $(seq 200); do
    e2e_driver frames
    [[ $(e2e_value frames) == 1 ]] && break
    sleep 0.2
done
e2e_expect "frames after closing one" "$(e2e_value frames)" "1"
e2e_driver close wait-gone "$E2E_TIMEOUT"
wait "$second" 2>/dev/null || true
e2e_wait_ruvo_exit
