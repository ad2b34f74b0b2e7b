#!/usr/bin/env bash
# A generated gate-level netlist of E2E_NETLIST_MB megabytes (20 by default, so that a full
# run stays short; E2E_NETLIST_MB=200 gives the large figure): the time from the start to the
# first painted edit window and the peak memory of the editor's process, each beside the
# same figures for a 40-line file (the start within twice the small file's and a second, the
# file's memory within 1.5 times its size and 16 MB); then the netlist's last line is in place.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

megabytes=${E2E_NETLIST_MB:-20}
work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
# Generated once per run and size, then linked into the prefix.
netlist=$E2E_WORK/netlist_$megabytes.v
if [[ ! -f $netlist ]]; then
    awk -v bytes=$((megabytes * 1048576)) 'BEGIN {
        print "module top (clk, a, y);"
        total = 24
        for (i = 1; total < bytes; i++) {
            line = sprintf("  NAND2X1 U%d (.A(n%d), .B(n%d), .Y(n%d));", i, i, i + 1, i + 2)
            print line
            total += length(line) + 1
        }
        print "endmodule"
    }' >"$netlist"
fi
ln -f "$netlist" "$work/netlist.v"
head -n 40 "$netlist" >"$work/small.v"
bytes=$(stat -c %s "$netlist")
figures=$E2E_ROOT/build/e2e-logs/performance.txt # printed by run_all.sh

# The peak memory (VmHWM, in kB) of this prefix's ruvo.exe.
peak_kb() {
    local pid
    for pid in $(pgrep -f 'ruvo\.exe' || true); do
        if tr '\0' '\n' <"/proc/$pid/environ" 2>/dev/null | grep -qx "WINEPREFIX=$WINEPREFIX"; then
            awk '/^VmHWM:/ { print $2 }' "/proc/$pid/status"
            return 0
        fi
    done
    e2e_fail "no ruvo.exe of this prefix to measure"
}

# Starts the editor on one file through the driver and keeps the start time and peak memory.
# The driver's output goes to a file: the editor inherits it and would hold a pipe open.
measure() {
    local out=$E2E_WORK/launch.out
    (cd "$E2E_APP_DIR" && timeout 300 wine "$E2E_APP_DIR/ruvo_driver.exe" launch-timed 240 \
        "C:\\work\\$1") </dev/null >"$out" 2>/dev/null || true
    tr -d '\r' <"$out" | sed 's/^/[driver] /' >&2
    local started
    started=$(tr -d '\r' <"$out" | sed -n 's/^launch-timed //p')
    [[ -n $started ]] || e2e_fail "the editor did not start with $1"
    eval "start_$2=$started peak_$2=$(peak_kb)"
}

measure small.v small
e2e_driver close wait-gone "$E2E_TIMEOUT"
measure netlist.v netlist
e2e_shot large_netlist_opened

# The last line of the text is the empty one after the final line end; above it, the
# file's last line.
e2e_driver foreground
e2e_key ctrl+End Up Home shift+End
e2e_driver command EditCopy clipboard
e2e_expect "last line" "$(e2e_value clipboard)" "endmodule"
e2e_shot large_netlist_end

cost_mb=$(((peak_netlist - peak_small) / 1024))
{
    echo "start to first painted window, $megabytes MB netlist: $start_netlist ms (40 lines: $start_small ms)"
    echo "peak memory, $megabytes MB netlist: $((peak_netlist / 1024)) MB (40 lines: $((peak_small / 1024)) MB; the file: $cost_mb MB for $((bytes / 1048576)) MB)"
} | tee -a "$figures" >&2
((start_netlist <= 2 * start_small + 1000)) ||
    e2e_fail "the netlist took $start_netlist ms to show against $start_small ms for 40 lines"
# A loaded file costs at most 1.5 times its size and a fixed amount.
((cost_mb * 1048576 <= bytes * 3 / 2 + 16 * 1048576)) ||
    e2e_fail "the netlist costs $cost_mb MB of memory for $bytes bytes"
e2e_driver close wait-gone "$E2E_TIMEOUT"
