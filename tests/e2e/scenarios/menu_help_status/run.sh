#!/usr/bin/env bash
# While a menu item of a command is selected, the status line shows the command's
# description across its width; when the menu closes the panes come back unchanged.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"

# The status line cut out of a screenshot.
status_shot() {
    e2e_shot "$1"
    convert "$E2E_SHOTS/$1.png" -crop "${sw}x${sh}+${sx}+${sy}" +repage "$E2E_SHOTS/$1.png" ||
        e2e_fail "cannot cut the status line out of $1.png"
}
# Number of pixels that differ between two status line shots.
differing() {
    compare -metric AE "$E2E_SHOTS/$1.png" "$E2E_SHOTS/$2.png" null: 2>&1 || true
}

e2e_start_ruvo 'C:\work\a.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" child-screen-rect StatusClass
read -r sx sy sw sh <<<"$(e2e_value child-screen-rect)"
status_shot status_panes
e2e_driver menu-select WindowCascade
status_shot status_menu_help
e2e_driver menu-select -
status_shot status_after_menu

changed=$(differing status_panes status_menu_help)
((changed > 100)) || e2e_fail "the menu help changed only $changed pixels of the status line"
e2e_expect "pixels changed after the menu closed" "$(differing status_panes status_after_menu)" "0"
e2e_close_ruvo
