#!/usr/bin/env bash
# The shipped button bar at the top (one row) and at the left (two columns): greyed without
# an edit window, enabled with one; clicks on buttons run their commands; resting the mouse
# on a button shows its tooltip and its description in the status line.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"

# The bar cut out of a screenshot.
bar_shot() {
    e2e_shot "$1"
    convert "$E2E_SHOTS/$1.png" -crop "${bw}x${bh}+${bx}+${by}" +repage "$E2E_SHOTS/$1.png" ||
        e2e_fail "cannot cut the button bar out of $1.png"
}
differing() {
    compare -metric AE "$E2E_SHOTS/$1.png" "$E2E_SHOTS/$2.png" null: 2>&1 || true
}

e2e_ini_set "$E2E_PROFILE" Options ButtonsLeft no
e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" child-screen-rect ButtonClass
read -r bx by bw bh <<<"$(e2e_value child-screen-rect)"
e2e_expect "height of the top bar" "$bh" "33"
bar_shot bar_top_greyed
# The first button (New) stands at 4, 2 in the bar.
e2e_click $((bx + 18)) $((by + 16))
e2e_driver children
e2e_expect "windows after the New button" "$(e2e_value children)" "1"
e2e_driver hand-over 'C:\work\a.vhd' foreground
e2e_key shift+End
bar_shot bar_top_enabled
changed=$(differing bar_top_greyed bar_top_enabled)
((changed > 500)) || e2e_fail "enabling changed only $changed pixels of the bar"
# The Cut button, seventh, after a gap: resting on it shows its label and description.
timeout 30 xdotool mousemove $((bx + 4 + 6 * 27 + 4 + 14)) $((by + 16)) sleep 0.2 \
    mousemove $((bx + 4 + 6 * 27 + 4 + 15)) $((by + 17)) || e2e_fail "xdotool could not move"
sleep 1.5
e2e_shot bar_top_tooltip
# About is the last of the 34 buttons, after six gaps.
e2e_click $((bx + 4 + 33 * 27 + 6 * 4 + 14)) $((by + 16))
e2e_driver wait-window About "$E2E_TIMEOUT" answer About ok
e2e_close_ruvo

e2e_ini_set "$E2E_PROFILE" Options ButtonsLeft yes
e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" child-screen-rect ButtonClass
read -r bx by bw bh <<<"$(e2e_value child-screen-rect)"
e2e_expect "width of the left bar" "$bw" "61"
bar_shot bar_left_greyed
# The first button (New) stands at 2, 4 in the bar.
e2e_click $((bx + 16)) $((by + 18))
e2e_driver children
e2e_expect "windows after the New button" "$(e2e_value children)" "1"
e2e_driver hand-over 'C:\work\a.vhd' foreground
e2e_key shift+End
bar_shot bar_left_enabled
e2e_close_ruvo
