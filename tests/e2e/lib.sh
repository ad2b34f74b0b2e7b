# Shared helpers of the e2e tests: a private Wine prefix on a private Xvfb display, the
# installed editor, the driver, screenshots and checks. Sourced by run_all.sh (which sets
# everything up once per run) and by every scenario script.
#
# A scenario script is tests/e2e/scenarios/<name>/run.sh. It sources this file, then uses:
#   e2e_start_ruvo [ARGS...]     start ruvo.exe in the background (C:\ruvo\ruvo.exe)
#   e2e_driver COMMAND...        run ruvo_driver.exe; its output is in $E2E_OUT
#   e2e_value KEY                the rest of the driver's line that starts with KEY
#   e2e_type TEXT, e2e_key KEY.. real key presses into the focused window (xdotool names:
#                                Return, ctrl+c, shift+Down, alt+F4); e2e_click X Y
#   e2e_shot NAME                screenshot into build/e2e-shots/NAME.png
#   e2e_pixel NAME X Y           "r,g,b" of a pixel of that screenshot
#   e2e_close_ruvo               close the frame with WM_CLOSE and wait for the exit
#   e2e_expect WHAT ACTUAL EXPECTED, e2e_expect_file_has FILE LINE, e2e_fail MESSAGE
#   e2e_ini_value FILE SECTION KEY, e2e_ini_set FILE SECTION KEY VALUE
#   $E2E_PROFILE                 the profile the program writes (C:\windows\ruvo.ini)
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

e2e_log() { printf '[e2e] %s\n' "$*" >&2; }

e2e_fail() {
    printf '[e2e] FAIL: %s\n' "$*" >&2
    exit 1
}

# --- Set-up of one run (run_all.sh) ---------------------------------------------------------

e2e_start_xvfb() {
    local display
    for display in $(seq 90 160); do
        [[ -e /tmp/.X11-unix/X$display || -e /tmp/.X$display-lock ]] && continue
        Xvfb ":$display" -screen 0 1280x900x24 -nolisten tcp >"$E2E_WORK/xvfb.log" 2>&1 &
        E2E_XVFB_PID=$!
        local waited=0
        while ((waited < 100)); do
            [[ -e /tmp/.X11-unix/X$display ]] && break
            kill -0 "$E2E_XVFB_PID" 2>/dev/null || break
            sleep 0.1
            waited=$((waited + 1))
        done
        if kill -0 "$E2E_XVFB_PID" 2>/dev/null && [[ -e /tmp/.X11-unix/X$display ]]; then
            export DISPLAY=":$display" E2E_XVFB_PID
            e2e_log "Xvfb on $DISPLAY (pid $E2E_XVFB_PID)"
            return 0
        fi
        kill "$E2E_XVFB_PID" 2>/dev/null || true
        wait "$E2E_XVFB_PID" 2>/dev/null || true
    done
    e2e_fail "no free X display between :90 and :160 for Xvfb"
}

e2e_make_prefix() {
    export WINEPREFIX="$E2E_WORK/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
    e2e_log "creating the Wine prefix $WINEPREFIX"
    timeout 300 wineboot -i </dev/null >"$E2E_WORK/wineboot.log" 2>&1 ||
        e2e_fail "wineboot did not finish within 300 s (see $E2E_WORK/wineboot.log)"
    timeout 120 wineserver -w || true
    # One virtual desktop for every program of the prefix, so windows get frames and the
    # driver finds the editor's windows.
    timeout 60 wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f \
        >>"$E2E_WORK/wineboot.log" 2>&1 || e2e_fail "cannot set the virtual desktop"
    timeout 60 wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x800 /f \
        >>"$E2E_WORK/wineboot.log" 2>&1 || e2e_fail "cannot set the desktop size"
    timeout 30 wineserver -k 2>/dev/null || true
    timeout 60 wineserver -w || true
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
    if [[ -f /usr/share/wine/fonts/marlett.ttf ]]; then
        cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    fi
}

