#!/usr/bin/env bash
# The Options and Language Configuration dialogs as a person uses them, with a shot of every
# page: a new tab stop repaints both windows with the same font, a new size makes a taller
# font, the button bar moves to the top; a keyword colour shows while it is typed and Cancel
# brings the old one back. With "On Exit" cleared and "Now" never checked the profile keeps
# its old [Options].
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

for name in a b; do e2e_file $name.vhd "entity $name is" $'\tport (x : in bit);' "end $name;"; done
e2e_open 'C:\work\b.vhd' 'C:\work\a.vhd' -- command WindowTileVertical foreground dialog-units \
    child-screen-rect MDICLIENT
read -r unit_x unit_y <<<"$(e2e_value dialog-units)"
read -r mx my mw mh <<<"$(e2e_value child-screen-rect)"
# Screen point of a place in dialog units of a dialog whose client-screen-rect is $1.
dialog_point() {
    read -r dx dy _ _ <<<"$1"
    echo $((dx + $2 * unit_x / 4)) $((dy + $3 * (unit_y + 1) / 8))
}
# Count of pixels of colour $2 in the left window of shot $1.
pixels_of() {
    convert "$E2E_SHOTS/$1.png" -crop "$((mw / 2))x${mh}+$mx+$my" +repage -fill black \
        +opaque "$2" -fill white -opaque "$2" -format %c histogram:info: |
        awk '/white/ { sub(":", "", $1); n = $1 } END { print n + 0 }'
}
options() { e2e_driver post-command EditorOptions wait-window Options "$E2E_TIMEOUT" "$@"; }
applied() {
    e2e_key Return
    e2e_driver wait-no-window Options 10 "$@"
}

# Tab stop 8, "On Exit" cleared: the caret after the tab moves 4 cells, the font stays.
e2e_key ctrl+Home Down Right
e2e_shot options_before
e2e_driver caret
read -r x1 _ _ h1 <<<"$(e2e_value caret)"
options client-screen-rect Options
options_rect=$(e2e_value client-screen-rect)
e2e_key alt+t
e2e_type 8
e2e_key alt+o
e2e_shot options_window_page
applied caret
read -r x2 _ _ h2 <<<"$(e2e_value caret)"
e2e_shot options_tab_8
# The caret was after the tab and the 7-column margin: 4 + 7 cells; its height stays.
e2e_expect "caret after the tab: x, height" "$x2 $h2" "$((x1 / 11 * 15)) $h1"
for side in 0 1; do # both tiled windows show the new tab stop
    changed=$(compare -metric AE -crop "$((mw / 2))x$mh+$((mx + side * mw / 2))+$my" \
        "$E2E_SHOTS/options_before.png" "$E2E_SHOTS/options_tab_8.png" null: 2>&1 || true)
    ((changed > 0)) || e2e_fail "tiled window $side was not repainted after the tab change"
done

# Size 16 on the Font page: a taller font.
options
e2e_click $(dialog_point "$options_rect" 16 8)
e2e_key Right alt+s
e2e_type 16
e2e_shot options_font_page
applied caret
read -r _ _ _ h3 <<<"$(e2e_value caret)"
e2e_shot options_size_16
((h3 > h1 + 4)) || e2e_fail "the caret is $h3 pixels high after size 16 (was $h1)"

# The button bar goes to the top.
options client-size
read -r client_width _ <<<"$(e2e_value client-size)"
e2e_click $(dialog_point "$options_rect" 16 8)
e2e_key Right Right
e2e_shot options_language_page
e2e_key Right
e2e_click $(dialog_point "$options_rect" 30 37)
e2e_shot options_buttons_page
applied child-rect ButtonClass
read -r bx by bw _ <<<"$(e2e_value child-rect)"
e2e_expect "button bar at the top" "$bx $by $bw" "0 0 $client_width"

# Keyword group 1 of VHDL in magenta: shown while typed, gone again after Cancel.
e2e_driver post-command LanguageOptions wait-window "Language Configuration" "$E2E_TIMEOUT" \
    client-screen-rect "Language Configuration"
e2e_shot languages_files_page
e2e_click $(dialog_point "$(e2e_value client-screen-rect)" 16 74)
e2e_key Right
e2e_shot languages_syntax_page
e2e_key Right Tab Down Down Down Down Tab
for value in 255 0 255; do
    e2e_type $value
    e2e_key Tab
done
e2e_shot languages_colors_page
magenta=$(pixels_of languages_colors_page 'rgb(255,0,255)')
((magenta > 20)) || e2e_fail "the keywords are not magenta while the dialog is open ($magenta)"
e2e_key Escape
e2e_driver wait-no-window "Language Configuration" 10
e2e_shot languages_cancelled
e2e_expect "magenta after Cancel" "$(pixels_of languages_cancelled 'rgb(255,0,255)')" 0
(($(pixels_of languages_cancelled 'rgb(0,0,192)') > 20)) || e2e_fail "the keywords lost their colour"
e2e_close_ruvo
for key in TabSize:4 FontSize:10 ButtonsLeft:yes SaveOnExit:yes; do
    e2e_expect "[Options] ${key%%:*}" "$(e2e_ini_value "$E2E_PROFILE" Options "${key%%:*}")" "${key#*:}"
done
