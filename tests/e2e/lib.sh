# Shared helpers of the e2e tests: a private Wine prefix on a private Xvfb display, the
# installed editor, the driver, screenshots and checks. Sourced by run_all.sh (which sets
# everything up once per run) and by every scenario script.
#
# A scenario script is tests/e2e/scenarios/<name>/run.sh. It sources this file, then uses:
#   e2e_start_ruvo [ARGS...]     start ruvo.exe in the background (in $E2E_RUVO_DIR, else C:\ruvo)
#   e2e_open [ARGS...] [-- DRIVER COMMANDS...]  start it, wait for its frame in the foreground
#   e2e_driver COMMAND...        run ruvo_driver.exe; its output is in $E2E_OUT
#   e2e_value KEY                the rest of the driver's line that starts with KEY
#   e2e_is KEY EXPECTED...       each KEY's value in $E2E_OUT equals its EXPECTED
#   e2e_type TEXT, e2e_key KEY.. real key presses into the focused window (xdotool names:
#                                Return, ctrl+c, shift+Down, alt+F4); e2e_click X Y;
#                                e2e_xdotool ARGS... any xdotool command chain
#   e2e_selection WHAT EXPECTED  the active window's selection, copied, equals EXPECTED
#   e2e_dialog COMMAND TITLE     post COMMAND, wait for its dialog, list its controls;
#                                e2e_control PATTERN is the first listed control like PATTERN
#   e2e_shot NAME [RECT]         screenshot into build/e2e-shots/NAME.png (cut to "x y w h")
#   e2e_pixel NAME X Y           "r,g,b" of a pixel of that screenshot; e2e_differing A B
#                                counts the pixels in which two screenshots differ
#   e2e_close_ruvo               close the frame with WM_CLOSE and wait for the exit
#   e2e_ask QUERY EXPECTED...    runs the driver's queries (children, active...) and e2e_is
#   e2e_expect WHAT ACTUAL EXPECTED, e2e_same_file EXPECTED FILE, e2e_fail MESSAGE,
#   e2e_until SECONDS COMMAND... (retried until it succeeds)
#   e2e_ini_value FILE SECTION KEY, e2e_ini_set FILE SECTION KEY VALUE,
#   e2e_profile SECTION KEY=VALUE...  keys of the profile $E2E_PROFILE (C:\windows\ruvo.ini)
#   $work, e2e_file NAME LINE... C:\work as a Linux path; a file of CR LF lines there
#   $E2E_APP_DIR                 C:\ruvo as a Linux path (config files are copied there)
#   e2e_start_printer, e2e_stop_printer  a CUPS server of the scenario's own whose default
#                                printer writes PDF files into $E2E_PDF_DIR; e2e_wait_pdf COUNT
# The profile is reset before each scenario: the shipped config/ruvo.ini when there is one.
# A folder with in.<ext>, steps and out.<ext> instead of run.sh is a golden case
# (golden_case.sh).

E2E_ROOT=${E2E_ROOT:-$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)}
E2E_BUILD=${E2E_BUILD:-$E2E_ROOT/build/mingw}
E2E_SHOTS=${E2E_SHOTS:-$E2E_ROOT/build/e2e-shots}
E2E_TIMEOUT=${E2E_TIMEOUT:-60}       # seconds to wait for a window
E2E_DRIVER_TIMEOUT=${E2E_DRIVER_TIMEOUT:-120}
E2E_PERFORMANCE=$E2E_ROOT/build/e2e-logs/performance.txt # figures printed by run_all.sh

e2e_log() { printf '[e2e] %s\n' "$*" >&2; }
e2e_fail() { printf '[e2e] FAIL: %s\n' "$*" >&2; exit 1; }

# --- Set-up of one run (run_all.sh) ---------------------------------------------------------

# Xvfb picks a free display itself and writes its number.
e2e_start_xvfb() {
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$E2E_WORK/display" \
        >"$E2E_WORK/xvfb.log" 2>&1 &
    E2E_XVFB_PID=$!
    e2e_until 10 test -s "$E2E_WORK/display" || e2e_fail "Xvfb did not start (see $E2E_WORK/xvfb.log)"
    export DISPLAY=":$(<"$E2E_WORK/display")" E2E_XVFB_PID
    e2e_log "Xvfb on $DISPLAY (pid $E2E_XVFB_PID)"
}

