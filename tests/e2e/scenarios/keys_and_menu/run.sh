#!/usr/bin/env bash
# Real key presses and clicks on the menu bar: Ctrl+S saves, Alt+F opens the File menu and a
# click on its first item makes a new window, Options > Keyboard shows the key of a chosen
# command; then a binding of a custom accel.ini works. Screenshots: the menu bar with the open
# File menu, the Edit menu with its key texts, the Window menu listing the windows, the keyboard
# accelerators dialog, the File menu with one recent file.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
printf 'entity a is\r\nend a;\r\n' >"$work/a.vhd"

e2e_start_ruvo 'C:\work\a.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground
e2e_type "-- x"
e2e_key ctrl+s
e2e_expect "saved with Ctrl+S" "$(od -An -c "$work/a.vhd" | tr -s ' ')" \
    "$(printf -- '-- xentity a is\r\nend a;\r\n' | od -An -c | tr -s ' ')"

e2e_key alt+f
e2e_driver popup-rect "$E2E_TIMEOUT"
read -r mx my _ _ <<<"$(e2e_value popup-rect)"
e2e_shot file_menu_open
e2e_click $((mx + 30)) $((my + 10))
e2e_driver children
e2e_expect "windows after File > New" "$(e2e_value children)" "2"
e2e_key alt+e
e2e_driver popup-rect "$E2E_TIMEOUT"
e2e_shot edit_menu_open
e2e_key Escape Escape
e2e_key alt+w
e2e_driver popup-rect "$E2E_TIMEOUT"
e2e_shot window_menu_open
e2e_key Escape Escape

# Options > Keyboard...; "s" in the command list chooses SaveFile, the first name with S.
e2e_key alt+o k
e2e_driver wait-window "Keyboard accelerators mapping:" "$E2E_TIMEOUT"
e2e_key s
e2e_driver dialog-controls "Keyboard accelerators mapping:"
grep -qx 'control Edit - Ctrl+S' <<<"$E2E_OUT" || e2e_fail "the dialog shows no Ctrl+S for SaveFile"
grep -qx 'control Static - Save the file in the active edit window.' <<<"$E2E_OUT" ||
    e2e_fail "the dialog shows no description of SaveFile"
e2e_shot accelerators_dialog
e2e_key Escape
e2e_driver wait-no-window "Keyboard accelerators mapping:" "$E2E_TIMEOUT"
e2e_close_ruvo

# A custom key file: its binding works, and the fixed window keys still hold. a.vhd, closed
# at the exit, is now the first recent file: its item is enabled, the four empty ones grey.
printf 'KEY Ctrl+Shift+N NewFile\r\nKEY F12 About\r\n' >"$E2E_APP_DIR/my_keys.ini"
e2e_ini_set "$E2E_PROFILE" GUI Accellerators 'C:\ruvo\my_keys.ini'
e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT" foreground
e2e_key ctrl+shift+n
e2e_key ctrl+n
e2e_driver children
e2e_expect "windows after Ctrl+Shift+N and an unbound Ctrl+N" "$(e2e_value children)" "1"
e2e_key alt+f
e2e_driver popup-rect "$E2E_TIMEOUT"
e2e_shot file_menu_recent
e2e_key 1
for _ in $(seq 50); do
    e2e_driver active
    [[ $(e2e_value active) == 'C:\work\a.vhd' ]] && break
    sleep 0.2
done
e2e_expect "window after File > 1" "$(e2e_value active)" 'C:\work\a.vhd'
e2e_key F12
e2e_driver wait-window About "$E2E_TIMEOUT" answer About ok
e2e_close_ruvo
