#!/usr/bin/env bash
# A VHDL file printed on a PDF printer through PrintText (the Print dialog accepted with
# Return) and through "/p": the header, numbered lines, a long line wrapped onto an unnumbered
# row, bold keywords. "/p" with a missing file shows an error box and prints nothing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

e2e_start_printer
trap e2e_stop_printer EXIT

work=$WINEPREFIX/drive_c/work
mkdir -p "$work"
long="    q <= '1' when count = 0 else '0'; -- a comment long enough to run past the right"
long+=" margin of the page, so that its end is printed on a row of its own: wrapped_tail"
printf '%s\r\n' '-- A counter to print.' 'library ieee;' 'use ieee.std_logic_1164.all;' '' \
    'entity counter is' '    port (clk : in std_logic; q : out std_logic);' \
    'end entity counter;' '' 'architecture rtl of counter is' \
    $'\tsignal count : integer := 0;' 'begin' "$long" 'end architecture rtl;' >"$work/counter.vhd"

# The PDF's text as pdftotext lays it out; with Wine's PostScript driver "-" comes out as a
# soft hyphen and ";" as a Greek question mark.
pdf_text() { pdftotext -layout "$1" - | sed 's/\xc2\xad/-/g; s/\xcd\xbe/;/g'; }

check_pages() {
    local pdf=$1 name=$2 text rows
    text=$(pdf_text "$pdf")
    printf '%s\n' "$text" | sed 's/^/[pdf] /' >&2
    grep -qE '^C:\\work\\counter\.vhd +[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2} +Page 1 of 1$' \
        <<<"$text" || e2e_fail "$name: no header with the file name, the date and the page"
    grep -qE '^ +5 +entity counter is$' <<<"$text" || e2e_fail "$name: line 5 is not numbered"
    grep -qE '^ +10 +signal count : integer := 0;$' <<<"$text" ||
        e2e_fail "$name: the tab of line 10 is not expanded"
    # Line 12 wraps onto two more rows without numbers; the last ends with the line's end.
    rows=$(grep -A2 -E '^ +12 +q <= ' <<<"$text" | tail -n 2)
    [[ $(grep -cE '^ {6,}[^ 0-9]' <<<"$rows") == 2 && $rows == *wrapped_tail ]] ||
        e2e_fail "$name: line 12 is not wrapped onto unnumbered rows"
    pdffonts "$pdf" | grep -q 'LiberationMono-Bold' || e2e_fail "$name: no bold keywords"
    pdftoppm -r 90 -png -f 1 -l 1 "$pdf" "$E2E_SHOTS/$name" ||
        e2e_fail "$name: pdftoppm cannot turn the PDF into a picture"
    e2e_log "ok: $name printed as expected (page in $E2E_SHOTS/$name-1.png)"
}

e2e_start_ruvo 'C:\work\counter.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" post-command PrintText wait-window Print "$E2E_TIMEOUT"
e2e_shot print_dialog
e2e_key Return
e2e_driver wait-no-window Print "$E2E_TIMEOUT"
check_pages "$(e2e_wait_pdf 1)" print_text_page
e2e_close_ruvo

# "/p" prints on the default printer and ends without a window.
(cd "$E2E_APP_DIR" && timeout "$E2E_TIMEOUT" wine "$E2E_APP_DIR/ruvo.exe" /p 'C:\work\counter.vhd') \
    </dev/null >>"${E2E_SCENARIO_LOG:-/dev/null}" 2>&1 || e2e_fail "ruvo.exe /p did not end by itself"
check_pages "$(e2e_wait_pdf 2)" print_command_line_page
e2e_driver frames
e2e_expect "frames after /p" "$(e2e_value frames)" "0"

e2e_start_ruvo /p 'C:\work\missing.vhd'
e2e_driver wait-window Error "$E2E_TIMEOUT" dialog-text Error
e2e_expect "error box" "$(e2e_value dialog-text)" "Cannot open  file 'C:\\work\\missing.vhd'."
e2e_shot print_missing_file
e2e_driver answer Error ok
e2e_wait_ruvo_exit
e2e_expect "PDF files" "$(find "$E2E_PDF_DIR" -name '*.pdf' | wc -l)" "2"
