# Helpers shared by scripts/run, scripts/test and scripts/bench: installing what is missing
# and building. Sourced, not run.

RUVO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
RUVO_JOBS=$(nproc 2>/dev/null || echo 2)
# Where the builds go (build/native, build/mingw, build/bench); RUVO_BUILD moves them.
RUVO_BUILD=${RUVO_BUILD:-$RUVO_ROOT/build}

# Everything the builds and tests use, as Debian packages.
RUVO_PACKAGES=(
    cmake make g++ git python3 clang libclang-rt-14-dev
    googletest libgtest-dev libgmock-dev libbenchmark-dev
    g++-mingw-w64-x86-64 binutils-mingw-w64-x86-64
    wine wine64
    xvfb xdotool imagemagick
    cups printer-driver-cups-pdf poppler-utils
)

ruvo_log() { printf '==> %s\n' "$*"; }

ruvo_as_root() {
    if [[ $(id -u) -eq 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "error: '$*' needs root; run as root or install sudo" >&2
        return 1
    fi
}

ruvo_missing_packages() {
    local package
    for package in "${RUVO_PACKAGES[@]}"; do
        dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            echo "$package"
    done
}

# apt-get update only runs when something has to be installed.
ruvo_install_packages() {
    local missing
    mapfile -t missing < <(ruvo_missing_packages)
    if ((${#missing[@]} == 0)); then
        ruvo_log "all packages present"
        return 0
    fi
    ruvo_log "installing: ${missing[*]}"
    ruvo_as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
    ruvo_as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q "${missing[@]}"
}

# Native core, unit tests (under ASan and UBSan) and benchmark programs. A target that fails
# does not stop the others, so the tests that do build still run.
ruvo_build_native() {
    ruvo_log "native build in $RUVO_BUILD/native"
    cmake -S "$RUVO_ROOT" -B "$RUVO_BUILD/native" -G "Unix Makefiles" -DCMAKE_BUILD_TYPE=Debug \
        -DRUVO_SANITIZE=ON -DRUVO_BENCHMARKS=ON >/dev/null &&
        cmake --build "$RUVO_BUILD/native" -j "$RUVO_JOBS" -- -k
}

# ruvo.exe, the e2e driver and the stand-in programs, cross-built with MinGW-w64.
ruvo_build_mingw() {
    ruvo_log "MinGW build in $RUVO_BUILD/mingw"
    cmake -S "$RUVO_ROOT" -B "$RUVO_BUILD/mingw" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$RUVO_ROOT/cmake/mingw-w64.cmake" >/dev/null &&
        cmake --build "$RUVO_BUILD/mingw" -j "$RUVO_JOBS"
}

# Optimised native build of the benchmark programs.
ruvo_build_bench() {
    ruvo_log "release build of the benchmarks in $RUVO_BUILD/bench"
    cmake -S "$RUVO_ROOT" -B "$RUVO_BUILD/bench" -DCMAKE_BUILD_TYPE=Release \
        -DRUVO_SANITIZE=OFF -DRUVO_BENCHMARKS=ON >/dev/null &&
        cmake --build "$RUVO_BUILD/bench" -j "$RUVO_JOBS"
}

# The libFuzzer targets, built with clang under ASan and UBSan.
ruvo_build_fuzz() {
    ruvo_log "fuzz targets in $RUVO_BUILD/fuzz"
    CC=clang CXX=clang++ cmake -S "$RUVO_ROOT" -B "$RUVO_BUILD/fuzz" -G "Unix Makefiles" \
        -DCMAKE_BUILD_TYPE=Debug -DRUVO_FUZZ=ON -DRUVO_BENCHMARKS=OFF >/dev/null &&
        cmake --build "$RUVO_BUILD/fuzz" -j "$RUVO_JOBS"
}
