#!/usr/bin/env bash
# The About command shows the program's title, version and build date; the Window menu's
# commands tile the edit windows and step through them.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"
printf 'module b;\r\nendmodule\r\n' >"$work/b.v"

e2e_start_ruvo 'C:\work\a.vhd' 'C:\work\b.v'
e2e_driver wait-frame "$E2E_TIMEOUT" post-command About wait-window About "$E2E_TIMEOUT" \
    dialog-text About
about=$(e2e_value dialog-text)
# The build date as the compiler writes it, e.g. "[ Nov  2 2026 ]".
[[ $about =~ ^'RUVO / HDL Language Editor\nVersion  1.2, Revision 2\n[ '[A-Z][a-z]{2}\ [\ 1-3][0-9]\ [0-9]{4}' ]'$ ]] ||
    e2e_fail "unexpected about box text '$about'"
e2e_log "ok: about box '$about'"
e2e_shot about_box
e2e_driver answer About ok

e2e_driver client-size command WindowTileVertical active-rect
read -r client_width _ <<<"$(e2e_value client-size)"
read -r _ _ width _ <<<"$(e2e_value active-rect)"
((width < client_width / 2)) ||
    e2e_fail "after WindowTileVertical the active window is $width px wide in a $client_width px frame"
e2e_shot window_tile_vertical

e2e_driver active command WindowNext active
grep -qx 'active C:\\work\\a.vhd' <<<"$E2E_OUT" || e2e_fail "WindowNext did not reach a.vhd"
e2e_driver command WindowPrevious active
e2e_expect "after WindowPrevious" "$(e2e_value active)" 'C:\work\b.v'
e2e_driver command WindowCascade command WindowClose children
e2e_expect "WindowClose closes nothing" "$(e2e_value children)" "2"
e2e_close_ruvo