e2e_make_prefix() {
    export WINEPREFIX="$E2E_WORK/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
    local log=$E2E_WORK/wineboot.log
    e2e_log "creating the Wine prefix $WINEPREFIX"
    timeout 300 wineboot -i </dev/null >"$log" 2>&1 ||
        e2e_fail "wineboot did not finish within 300 s (see $log)"
    timeout 120 wineserver -w || true
    # One virtual desktop for every program of the prefix, so windows get frames and the
    # driver finds the editor's windows.
    timeout 60 wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >>"$log" 2>&1 &&
        timeout 60 wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x800 /f \
            >>"$log" 2>&1 || e2e_fail "cannot set the virtual desktop"
    e2e_stop_wine
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts" &&
        cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
}

e2e_install_app() {
    export E2E_APP_DIR="$WINEPREFIX/drive_c/ruvo" E2E_PROFILE="$WINEPREFIX/drive_c/windows/ruvo.ini"
    mkdir -p "$E2E_APP_DIR" && cp "$E2E_BUILD"/*.exe "$E2E_APP_DIR/" 2>/dev/null || true
    [[ -f $E2E_APP_DIR/ruvo.exe && -f $E2E_APP_DIR/ruvo_driver.exe ]] ||
        e2e_fail "no ruvo.exe and ruvo_driver.exe in $E2E_BUILD: build with MinGW first"
}

# Files of config/ go beside ruvo.exe; config/ruvo.ini becomes the profile.
e2e_stop_wine() { { timeout 30 wineserver -k; timeout 60 wineserver -w; } 2>/dev/null || true; }
e2e_reset_app() {
    e2e_stop_wine
    rm -rf "$E2E_PROFILE" "$WINEPREFIX/drive_c/work"
    find "$E2E_ROOT/config" -maxdepth 1 -type f ! -name ruvo.ini -exec cp {} "$E2E_APP_DIR/" \;
    cp "$E2E_ROOT/config/ruvo.ini" "$E2E_PROFILE" 2>/dev/null || true
}

e2e_cleanup() {
    [[ ! -d ${WINEPREFIX:-} ]] || e2e_stop_wine
    [[ -z ${E2E_XVFB_PID:-} ]] || { kill "$E2E_XVFB_PID" && wait "$E2E_XVFB_PID"; } 2>/dev/null || true
    [[ ! -d ${E2E_WORK:-} || -n ${E2E_KEEP:-} ]] || rm -rf "$E2E_WORK"
}

# --- Inside a scenario ----------------------------------------------------------------------

E2E_RUVO_PID=
if [[ -n ${WINEPREFIX:-} ]]; then
    work=$WINEPREFIX/drive_c/work
    mkdir -p "$work"
fi

e2e_file() { printf '%s\r\n' "${@:2}" >"$work/$1"; }

e2e_start_ruvo() {
    (cd "${E2E_RUVO_DIR:-$E2E_APP_DIR}" && exec wine "$E2E_APP_DIR/ruvo.exe" "$@") \
        </dev/null >>"${E2E_SCENARIO_LOG:-/dev/null}" 2>&1 &
    E2E_RUVO_PID=$!
    e2e_log "started ruvo.exe $* (pid $E2E_RUVO_PID)"
}

e2e_open() {
    local i=1
    while ((i <= $#)) && [[ ${!i} != -- ]]; do ((i++)); done
    e2e_start_ruvo "${@:1:i-1}"
    e2e_driver wait-frame "$E2E_TIMEOUT" foreground "${@:i+1}"
}

# Runs the driver with a list of commands; stops the scenario when it reports an error.
E2E_OUT=
e2e_driver() {
    local status=0 reason
    E2E_OUT=$(cd "$E2E_APP_DIR" &&
        timeout "$E2E_DRIVER_TIMEOUT" wine "$E2E_APP_DIR/ruvo_driver.exe" "$@" </dev/null 2>/dev/null |
        tr -d '\r') || status=$?
    printf '%s\n' "$E2E_OUT" | sed 's/^/[driver] /' >&2
    if ((status != 0)) || grep -q '^error: ' <<<"$E2E_OUT"; then
        reason=$(grep -m 1 '^error: ' <<<"$E2E_OUT") || reason="exit status $status"
        ((status == 124)) && reason="driver timed out after $E2E_DRIVER_TIMEOUT s"
        e2e_fail "driver $*: $reason"
    fi
}

e2e_value() {
    local line
    line=$(grep -m 1 "^$1 " <<<"$E2E_OUT") && printf '%s\n' "${line#"$1 "}" || e2e_fail "the driver printed no '$1' line"
}

e2e_expect() { [[ $2 == "$3" ]] && e2e_log "ok: $1 = '$2'" || e2e_fail "$1: got '$2', expected '$3'"; }

e2e_is() { while (($# >= 2)); do e2e_expect "$1" "$(e2e_value "$1")" "$2" && shift 2; done; }
e2e_ask() {
    local queries=() i
    for ((i = 1; i < $#; i += 2)); do queries+=("${!i}"); done
    e2e_driver "${queries[@]}" && e2e_is "$@"
}

e2e_until() {
    local tries=$(($1 * 5))
    until "${@:2}"; do ((--tries > 0)) && sleep 0.2 || return 1; done
}

# Real input for what the editor reads from the keyboard state; give it time to arrive.
e2e_xdotool() { timeout 60 xdotool "$@" && sleep 0.3 || e2e_fail "xdotool could not $*"; }
e2e_type() { e2e_xdotool type --delay 40 -- "$1"; }
e2e_key() { e2e_xdotool key --delay 60 "$@"; }
e2e_click() { e2e_xdotool mousemove "$1" "$2" click 1; }

e2e_selection() { e2e_driver command EditCopy clipboard && e2e_expect "$1" "$(e2e_value clipboard)" "$2"; }

e2e_dialog() { e2e_driver post-command "$1" wait-window "$2" "$E2E_TIMEOUT" dialog-controls "$2"; }
e2e_control() { grep -m 1 -- "$1" <<<"$E2E_OUT" || e2e_fail "the dialog has no control like '$1'"; }

e2e_shot() {
    local file=$E2E_SHOTS/$1.png x y w h
    timeout 30 import -window root "$file" || e2e_fail "screenshot $1 could not be taken"
    if (($# > 1)); then
        read -r x y w h <<<"$2"
        convert "$file" -crop "${w}x$h+$x+$y" +repage "$file" || e2e_fail "cannot cut $1.png"
    fi
    e2e_log "screenshot $file"
}

e2e_pixel() {
    local p="p{$2,$3}"
    convert "$E2E_SHOTS/$1.png" -format "%[fx:int(255*$p.r+0.5)],%[fx:int(255*$p.g+0.5)],%[fx:int(255*$p.b+0.5)]" info:
}

e2e_differing() { compare -metric AE "$E2E_SHOTS/$1.png" "$E2E_SHOTS/$2.png" null: 2>&1 || true; }

# Waits for the started ruvo.exe to end by itself (after a close).
e2e_wait_ruvo_exit() {
    ended() { ! kill -0 "$E2E_RUVO_PID" 2>/dev/null; }
    [[ -z $E2E_RUVO_PID ]] || e2e_until "${1:-$E2E_TIMEOUT}" ended ||
        e2e_fail "ruvo.exe did not end within ${1:-$E2E_TIMEOUT} s"
    wait "$E2E_RUVO_PID" 2>/dev/null || true
    E2E_RUVO_PID=
}

e2e_close_ruvo() { e2e_driver close wait-gone "$E2E_TIMEOUT" && e2e_wait_ruvo_exit; }


e2e_same_file() {
    cmp -s "$1" "$2" && return 0
    diff <(od -c "$1") <(od -c "$2") | head -n 20 >&2 || true
    e2e_fail "$2 differs from $1 (expected < > saved)"
}

# The value of KEY in [SECTION] of an INI file (empty when missing).
e2e_ini_value() {
    tr -d '\r' <"$1" | awk -v section="[$2]" -v key="$3" '
        /^\[/ { inside = (tolower($0) == tolower(section)); next }
        inside && index($0, "=") { k = substr($0, 1, index($0, "=") - 1)
                                   if (tolower(k) == tolower(key)) { print substr($0, index($0, "=") + 1); exit } }'
}

# Sets KEY in [SECTION] of an INI file: replaces the value, or adds the key (and the section).
e2e_ini_set() {
    local updated
    touch "$1"
    # The value goes through the environment: awk -v would read its backslashes as escapes.
    updated=$(tr -d '\r' <"$1" | E2E_INI_VALUE=$4 awk -v section="[$2]" -v key="$3" '
        function add() { if (!done) print key "=" ENVIRON["E2E_INI_VALUE"]; done = 1 }
        /^\[/ { if (inside) add(); inside = tolower($0) == tolower(section); seen = seen || inside }
        inside && index($0, "=") && tolower(substr($0, 1, index($0, "=") - 1)) == tolower(key) { add(); next }
        { print }
        END { if (!seen) print section; add() }')
    printf '%s\n' "$updated" >"$1"
}

e2e_profile() { local pair; for pair in "${@:2}"; do e2e_ini_set "$E2E_PROFILE" "$1" "${pair%%=*}" "${pair#*=}"; done; }

# --- A printer whose output is a file -------------------------------------------------------
# A CUPS server of the scenario's own (its socket in CUPS_SERVER, so runs side by side do not
# meet) with a cups-pdf queue as its default printer. Every Wine program reads the printers of
# CUPS_SERVER when it starts, so this comes before e2e_start_ruvo.
E2E_CUPSD_PID=
e2e_start_printer() {
    local dir
    hash /usr/sbin/cupsd lpadmin lpstat pdftotext pdftoppm pdffonts /usr/lib/cups/backend/cups-pdf 2>/dev/null ||
        e2e_fail "cups, cups-pdf or poppler-utils is not installed (scripts/test installs them)"
    # Filters run as the user lp: the folders must be open to it.
    dir=$(mktemp -d "${TMPDIR:-/tmp}/ruvo-cups.XXXXXX")
    chmod 755 "$dir"
    export E2E_CUPS_DIR=$dir E2E_PRINTER=RUVO_PDF_$(basename "$dir" | tr -cd 'A-Za-z0-9') \
        E2E_PDF_DIR=$dir/pdf CUPS_SERVER=$dir/cups.sock
    mkdir -p "$dir"/{etc,spool,cache,state,log,pdf,pdf-spool}
    printf '%s\n' "ServerRoot $dir/etc" "RequestRoot $dir/spool" "CacheDir $dir/cache" "StateDir $dir/state" \
        "AccessLog $dir/log/access_log" "ErrorLog $dir/log/error_log" "PageLog $dir/log/page_log" \
        "SystemGroup root" >"$dir/etc/cups-files.conf"
    printf '%s\n' "Listen $dir/cups.sock" "LogLevel warn" "Browsing Off" "WebInterface No" \
        "DefaultAuthType None" "<Location />" "Order allow,deny" "Allow all" "</Location>" >"$dir/etc/cupsd.conf"
    # cups-pdf reads the settings of the queue named in its device URI from /etc/cups.
    printf '%s\n' "Out $dir/pdf" "AnonDirName $dir/pdf" "Spool $dir/pdf-spool" "Log $dir/log" \
        >"/etc/cups/cups-pdf-$E2E_PRINTER.conf"
    /usr/sbin/cupsd -f -c "$dir/etc/cupsd.conf" -s "$dir/etc/cups-files.conf" \
        >"$dir/log/cupsd.out" 2>&1 &
    E2E_CUPSD_PID=$!
    running() { lpstat -r 2>/dev/null | grep -q 'is running'; }
    e2e_until 10 running || e2e_fail "cupsd did not start (see $dir/log)"
    lpadmin -p "$E2E_PRINTER" -E -v "cups-pdf:/$E2E_PRINTER" -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd \
        2>/dev/null && lpadmin -d "$E2E_PRINTER" || e2e_fail "cannot add the PDF printer (see $dir/log)"
    e2e_log "printer $E2E_PRINTER (cupsd pid $E2E_CUPSD_PID) writes into $E2E_PDF_DIR"
}

e2e_stop_printer() {
    { kill "$E2E_CUPSD_PID" && wait "$E2E_CUPSD_PID"; } 2>/dev/null || true
    rm -f "/etc/cups/cups-pdf-$E2E_PRINTER.conf"
    [[ -n ${E2E_KEEP:-} ]] || rm -rf "$E2E_CUPS_DIR"
    unset CUPS_SERVER
}

# Waits until the printer's queue is empty and COUNT PDF files exist; prints the newest.
e2e_wait_pdf() {
    pdf_count() { (($(find "$E2E_PDF_DIR" -name '*.pdf' | wc -l) >= $1)) && [[ -z $(lpstat -o 2>/dev/null) ]]; }
    e2e_until "$E2E_TIMEOUT" pdf_count "$1" || e2e_fail "no PDF number $1 within $E2E_TIMEOUT s"
    ls -t "$E2E_PDF_DIR"/*.pdf | head -n 1
}
