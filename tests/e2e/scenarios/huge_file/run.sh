#!/usr/bin/env bash
# A 100,000-line file: the time from the start to the first painted edit window and the time
# for 1,000 typed characters, each beside the same figure for a small file (the keystroke
# path must not depend on the file's size); then the vertical thumb is dragged to the end
# with the mouse and the last lines are in view.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

lines=100000
work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
# Generated once per run.
huge=$E2E_WORK/huge.vhd
if [[ ! -f $huge ]]; then
    awk -v n="$lines" 'BEGIN { for (i = 1; i <= n; i++)
        printf "signal s%06d : std_logic_vector(7 downto 0); -- line %d\r\n", i, i }' >"$huge"
fi
cp "$huge" "$work/huge.vhd"
head -n 40 "$huge" >"$work/small.vhd"
e2e_ini_set "$E2E_PROFILE" Options FirstChildMaximized yes
figures=$E2E_ROOT/build/e2e-logs/performance.txt # printed by run_all.sh
typed=$'signal t : bit; -- typed\n' # 25 keystrokes, the last one Return

# The typed text is not kept: the close question is answered No.
close_discarding() {
    local question="Editor contents modified"
    e2e_driver close wait-window "$question" "$E2E_TIMEOUT" answer "$question" no \
        wait-gone "$E2E_TIMEOUT"
}

# Start-up and typing, small file then huge file.
# The driver starts the editor itself; its output goes to a file, not to a pipe that the
# editor (which inherits it) would hold open.
measure() {
    local out=$E2E_WORK/launch.out
    (cd "$E2E_APP_DIR" && timeout 180 wine "$E2E_APP_DIR/ruvo_driver.exe" launch-timed 120 \
        "C:\\work\\$1") </dev/null >"$out" 2>/dev/null || true
    tr -d '\r' <"$out" | sed 's/^/[driver] /' >&2
    local started
    started=$(tr -d '\r' <"$out" | sed -n 's/^launch-timed //p')
    [[ -n $started ]] || e2e_fail "the editor did not start with $1"
    e2e_driver foreground type-timed 1000 "$typed"
    eval "start_$2=$started type_$2=$(e2e_value type-timed)"
}
measure small.vhd small
close_discarding
measure huge.vhd huge
e2e_driver caret
read -r _ _ _ line_height <<<"$(e2e_value caret)"
e2e_shot huge_file_typed

# Real key presses as well: xdotool types the same 1,000 keystrokes, each line's text, then
# the Return key (xdotool's type takes all its arguments as text).
started=$(date +%s%N)
for _ in $(seq 40); do
    timeout 60 xdotool type --delay 1 "${typed%$'\n'}" || e2e_fail "xdotool could not type"
    timeout 60 xdotool key Return || e2e_fail "xdotool could not press Return"
done
e2e_driver wait-frame 60
xdotool_ms=$((($(date +%s%N) - started) / 1000000))

{
    echo "start to first painted window, $lines lines: $start_huge ms (40 lines: $start_small ms)"
    echo "1,000 keystrokes by SendMessage, $lines lines: $type_huge ms (40 lines: $type_small ms)"
    echo "1,000 keystrokes by xdotool (1 ms apart), $lines lines: $xdotool_ms ms"
} | tee -a "$figures" >&2
((type_huge <= 3 * type_small + 1000)) ||
    e2e_fail "typing into $lines lines took $type_huge ms against $type_small ms for 40 lines"

# Drag the vertical scroll box from the top to the bottom of the bar with the mouse. The bar
# lies right of the client area; its arrows are as tall as it is wide.
e2e_driver active-rect
read -r cx cy cw ch <<<"$(e2e_value active-rect)"
bar_x=$((cx + cw + 8))
drag_to() {
    timeout 30 xdotool mousemove "$bar_x" "$1" || e2e_fail "xdotool could not move the mouse"
    sleep 0.2
}
drag_to $((cy + 16 + 4))
timeout 30 xdotool mousedown 1 || e2e_fail "xdotool could not press on the scroll box"
sleep 0.2
for step in 1 2 3 4; do drag_to $((cy + 20 + step * (ch - 20) / 4)); done
# Not beyond the bar: a scroll box dragged far from its bar springs back.
drag_to $((cy + ch - 1))
timeout 30 xdotool mouseup 1 || e2e_fail "xdotool could not release the scroll box"
sleep 0.5
e2e_driver wait-frame 60
e2e_shot huge_file_thumb_at_end

# The first row now shows a line near the end: click it, select it and copy it.
e2e_click $((cx + 100)) $((cy + line_height / 2))
e2e_key Home shift+End
e2e_driver command EditCopy clipboard
first_row=$(e2e_value clipboard)
[[ $first_row =~ ^signal\ s([0-9]{6}) ]] || e2e_fail "unexpected first row '$first_row'"
top=$((10#${BASH_REMATCH[1]}))
rows=$((ch / line_height))
# The 1,000 typed keystrokes added 80 lines at the top (40 by each way of typing).
((top + rows >= lines && top < lines)) ||
    e2e_fail "after dragging the scroll box the first row shows line $top of $lines ($rows rows)"
e2e_log "ok: the first row shows file line $top after the drag ($rows rows in view)"
close_discarding
