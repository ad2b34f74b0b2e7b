#!/usr/bin/env bash
# Starts from the command line. Missing files are offered for creation in a Yes/No box owned
# by the editor (Yes opens an empty window under that name, No opens nothing); a language
# options file that cannot be opened is listed in the "startup.err" window shown last. A
# second start hands its command line to the running editor and ends: the file opens in the
# first frame, also when named relative to the second start's directory, and the same name
# again brings its window forward. "/n" starts a frame of its own. Alt+F4 closes the frame
# with its windows.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

for name in a b c; do e2e_file $name.vhd "entity $name is" "end $name;"; done
e2e_profile VHDL File='C:\nowhere\vhdl.lsf'

question="No such file"
e2e_start_ruvo 'C:\work\a.vhd' 'C:\work\new.vhd' 'C:\work\gone.v'
e2e_driver wait-window "$question" "$E2E_TIMEOUT" dialog-text "$question"
e2e_is dialog-text "File 'C:\\work\\new.vhd' does not exists.\\nDo you want to create an empty file ?"
e2e_shot missing_file_question
e2e_driver answer "$question" yes wait-window "$question" "$E2E_TIMEOUT" dialog-text "$question"
grep -qF "gone.v' does not exists." <<<"$E2E_OUT" || e2e_fail "no question for gone.v"
e2e_driver answer "$question" no wait-frame "$E2E_TIMEOUT" foreground children active
e2e_is children 3 active startup.err
grep -qx 'child C:\\work\\new.vhd' <<<"$E2E_OUT" || e2e_fail "no edit window for new.vhd"
e2e_key ctrl+Home ctrl+shift+End
e2e_driver command EditCopy clipboard
grep -qF 'C:\nowhere\vhdl.lsf' <<<"$(e2e_value clipboard)" ||
    e2e_fail "the report does not name the missing file: $(e2e_value clipboard)"
e2e_shot startup_errors
first=$E2E_RUVO_PID

# A second start in DIRECTORY with FILE ends by itself; then the first frame has CHILDREN
# windows, the ACTIVE one in front.
second_start() {
    E2E_RUVO_DIR=$1 e2e_start_ruvo "$2" && e2e_wait_ruvo_exit 30
    e2e_driver wait-frame "$E2E_TIMEOUT" frames children active && e2e_is frames 1 children "$3" active "$4"
}
second_start "$E2E_APP_DIR" 'C:\work\b.vhd' 4 'C:\work\b.vhd'
second_start "$work" c.vhd 5 'C:\work\c.vhd'
second_start "$E2E_APP_DIR" 'C:\work\a.vhd' 5 'C:\work\a.vhd'

e2e_start_ruvo /n 'C:\work\b.vhd'
frames() { e2e_driver frames && [[ $(e2e_value frames) == "$1" ]]; }
e2e_until 40 frames 2 || e2e_fail "no second frame after /n"
e2e_shot second_instance_two_frames
e2e_driver close
e2e_until 40 frames 1 || e2e_fail "one of the two frames did not close"
e2e_driver foreground
e2e_key alt+F4
e2e_driver wait-gone "$E2E_TIMEOUT"
e2e_wait_ruvo_exit
E2E_RUVO_PID=$first e2e_wait_ruvo_exit