e2e_install_app() {
    export E2E_APP_DIR="$WINEPREFIX/drive_c/ruvo"
    export E2E_PROFILE="$WINEPREFIX/drive_c/windows/ruvo.ini"
    mkdir -p "$E2E_APP_DIR"
    local exe
    for exe in "$E2E_BUILD"/*.exe; do cp "$exe" "$E2E_APP_DIR/"; done
    [[ -f $E2E_APP_DIR/ruvo.exe ]] || e2e_fail "no $E2E_BUILD/ruvo.exe: build with MinGW first"
    [[ -f $E2E_APP_DIR/ruvo_driver.exe ]] || e2e_fail "no $E2E_BUILD/ruvo_driver.exe"
}

# Files of config/ go beside ruvo.exe; config/ruvo.ini becomes the profile.
e2e_reset_app() {
    timeout 30 wineserver -k 2>/dev/null || true
    timeout 30 wineserver -w 2>/dev/null || true
    rm -f "$E2E_PROFILE"
    if [[ -d $E2E_ROOT/config ]]; then
        find "$E2E_ROOT/config" -maxdepth 1 -type f ! -name ruvo.ini -exec cp {} "$E2E_APP_DIR/" \;
        if [[ -f $E2E_ROOT/config/ruvo.ini ]]; then
            cp "$E2E_ROOT/config/ruvo.ini" "$E2E_PROFILE"
        fi
    fi
}

e2e_cleanup() {
    if [[ -n ${WINEPREFIX:-} && -d ${WINEPREFIX:-} ]]; then
        timeout 30 wineserver -k 2>/dev/null || true
        timeout 30 wineserver -w 2>/dev/null || true
    fi
    if [[ -n ${E2E_XVFB_PID:-} ]]; then
        kill "$E2E_XVFB_PID" 2>/dev/null || true
        wait "$E2E_XVFB_PID" 2>/dev/null || true
    fi
    if [[ -n ${E2E_WORK:-} && -d ${E2E_WORK:-} && -z ${E2E_KEEP:-} ]]; then
        rm -rf "$E2E_WORK"
    fi
}

# --- Inside a scenario ----------------------------------------------------------------------

E2E_RUVO_PID=

e2e_start_ruvo() {
    (cd "$E2E_APP_DIR" && exec wine "$E2E_APP_DIR/ruvo.exe" "$@") \
        </dev/null >>"${E2E_SCENARIO_LOG:-/dev/null}" 2>&1 &
    E2E_RUVO_PID=$!
    e2e_log "started ruvo.exe $* (pid $E2E_RUVO_PID)"
}

# Runs the driver with a list of commands; stops the scenario when it reports an error.
E2E_OUT=
e2e_driver() {
    local status=0
    E2E_OUT=$(cd "$E2E_APP_DIR" &&
        timeout "$E2E_DRIVER_TIMEOUT" wine "$E2E_APP_DIR/ruvo_driver.exe" "$@" </dev/null 2>/dev/null |
        tr -d '\r') || status=$?
    printf '%s\n' "$E2E_OUT" | sed 's/^/[driver] /' >&2
    if ((status != 0)) || grep -q '^error: ' <<<"$E2E_OUT"; then
        local reason
        reason=$(grep '^error: ' <<<"$E2E_OUT" | head -n 1)
        ((status == 124)) && reason="driver timed out after $E2E_DRIVER_TIMEOUT s"
        e2e_fail "driver $*: ${reason:-exit status $status}"
    fi
}

e2e_value() {
    local line
    line=$(grep -m 1 "^$1 " <<<"$E2E_OUT") || e2e_fail "the driver printed no '$1' line"
    printf '%s\n' "${line#"$1 "}"
}

# Real input for what the editor reads from the keyboard state; give it time to arrive.
e2e_type() {
    timeout 60 xdotool type --delay 40 -- "$1" || e2e_fail "xdotool could not type '$1'"
    sleep 0.3
}

e2e_key() {
    timeout 60 xdotool key --delay 60 "$@" || e2e_fail "xdotool could not press $*"
    sleep 0.3
}

e2e_click() {
    timeout 30 xdotool mousemove "$1" "$2" click 1 || e2e_fail "xdotool could not click $1,$2"
    sleep 0.3
}

e2e_shot() {
    mkdir -p "$E2E_SHOTS"
    timeout 30 import -window root "$E2E_SHOTS/$1.png" ||
        e2e_fail "screenshot $1 could not be taken"
    e2e_log "screenshot $E2E_SHOTS/$1.png"
}

e2e_pixel() {
    local expr="p{$2,$3}"
    convert "$E2E_SHOTS/$1.png" \
        -format "%[fx:int(255*$expr.r+0.5)],%[fx:int(255*$expr.g+0.5)],%[fx:int(255*$expr.b+0.5)]" \
        info: || e2e_fail "cannot read pixel $2,$3 of $1.png"
}

# Waits for the started ruvo.exe to end by itself (after a close).
e2e_wait_ruvo_exit() {
    local seconds=${1:-$E2E_TIMEOUT} waited=0
    [[ -n $E2E_RUVO_PID ]] || return 0
    while kill -0 "$E2E_RUVO_PID" 2>/dev/null; do
        ((waited >= seconds * 10)) && e2e_fail "ruvo.exe did not end within $seconds s"
        sleep 0.1
        waited=$((waited + 1))
    done
    wait "$E2E_RUVO_PID" 2>/dev/null || true
    E2E_RUVO_PID=
}

e2e_close_ruvo() {
    e2e_driver close wait-gone "$E2E_TIMEOUT"
    e2e_wait_ruvo_exit
}

e2e_expect() {
    [[ $2 == "$3" ]] || e2e_fail "$1: got '$2', expected '$3'"
    e2e_log "ok: $1 = '$2'"
}

# True when FILE has a line equal to LINE (carriage returns ignored).
e2e_file_has() { tr -d '\r' <"$1" | grep -qxF -- "$2"; }

e2e_expect_file_has() {
    [[ -f $1 ]] || e2e_fail "$1 does not exist"
    e2e_file_has "$1" "$2" || e2e_fail "$1 has no line '$2'"
    e2e_log "ok: $(basename "$1") has '$2'"
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
    local file=$1 section=$2 key=$3 value=$4 updated
    updated=$(mktemp)
    [[ -f $file ]] || : >"$file"
    # The value goes through the environment: awk -v would read its backslashes as escapes.
    tr -d '\r' <"$file" | E2E_INI_VALUE=$value awk -v section="[$section]" -v key="$key" '
        BEGIN { value = ENVIRON["E2E_INI_VALUE"] }
        function add() { print key "=" value; done = 1 }
        /^\[/ { if (inside && !done) add()
                inside = (tolower($0) == tolower(section)); if (inside) seen = 1
                print; next }
        inside && !done && index($0, "=") &&
            tolower(substr($0, 1, index($0, "=") - 1)) == tolower(key) { add(); next }
        { print }
        END { if (inside && !done) add()
              else if (!seen) { print section; add() } }' >"$updated"
    mv "$updated" "$file"
}

# --- A printer whose output is a file -------------------------------------------------------
# A CUPS server of the scenario's own (its socket in CUPS_SERVER, so runs side by side do not
# meet) with a cups-pdf queue as its default printer. Every Wine program reads the printers of
# CUPS_SERVER when it starts, so this comes before e2e_start_ruvo.
E2E_CUPSD_PID=
e2e_start_printer() {
    local tool
    for tool in /usr/sbin/cupsd lpadmin lpstat pdftotext pdftoppm pdffonts; do
        command -v "$tool" >/dev/null || e2e_fail "$tool is not installed (scripts/test installs it)"
    done
    [[ -x /usr/lib/cups/backend/cups-pdf ]] || e2e_fail "cups-pdf is not installed"
    # Filters run as the user lp: the folders must be open to it.
    E2E_CUPS_DIR=$(mktemp -d "${TMPDIR:-/tmp}/ruvo-cups.XXXXXX")
    chmod 755 "$E2E_CUPS_DIR"
    E2E_PRINTER=RUVO_PDF_$(basename "$E2E_CUPS_DIR" | tr -cd 'A-Za-z0-9')
    E2E_PDF_DIR=$E2E_CUPS_DIR/pdf
    export E2E_CUPS_DIR E2E_PRINTER E2E_PDF_DIR
    local dir=$E2E_CUPS_DIR
    mkdir -p "$dir"/{etc,spool,cache,state,log,pdf,pdf-spool}
    printf '%s\n' "ServerRoot $dir/etc" "RequestRoot $dir/spool" "CacheDir $dir/cache" \
        "StateDir $dir/state" "AccessLog $dir/log/access_log" "ErrorLog $dir/log/error_log" \
        "PageLog $dir/log/page_log" "SystemGroup root" >"$dir/etc/cups-files.conf"
    printf '%s\n' "Listen $dir/cups.sock" "LogLevel warn" "Browsing Off" "WebInterface No" \
        "DefaultAuthType None" "<Location />" "Order allow,deny" "Allow all" "</Location>" \
        >"$dir/etc/cupsd.conf"
    # cups-pdf reads the settings of the queue named in its device URI from /etc/cups.
    printf '%s\n' "Out $dir/pdf" "AnonDirName $dir/pdf" "Spool $dir/pdf-spool" "Log $dir/log" \
        >"/etc/cups/cups-pdf-$E2E_PRINTER.conf"
    /usr/sbin/cupsd -f -c "$dir/etc/cupsd.conf" -s "$dir/etc/cups-files.conf" \
        >"$dir/log/cupsd.out" 2>&1 &
    E2E_CUPSD_PID=$!
    export CUPS_SERVER=$dir/cups.sock
    local waited=0
    until lpstat -r 2>/dev/null | grep -q 'is running'; do
        ((waited >= 100)) && e2e_fail "cupsd did not start (see $dir/log)"
        sleep 0.1
        waited=$((waited + 1))
    done
    lpadmin -p "$E2E_PRINTER" -E -v "cups-pdf:/$E2E_PRINTER" -m lsb/usr/cups-pdf/CUPS-PDF_opt.ppd \
        2>/dev/null || e2e_fail "cannot add the PDF printer"
    lpadmin -d "$E2E_PRINTER" || e2e_fail "cannot make $E2E_PRINTER the default printer"
    e2e_log "printer $E2E_PRINTER (cupsd pid $E2E_CUPSD_PID) writes into $E2E_PDF_DIR"
}

e2e_stop_printer() {
    if [[ -n $E2E_CUPSD_PID ]]; then
        kill "$E2E_CUPSD_PID" 2>/dev/null || true
        wait "$E2E_CUPSD_PID" 2>/dev/null || true
        E2E_CUPSD_PID=
    fi
    if [[ -n ${E2E_PRINTER:-} ]]; then rm -f "/etc/cups/cups-pdf-$E2E_PRINTER.conf"; fi
    if [[ -n ${E2E_CUPS_DIR:-} && -z ${E2E_KEEP:-} ]]; then rm -rf "$E2E_CUPS_DIR"; fi
    unset CUPS_SERVER
}

# Waits until the printer's queue is empty and COUNT PDF files exist; prints the newest.
e2e_wait_pdf() {
    local count=$1 seconds=${2:-$E2E_TIMEOUT} waited=0 files
    while :; do
        files=$(find "$E2E_PDF_DIR" -name '*.pdf' | wc -l)
        ((files >= count)) && [[ -z $(lpstat -o 2>/dev/null) ]] && break
        ((waited >= seconds * 10)) && e2e_fail "no PDF number $count within $seconds s"
        sleep 0.1
        waited=$((waited + 1))
    done
    ls -t "$E2E_PDF_DIR"/*.pdf | head -n 1
}
