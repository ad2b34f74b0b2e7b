#!/usr/bin/env bash
# Real key presses, menus and windows: a selected menu item shows its command's description
# across the status line and the panes come back when the menu closes; the Window menu's
# commands tile the edit windows and step through them; Ctrl+S saves, Alt+F opens the File
# menu and a click on its first item makes a new window; Options > Keyboard shows the key of a
# chosen command. Then a custom accel.ini: its binding works, the fixed keys still hold, the
# first recent file opens from the File menu, and its F12 shows the About box with the title,
# version and build date. Screenshots: the status line, the open File, Edit and Window menus,
# the keyboard accelerators dialog, the File menu with recent files, the About box.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

e2e_file a.vhd 'entity a is' 'end a;'
e2e_file b.v 'module b;' 'endmodule'

e2e_open 'C:\work\a.vhd' 'C:\work\b.v' -- child-screen-rect StatusClass
status=$(e2e_value child-screen-rect)
# The panes are filled after the start has settled.
painted() { e2e_driver status-pane 1 && [[ $(e2e_value status-pane) == Insert ]] && sleep 0.5; }
e2e_until 10 painted || e2e_fail "the status line shows no insert mode"
e2e_shot status_panes "$status"
e2e_driver menu-select WindowCascade
e2e_shot status_menu_help "$status"
e2e_driver menu-select -
e2e_shot status_after_menu "$status"
changed=$(e2e_differing status_panes status_menu_help)
((changed > 100)) || e2e_fail "the menu help changed only $changed pixels of the status line"
e2e_expect "pixels changed after the menu closed" "$(e2e_differing status_panes status_after_menu)" 0

e2e_driver client-size command WindowTileVertical active-rect
read -r client_width _ <<<"$(e2e_value client-size)"
read -r _ _ width _ <<<"$(e2e_value active-rect)"
((width < client_width / 2)) || e2e_fail "WindowTileVertical left a window $width px wide of $client_width"
e2e_shot window_tile_vertical
e2e_driver command WindowNext active command WindowPrevious command WindowCascade command WindowClose
e2e_is active 'C:\work\a.vhd'
e2e_ask active 'C:\work\b.v' children 2 # WindowClose closes nothing

e2e_type "-- x"
e2e_key ctrl+s
e2e_same_file <(printf -- '-- xmodule b;\r\nendmodule\r\n') "$work/b.v"
# Opens a menu with a key and takes its screenshot.
menu() { e2e_key "$1" && e2e_driver popup-rect "$E2E_TIMEOUT" && e2e_shot "$2"; }
menu alt+f file_menu_open
read -r mx my _ _ <<<"$(e2e_value popup-rect)"
e2e_click $((mx + 30)) $((my + 10))
e2e_ask children 3
menu alt+e edit_menu_open
e2e_key Escape Escape
menu alt+w window_menu_open
e2e_key Escape Escape
# Options > Keyboard...; "s" in the command list chooses SaveFile, the first name with S.
e2e_key alt+o k
e2e_driver wait-window "Keyboard accelerators mapping:" "$E2E_TIMEOUT"
e2e_key s
e2e_driver dialog-controls "Keyboard accelerators mapping:"
e2e_control '^control Edit - Ctrl+S$' >/dev/null
e2e_control '^control Static - Save the file in the active edit window.$' >/dev/null
e2e_shot accelerators_dialog
e2e_key Escape
e2e_driver wait-no-window "Keyboard accelerators mapping:" "$E2E_TIMEOUT"
e2e_close_ruvo

printf 'KEY Ctrl+Shift+N NewFile\r\nKEY F12 About\r\n' >"$E2E_APP_DIR/my_keys.ini"
e2e_profile GUI Accellerators='C:\ruvo\my_keys.ini'
recent=$(e2e_ini_value "$E2E_PROFILE" Files 1)
e2e_open
e2e_key ctrl+shift+n ctrl+n
e2e_ask children 1 # Ctrl+Shift+N makes a window, the unbound Ctrl+N none
menu alt+f file_menu_recent
e2e_key 1
opened() { e2e_driver active && [[ $(e2e_value active) == "$recent" ]]; }
e2e_until 10 opened || e2e_fail "File > 1 did not open $recent"
e2e_key F12
e2e_driver wait-window About "$E2E_TIMEOUT" dialog-text About
# The build date as the compiler writes it, e.g. "[ Nov  2 2026 ]".
[[ $(e2e_value dialog-text) =~ ^'RUVO / HDL Language Editor\nVersion  1.2, Revision 2\n[ '[A-Z][a-z]{2}\ [\ 1-3][0-9]\ [0-9]{4}' ]'$ ]] ||
    e2e_fail "unexpected about box text '$(e2e_value dialog-text)'"
e2e_shot about_box
e2e_driver answer About ok
e2e_close_ruvo
