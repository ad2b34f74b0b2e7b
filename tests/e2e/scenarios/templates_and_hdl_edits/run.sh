#!/usr/bin/env bash
# Templates and HDL edits through their dialogs as a person uses them: a typed keyword is
# expanded into the shipped entity template, whose parameters the Expand Template dialog asks
# for; a clocked process is chosen in the Templates dialog and inserted; the HDL Edits dialog
# upper-cases the reserved words of the whole text. The saved file is compared byte by byte.
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../../lib.sh"

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
: >"$work/top.vhd"

# The state of one control of the last listed dialog.
control() {
    grep -m 1 -- "$1" <<<"$E2E_OUT" || e2e_fail "the dialog has no control like '$1'"
}

e2e_start_ruvo 'C:\work\top.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" foreground

# "ent" and Expand: the template's two parameters are asked for.
e2e_type 'ent'
e2e_driver post-command LanguageExpand wait-window "Expand Template" "$E2E_TIMEOUT" \
    dialog-controls "Expand Template"
control '^control Static - Entity$' >/dev/null
control '^control Static - Architecture$' >/dev/null
e2e_type 'alu'
e2e_key Tab
e2e_type 'rtl'
e2e_shot expand_template_dialog
e2e_key Return
e2e_driver wait-no-window "Expand Template" 10

# Into the empty line of the architecture: the file of the last expansion stays chosen; its
# third template.
e2e_key Up Up
e2e_driver post-command EditTemplates wait-window "Templates" "$E2E_TIMEOUT"
e2e_key Tab Down Down Down
e2e_shot templates_dialog
e2e_key alt+i
e2e_driver wait-window "Expand Template" "$E2E_TIMEOUT" dialog-controls "Expand Template"
control '^control Static - Reset$' >/dev/null
e2e_type 'reg'
e2e_key Tab
e2e_type 'clk'
e2e_key Tab
e2e_type 'rst'
e2e_key Return
e2e_driver wait-no-window "Expand Template" 10
e2e_key alt+c
e2e_driver wait-no-window "Templates" 10

# HDL Edits: the action list's third entry relabels the options; All, then Apply.
e2e_driver post-command EditSpecial wait-window "HDL Edits" "$E2E_TIMEOUT"
e2e_key Down Down alt+l
e2e_driver dialog-controls "HDL Edits"
e2e_expect "first option" "$(control 'Uppercase')" "control Button on &Uppercase"
e2e_expect "All" "$(control 'A&ll')" "control Button on A&ll"
e2e_shot hdl_edits_dialog
e2e_key Return
e2e_driver wait-no-window "HDL Edits" 10

e2e_driver command SaveFile
e2e_shot templates_and_hdl_edits
e2e_close_ruvo
if ! cmp -s "$work/top.vhd" "$here/expected.vhd"; then
    diff <(od -c "$here/expected.vhd") <(od -c "$work/top.vhd") | head -n 30 >&2 || true
    cp "$work/top.vhd" "$E2E_SHOTS/templates_and_hdl_edits.vhd"
    e2e_fail "the saved top.vhd differs from expected.vhd (expected < > saved)"
fi
e2e_log "ok: the saved file equals expected.vhd"
