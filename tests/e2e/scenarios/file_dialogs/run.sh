#!/usr/bin/env bash
# Files through the common dialogs and on disk: saving a large buffer (progress window) with
# BackupFile on keeps an LZ copy in top.bak; Save As writes the buffer under a new name;
# LoadFile opens the chosen file, and the next Open dialog starts in the directory the last
# one ended in. Closing the frame (ExitApp, then WM_CLOSE) asks about each modified buffer in
# turn, the active window first: Cancel (Escape) keeps every window open; No (the n key)
# closes that window without saving and goes on to the next, where a Cancel stops the close
# again. The last No ends the program with the files as they were on disk.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

mkdir -p "$work/rtl"
e2e_file rtl/alu.vhd 'entity alu is' 'end alu;'
e2e_file rtl/fifo.vhd 'entity fifo is' 'end fifo;'
cp -r "$work/rtl" "$work/orig"
for i in $(seq 1 3000); do printf 'signal s%d : std_logic; -- line %d\r\n' "$i" "$i"; done >"$work/top.vhd"
cp "$work/top.vhd" "$work/original.vhd"
e2e_profile Options BackupFile=yes

e2e_open 'C:\work\top.vhd' -- command SaveFile children
e2e_is children 1
e2e_same_file "$work/original.vhd" "$work/top.bak"
e2e_same_file "$work/original.vhd" "$work/top.vhd"
# Each dialog gets a name typed over its field; TITLE FILE SHOT EXPECTED-WINDOW.
for step in 'Save As|C:\work\copy.vhd|save_as_dialog|C:\work\copy.vhd' \
    'Open|C:\work\rtl\alu.vhd||C:\work\rtl\alu.vhd' 'Open|fifo.vhd|open_dialog|C:\work\rtl\fifo.vhd'; do
    IFS='|' read -r title file shot window <<<"$step"
    [[ $title == Open ]] && command=LoadFile || command=SaveFileAs
    e2e_driver post-command $command wait-window "$title" "$E2E_TIMEOUT"
    [[ -z $shot ]] || e2e_shot "$shot"
    e2e_key ctrl+a
    e2e_type "$file"
    e2e_key Return
    e2e_driver wait-no-window "$title" "$E2E_TIMEOUT" wait-frame "$E2E_TIMEOUT" active
    e2e_is active "$window"
done
e2e_same_file "$work/original.vhd" "$work/copy.vhd"

e2e_type '-- changed'
e2e_driver hand-over 'C:\work\rtl\alu.vhd'
e2e_type '-- changed too'
question="Editor contents modified"
# Waits for the question about FILE (the box about the previous file may still be closing),
# then presses KEY (after a screenshot if there is a third argument).
asked() {
    local expected="Edit buffer 'C:\\work\\rtl\\$1'\\nis modified, Save changes ?"
    about() { e2e_driver wait-window "$question" "$E2E_TIMEOUT" dialog-text "$question" &&
        [[ $(e2e_value dialog-text) == "$expected" ]]; }
    e2e_until 5 about || e2e_is dialog-text "$expected"
    (($# < 3)) || e2e_shot "$3"
    e2e_key "$2"
}
windows_left() { e2e_driver wait-no-window "$question" 10 wait-frame "$E2E_TIMEOUT" frames children && e2e_is frames 1 children "$1"; }
e2e_driver post-command ExitApp
asked alu.vhd Escape close_modified_question
windows_left 3
e2e_driver close
asked alu.vhd n
asked fifo.vhd Escape
windows_left 2
grep -qx 'child C:\\work\\rtl\\fifo.vhd' <<<"$E2E_OUT" || e2e_fail "fifo.vhd was closed"
e2e_driver close
asked fifo.vhd n
e2e_driver wait-no-window "$question" 10 wait-gone "$E2E_TIMEOUT"
e2e_wait_ruvo_exit
diff -r "$work/orig" "$work/rtl" || e2e_fail "a file was saved although No was chosen"
