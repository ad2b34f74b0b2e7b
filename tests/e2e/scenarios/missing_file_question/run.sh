#!/usr/bin/env bash
# A missing file on the command line is offered for creation in a Yes/No question box owned
# by the editor: Yes opens an empty edit window under that name, No opens nothing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

mkdir -p "$WINEPREFIX/drive_c/work"
e2e_start_ruvo 'C:\work\new.vhd' 'C:\work\gone.v'

e2e_driver wait-window "No such file" "$E2E_TIMEOUT" dialog-text "No such file"
grep -qF "dialog-text File 'C:\\work\\new.vhd' does not exists.\\nDo you want to create an empty file ?" \
    <<<"$E2E_OUT" || e2e_fail "unexpected question text"
e2e_shot missing_file_question
e2e_driver answer "No such file" yes

e2e_driver wait-window "No such file" "$E2E_TIMEOUT" dialog-text "No such file"
grep -qF "gone.v' does not exists." <<<"$E2E_OUT" || e2e_fail "no question for gone.v"
e2e_driver answer "No such file" no

e2e_driver wait-frame "$E2E_TIMEOUT" children
e2e_expect "edit windows" "$(e2e_value children)" "1"
e2e_expect "the created file's window" "$(e2e_value child)" 'C:\work\new.vhd'
e2e_close_ruvo
