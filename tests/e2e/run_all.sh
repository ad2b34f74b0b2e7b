#!/usr/bin/env bash
# Runs the e2e scenarios (all, or those named: folders of tests/e2e/scenarios) against build/mingw/ruvo.exe under Wine on a
# private Xvfb display and a private Wine prefix; everything started here is ended here.
set -euo pipefail

source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

SCENARIO_DIR=$E2E_ROOT/tests/e2e/scenarios
SCENARIO_TIMEOUT=${E2E_SCENARIO_TIMEOUT:-300}
LOG_DIR=$E2E_ROOT/build/e2e-logs

hash wine wineserver wineboot Xvfb xdotool import convert compare timeout 2>/dev/null ||
    e2e_fail "Wine, Xvfb, xdotool or ImageMagick is not installed (scripts/test installs them)"
if (($# > 0)); then scenarios=("$@"); else scenarios=($(ls "$SCENARIO_DIR")); fi

E2E_WORK=$(mktemp -d "${TMPDIR:-/tmp}/ruvo-e2e.XXXXXX")
export E2E_WORK
trap e2e_cleanup EXIT
trap 'exit 130' INT TERM
e2e_start_xvfb
e2e_make_prefix
e2e_install_app
mkdir -p "$LOG_DIR" "$E2E_SHOTS"
rm -f "$E2E_PERFORMANCE"

failed=()
for name in "${scenarios[@]}"; do
    e2e_reset_app
    log=$LOG_DIR/$name.log
    started=$SECONDS status=0 && : >"$log"
    # A scenario is a script run.sh, or a golden case (in.<ext>, steps, out.<ext>).
    command=("$E2E_ROOT/tests/e2e/golden_case.sh" "$SCENARIO_DIR/$name")
    [[ ! -f $SCENARIO_DIR/$name/run.sh ]] || command=("$SCENARIO_DIR/$name/run.sh")
    E2E_SCENARIO_LOG=$log timeout "$SCENARIO_TIMEOUT" bash "${command[@]}" >>"$log" 2>&1 || status=$?
    if ((status == 0)); then
        echo "PASS $name ($((SECONDS - started)) s)"
    else
        failed+=("$name")
        ((status != 124)) || echo "[e2e] FAIL: no result within $SCENARIO_TIMEOUT s" >>"$log"
        echo "FAIL $name ($((SECONDS - started)) s, log $log):"
        tail -n 15 "$log" | sed 's/^/    /'
    fi
done
[[ ! -f $E2E_PERFORMANCE ]] || { echo "e2e figures:" && sed 's/^/    /' "$E2E_PERFORMANCE"; }
echo "e2e: $((${#scenarios[@]} - ${#failed[@]})) passed, ${#failed[@]} failed out of ${#scenarios[@]}"
((${#failed[@]} == 0))
