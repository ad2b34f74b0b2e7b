#!/usr/bin/env bash
# The settings are written back at the exit only with SaveOnExit (a saved boolean is written
# as yes/no, so "TRUE" shows whether [Options] was written); the window placement and the
# recent files are written either way.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../lib.sh"

mkdir -p "$WINEPREFIX/drive_c/work"
printf 'x\n' >"$WINEPREFIX/drive_c/work/a.vhd"
e2e_ini_set "$E2E_PROFILE" Options Colors TRUE
e2e_ini_set "$E2E_PROFILE" Options SaveOnExit no
e2e_ini_set "$E2E_PROFILE" GUI FullSize yes

e2e_start_ruvo 'C:\work\a.vhd'
e2e_driver wait-frame "$E2E_TIMEOUT" show restore
e2e_close_ruvo
e2e_expect "Colors without SaveOnExit" "$(e2e_ini_value "$E2E_PROFILE" Options Colors)" "TRUE"
e2e_expect "FullSize without SaveOnExit" "$(e2e_ini_value "$E2E_PROFILE" GUI FullSize)" "no"
e2e_expect "recent file without SaveOnExit" "$(e2e_ini_value "$E2E_PROFILE" Files 1)" \
    'C:\work\a.vhd'

e2e_ini_set "$E2E_PROFILE" Options SaveOnExit 1
e2e_start_ruvo
e2e_driver wait-frame "$E2E_TIMEOUT"
e2e_close_ruvo
e2e_expect "Colors with SaveOnExit" "$(e2e_ini_value "$E2E_PROFILE" Options Colors)" "yes"
e2e_expect "SaveOnExit written back" "$(e2e_ini_value "$E2E_PROFILE" Options SaveOnExit)" "yes"
