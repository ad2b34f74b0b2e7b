#!/usr/bin/env bash
# The options dialogs of the tools as a person uses them: a tool added in "Tool Configuration"
# (its name asked in the input dialog, its fields typed) and run at once, and "V-System
# Options" making a library with "Create Library". Screenshots of both dialogs.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
rm -rf "$work/mylib"
cp "$E2E_ROOT/tests/fixtures/alu.vhd" "$work/alu.vhd"
e2e_ini_set "$E2E_PROFILE" Vsystem Executable 'C:\ruvo\vcom.exe'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools ToolName1 'Echo'
e2e_ini_set "$E2E_PROFILE" UserDefinedTools Executable1 'C:\ruvo\vmap.exe'

control() {
    grep -m 1 -- "$1" <<<"$E2E_OUT" || e2e_fail "the dialog has no control like '$1'"
}

e2e_start_ruvo 'C:\work\alu.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground

# A second tool after the first, its fields typed, confirmed with Return.
e2e_driver post-command ToolOptions wait-window "Tool Configuration" "$E2E_TIMEOUT" \
    dialog-controls "Tool Configuration"
e2e_expect "listed tool" "$(control '^control ComboBox')" "control ComboBox - Echo"
e2e_expect "its program" "$(control 'vmap')" 'control Edit - C:\ruvo\vmap.exe'
e2e_key alt+a
e2e_driver wait-window RUVO 10
e2e_type 'Lister'
e2e_key Return
e2e_driver wait-no-window RUVO 10
e2e_key Tab Tab
e2e_type 'C:\ruvo\vmap.exe'
e2e_key Tab
e2e_type '-l $$'
e2e_driver dialog-controls "Tool Configuration"
e2e_expect "new tool" "$(control '^control ComboBox')" "control ComboBox - Lister"
e2e_shot tool_configuration_dialog
e2e_key Return
e2e_driver wait-no-window "Tool Configuration" 10 command RunTool2 active
e2e_expect "new tool's result" "$(e2e_value active)" "Result of tool 'Lister'."
e2e_key ctrl+Home Down shift+End
e2e_driver command EditCopy clipboard
e2e_expect "new tool's command line" "$(e2e_value clipboard)" 'C:\ruvo\vmap.exe -l C:\work\alu.vhd'

# A library made from the first page of V-System Options.
e2e_driver command WindowNext post-command VsystemOptions \
    wait-window "V-System Options" "$E2E_TIMEOUT" dialog-controls "V-System Options"
e2e_expect "library" "$(control '^control Edit')" "control Edit - work"
e2e_key alt+d
e2e_type 'C:\work\mylib'
e2e_shot vsystem_options_dialog
e2e_key alt+l
e2e_key Tab Tab Tab space
for ((waited = 0; waited < 100; waited++)); do
    [[ -d $work/mylib ]] && break
    sleep 0.1
done
[[ -d $work/mylib ]] || e2e_fail "Create Library made no C:\\work\\mylib"
e2e_log "ok: Create Library made C:\\work\\mylib"
e2e_key Escape
e2e_driver wait-no-window "V-System Options" 10 active
e2e_expect "library run" "$(e2e_value active)" "V-System compiler"
e2e_close_ruvo
