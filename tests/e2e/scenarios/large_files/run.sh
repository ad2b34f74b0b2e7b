#!/usr/bin/env bash
# Large files against a 40-line one. A 100,000-line file: the time from the start to the first
# painted edit window and the time for 1,000 typed characters (the keystroke path must not
# depend on the file's size), then the vertical thumb dragged to the end with the mouse shows
# the last lines. A generated gate-level netlist of E2E_NETLIST_MB megabytes (20 by default, so
# that a full run stays short; E2E_NETLIST_MB=200 gives the large figure): the start within
# twice the small file's and a second, the peak memory of the editor's process within 1.5
# times the file's size and 16 MB over the small file's, and its last line in place.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

lines=100000
megabytes=${E2E_NETLIST_MB:-20}
# Generated once per run and size, then linked into the prefix.
huge=$E2E_WORK/huge.vhd netlist=$E2E_WORK/netlist_$megabytes.v
[[ -f $huge ]] || awk -v n="$lines" 'BEGIN { for (i = 1; i <= n; i++)
    printf "signal s%06d : std_logic_vector(7 downto 0); -- line %d\r\n", i, i }' >"$huge"
[[ -f $netlist ]] || awk -v n=$((megabytes * 1048576 - 34)) 'BEGIN { print "module top (clk, a, y);"
    for (i = 1; t < n; i++) { l = sprintf("  NAND2X1 U%d (.A(n%d), .B(n%d), .Y(n%d));", i, i, i + 1, i + 2); print l; t += length(l) + 1 }
    print "endmodule" }' >"$netlist"
ln -f "$huge" "$work/huge.vhd"
ln -f "$netlist" "$work/netlist.v"
head -n 40 "$huge" >"$work/small.vhd"
typed=$'signal t : bit; -- typed\n' # 25 keystrokes, the last one Return

# The driver starts the editor on a file and keeps the time to its first painted window and
# the peak memory (VmHWM, kB) of this prefix's ruvo.exe, then times 1,000 typed characters
# (not into the netlist). Its output goes to a file: the editor inherits it and would hold a
# pipe open.
measure() {
    local out=$E2E_WORK/launch.out pid
    (cd "$E2E_APP_DIR" && timeout 300 wine "$E2E_APP_DIR/ruvo_driver.exe" launch-timed 240 \
        "C:\\work\\$1") </dev/null >"$out" 2>/dev/null || true
    E2E_OUT=$(tr -d '\r' <"$out")
    eval "start_$2=$(e2e_value launch-timed)"
    for pid in $(pgrep -f 'ruvo\.exe'); do
        tr '\0' '\n' <"/proc/$pid/environ" 2>/dev/null | grep -qx "WINEPREFIX=$WINEPREFIX" &&
            eval "peak_$2=$(awk '/^VmHWM:/ { print $2 }' "/proc/$pid/status")"
    done
    e2e_driver foreground
    [[ $2 == netlist ]] || { e2e_driver type-timed 1000 "$typed" && eval "type_$2=$(e2e_value type-timed)"; }
}
# The typed text is not kept: the close question is answered No.
close_discarding() {
    local question="Editor contents modified"
    e2e_driver close wait-window "$question" "$E2E_TIMEOUT" answer "$question" no \
        wait-gone "$E2E_TIMEOUT"
}

e2e_profile Options FirstChildMaximized=yes
measure small.vhd small
close_discarding
measure huge.vhd huge
e2e_driver caret active-rect
read -r _ _ _ line_height <<<"$(e2e_value caret)"
read -r cx cy cw ch <<<"$(e2e_value active-rect)"
e2e_shot huge_file_typed
# Real key presses as well: xdotool types the same 1,000 keystrokes, each line's text, then
# the Return key (xdotool's type takes all its arguments as text).
started=$(date +%s%N)
for _ in $(seq 40); do
    timeout 60 xdotool type --delay 1 "${typed%$'\n'}" && timeout 60 xdotool key Return ||
        e2e_fail "xdotool could not type"
done
e2e_driver wait-frame 60
xdotool_ms=$((($(date +%s%N) - started) / 1000000))
((type_huge <= 3 * type_small + 1000)) ||
    e2e_fail "typing into $lines lines took $type_huge ms against $type_small ms for 40 lines"

# Drag the vertical scroll box from the top to the bottom of the bar, right of the client
# area (its arrows are as tall as it is wide), not beyond: a box dragged off its bar springs back.
drag=(mousemove $((cx + cw + 8)) $((cy + 20)) sleep 0.2 mousedown 1 sleep 0.2)
for step in 1 2 3 4; do drag+=(mousemove $((cx + cw + 8)) $((cy + 20 + step * (ch - 20) / 4)) sleep 0.2); done
timeout 30 xdotool "${drag[@]}" mousemove $((cx + cw + 8)) $((cy + ch - 1)) sleep 0.2 mouseup 1 ||
    e2e_fail "xdotool could not drag the scroll box"
sleep 0.5
e2e_driver wait-frame 60
e2e_shot huge_file_thumb_at_end
# The first row now shows a line near the end (80 typed lines came in at the top).
e2e_click $((cx + 100)) $((cy + line_height / 2))
e2e_key Home shift+End
e2e_driver command EditCopy clipboard
[[ $(e2e_value clipboard) =~ ^signal\ s([0-9]{6}) ]] || e2e_fail "unexpected first row '$(e2e_value clipboard)'"
top=$((10#${BASH_REMATCH[1]}))
((top + ch / line_height >= lines && top < lines)) ||
    e2e_fail "after dragging the scroll box the first row shows line $top of $lines"
close_discarding

measure netlist.v netlist
e2e_shot large_netlist_opened
# Above the empty line after the final line end: the file's last line.
e2e_key ctrl+End Up Home shift+End
e2e_selection "last line" "endmodule"
e2e_shot large_netlist_end
e2e_driver close wait-gone "$E2E_TIMEOUT"
bytes=$(stat -c %s "$netlist") cost_mb=$(((peak_netlist - peak_small) / 1024))
{
    echo "start to first painted window, $lines lines: $start_huge ms (40 lines: $start_small ms)"
    echo "1,000 keystrokes by SendMessage, $lines lines: $type_huge ms (40 lines: $type_small ms)"
    echo "1,000 keystrokes by xdotool (1 ms apart), $lines lines: $xdotool_ms ms"
    echo "start to first painted window, $megabytes MB netlist: $start_netlist ms (40 lines: $start_small ms)"
    echo "peak memory, $megabytes MB netlist: $((peak_netlist / 1024)) MB (40 lines: $((peak_small / 1024)) MB; the file: $cost_mb MB for $((bytes / 1048576)) MB)"
} | tee -a "$E2E_PERFORMANCE" >&2
((start_netlist <= 2 * start_small + 1000)) ||
    e2e_fail "the netlist took $start_netlist ms to show against $start_small ms for 40 lines"
((cost_mb * 1048576 <= bytes * 3 / 2 + 16 * 1048576)) ||
    e2e_fail "the netlist costs $cost_mb MB of memory for $bytes bytes"
