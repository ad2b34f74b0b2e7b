#!/usr/bin/env bash
# A VHDL file printed on a PDF printer through PrintText (the Print dialog accepted with
# Return) and through "/p": the header, numbered lines, a long line wrapped onto an unnumbered
# row, bold keywords. "/p" with a missing file shows an error box and prints nothing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

e2e_start_printer
trap e2e_stop_printer EXIT
long="    q <= '1' when count = 0 else '0'; -- a comment long enough to run past the right"
long+=" margin of the page, so that its end is printed on a row of its own: wrapped_tail"
e2e_file counter.vhd '-- A counter to print.' 'library ieee;' 'use ieee.std_logic_1164.all;' '' \
    'entity counter is' '    port (clk : in std_logic; q : out std_logic);' \
    'end entity counter;' '' 'architecture rtl of counter is' \
    $'\tsignal count : integer := 0;' 'begin' "$long" 'end architecture rtl;'

# The PDF's text as pdftotext lays it out; with Wine's PostScript driver "-" comes out as a
# soft hyphen and ";" as a Greek question mark. Line 12 wraps onto two more rows without
# numbers; the last ends with the line's end.
check_pages() {
    local text rows pattern
    text=$(pdftotext -layout "$1" - | sed 's/\xc2\xad/-/g; s/\xcd\xbe/;/g')
    printf '%s\n' "$text" | sed 's/^/[pdf] /' >&2
    for pattern in '^C:\\work\\counter\.vhd +[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2} +Page 1 of 1$' \
        '^ +5 +entity counter is$' '^ +10 +signal count : integer := 0;$'; do
        grep -qE "$pattern" <<<"$text" || e2e_fail "$2: no line like '$pattern'"
    done
    rows=$(grep -A2 -E '^ +12 +q <= ' <<<"$text" | tail -n 2)
    [[ $(grep -cE '^ {6,}[^ 0-9]' <<<"$rows") == 2 && $rows == *wrapped_tail ]] ||
        e2e_fail "$2: line 12 is not wrapped onto unnumbered rows"
    pdffonts "$1" | grep -q 'LiberationMono-Bold' || e2e_fail "$2: no bold keywords"
    pdftoppm -r 90 -png -f 1 -l 1 "$1" "$E2E_SHOTS/$2" || e2e_fail "$2: pdftoppm cannot read the PDF"
}

e2e_open 'C:\work\counter.vhd' -- post-command PrintText wait-window Print "$E2E_TIMEOUT"
e2e_shot print_dialog
e2e_key Return
e2e_driver wait-no-window Print "$E2E_TIMEOUT"
check_pages "$(e2e_wait_pdf 1)" print_text_page
e2e_close_ruvo

# "/p" prints on the default printer and ends without a window.
e2e_start_ruvo /p 'C:\work\counter.vhd'
e2e_wait_ruvo_exit
check_pages "$(e2e_wait_pdf 2)" print_command_line_page
e2e_ask frames 0
e2e_start_ruvo /p 'C:\work\missing.vhd'
e2e_driver wait-window Error "$E2E_TIMEOUT" dialog-text Error
e2e_is dialog-text "Cannot open  file 'C:\\work\\missing.vhd'."
e2e_shot print_missing_file
e2e_driver answer Error ok
e2e_wait_ruvo_exit
e2e_expect "PDF files" "$(find "$E2E_PDF_DIR" -name '*.pdf' | wc -l)" 2
