#!/usr/bin/env bash
# The shipped button bar at the top (one row) and at the left (two columns): greyed without
# an edit window, enabled with one; clicks on buttons run their commands; resting the mouse
# on a button shows its tooltip and its description in the status line.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

e2e_file a.vhd 'entity a is' 'end a;'
# Starts with the bar at SIDE (top or left) and checks its THICKNESS; the first button (New)
# stands 4 pixels along the bar and 2 across it; a click on it makes a window, a.vhd opens.
bar() {
    [[ $1 == top ]] && e2e_profile Options ButtonsLeft=no || e2e_profile Options ButtonsLeft=yes
    e2e_open -- child-screen-rect ButtonClass
    bar=$(e2e_value child-screen-rect)
    read -r bx by bw bh <<<"$bar"
    [[ $1 == top ]] && e2e_expect "height of the top bar" "$bh" "$2" || e2e_expect "width of the left bar" "$bw" "$2"
    e2e_shot "bar_$1_greyed" "$bar"
    [[ $1 == top ]] && e2e_click $((bx + 18)) $((by + 16)) || e2e_click $((bx + 16)) $((by + 18))
    e2e_driver children hand-over 'C:\work\a.vhd' foreground
    e2e_expect "windows after the New button" "$(e2e_value children)" 1
    e2e_key shift+End
    e2e_shot "bar_$1_enabled" "$bar"
}
bar top 33
changed=$(e2e_differing bar_top_greyed bar_top_enabled)
((changed > 500)) || e2e_fail "enabling changed only $changed pixels of the bar"
# The Cut button, seventh, after a gap: resting on it shows its label and description.
e2e_xdotool mousemove $((bx + 4 + 6 * 27 + 4 + 14)) $((by + 16)) sleep 0.2 \
    mousemove $((bx + 4 + 6 * 27 + 4 + 15)) $((by + 17)) sleep 1.5
e2e_shot bar_top_tooltip
# About is the last of the 34 buttons, after six gaps.
e2e_click $((bx + 4 + 33 * 27 + 6 * 4 + 14)) $((by + 16))
e2e_driver wait-window About "$E2E_TIMEOUT" answer About ok
e2e_close_ruvo
bar left 61
e2e_close_ruvo
