#!/usr/bin/env bash
# Runs the e2e scenarios (all, or those named: folders of tests/e2e/scenarios) against build/mingw/ruvo.exe under Wine on a
# private Xvfb display and a private Wine prefix; everything started here is ended here.
set -euo pipefail

source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

SCENARIO_DIR=$E2E_ROOT/tests/e2e/scenarios
SCENARIO_TIMEOUT=${E2E_SCENARIO_TIMEOUT:-300}
LOG_DIR=$E2E_ROOT/build/e2e-logs

for tool in wine wineserver wineboot Xvfb import convert timeout; do
    command -v "$tool" >/dev/null || e2e_fail "$tool is not installed (scripts/test installs it)"
done

if (($# > 0)); then
    scenarios=("$@")
else
    scenarios=()
    for dir in "$SCENARIO_DIR"/*/; do scenarios+=("$(basename "$dir")"); done
fi
# A scenario is a script run.sh, or a golden case (in.<ext>, steps, out.<ext>).
scenario_command() {
    if [[ -f $SCENARIO_DIR/$1/run.sh ]]; then
        echo "$SCENARIO_DIR/$1/run.sh"
    elif [[ -f $SCENARIO_DIR/$1/steps ]]; then
        echo "$E2E_ROOT/tests/e2e/golden_case.sh $SCENARIO_DIR/$1"
    fi
}
for name in "${scenarios[@]}"; do
    [[ -n $(scenario_command "$name") ]] ||
        e2e_fail "$SCENARIO_DIR/$name has neither run.sh nor steps"
done

E2E_WORK=$(mktemp -d "${TMPDIR:-/tmp}/ruvo-e2e.XXXXXX")
export E2E_WORK
trap e2e_cleanup EXIT
trap 'exit 130' INT TERM

e2e_start_xvfb
e2e_make_prefix
e2e_install_app
mkdir -p "$LOG_DIR" "$E2E_SHOTS"
# Figures that scenarios measure (the huge_file scenario writes them here).
PERFORMANCE=$LOG_DIR/performance.txt
rm -f "$PERFORMANCE"

passed=0
failed=()
for name in "${scenarios[@]}"; do
    e2e_reset_app
    log=$LOG_DIR/$name.log
    : >"$log"
    started=$SECONDS
    status=0
    read -r -a command <<<"$(scenario_command "$name")"
    E2E_SCENARIO_LOG=$log timeout "$SCENARIO_TIMEOUT" bash "${command[@]}" >>"$log" 2>&1 ||
        status=$?
    elapsed=$((SECONDS - started))
    if ((status == 0)); then
        passed=$((passed + 1))
        echo "PASS $name (${elapsed} s)"
    else
        failed+=("$name")
        ((status == 124)) && echo "[e2e] FAIL: no result within $SCENARIO_TIMEOUT s" >>"$log"
        echo "FAIL $name (${elapsed} s, log $log):"
        tail -n 15 "$log" | sed 's/^/    /'
    fi
done

total=${#scenarios[@]}
if [[ -f $PERFORMANCE ]]; then
    echo "e2e figures:"
    sed 's/^/    /' "$PERFORMANCE"
fi
echo "e2e: $passed passed, ${#failed[@]} failed out of $total"
((${#failed[@]} == 0))
