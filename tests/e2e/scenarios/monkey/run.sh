#!/usr/bin/env bash
# Random characters, keys, clicks, scrolling and commands against a real VHDL file, every
# dialog answered or closed: no crash, no hang, and after leaving without saving the file on
# disk is unchanged. MONKEY_EVENTS (300 here; scripts/monkey runs 10,000) and MONKEY_SEED
# (from the clock when unset) choose the run; the seed is printed for a replay.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

events=${MONKEY_EVENTS:-300}
seed=${MONKEY_SEED:-$(($(date +%s%N) % 1000000))}
work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
cp "$E2E_ROOT/tests/fixtures/alu.vhd" "$work/alu.vhd"
before=$(md5sum <"$work/alu.vhd")

e2e_start_ruvo 'C:\work\alu.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT"
e2e_log "monkey: seed $seed, $events events (again: MONKEY_SEED=$seed MONKEY_EVENTS=$events)"
status=0
out=$(cd "$E2E_APP_DIR" &&
    timeout $((events / 2 + 120)) wine ruvo_monkey.exe "$seed" "$events" 'C:\work\alu.vhd' \
        </dev/null 2>/dev/null | tr -d '\r') || status=$?
printf '%s\n' "$out" | sed 's/^/[monkey] /' >&2
if ((status != 0)) || ! grep -q '^monkey done ' <<<"$out"; then
    e2e_shot monkey_failed
    e2e_fail "monkey seed $seed: $(grep '^error' <<<"$out" || echo "exit status $status")"
fi
e2e_wait_ruvo_exit
[[ $(md5sum <"$work/alu.vhd") == "$before" ]] ||
    e2e_fail "monkey seed $seed: alu.vhd changed on disk without a save"
e2e_log "ok: $(grep '^monkey done ' <<<"$out"), seed $seed, alu.vhd unchanged"
