# The start of a script with checks; sourced by it. A check that fails does not end the script.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

failures=0
work=$(mktemp -d) # for files; goes when the script ends

clean_up() {
    if [ -d "$work/wine" ]; then
        wineserver -k || true
        wineserver -w || true
    fi
    rm -rf "$work"
}
trap clean_up EXIT

# Runs a command and says whether it succeeds. If it fails, shows the end of its output.
# Usage: check NAME COMMAND...
check() {
    local start=$SECONDS status
    set +e
    (set -ex; "${@:2}") >"$work/log" 2>&1
    status=$?
    set -e
    if [ $status -eq 0 ]; then
        echo "PASS $1 ($((SECONDS - start)) s)"
        return
    fi
    echo "FAIL $1 ($((SECONDS - start)) s)"
    tail -n 40 "$work/log"
    failures=$((failures + 1))
}

check_same() { # NAME EXPECTED_TEXT ACTUAL_TEXT
    echo "$2" >"$work/expected"
    echo "$3" >"$work/actual"
    check "$1" diff -u "$work/expected" "$work/actual"
}

# Ends the script, with status 1 if a check failed.
finish() {
    [ $failures -eq 0 ] || echo "$failures checks failed"
    exit $((failures > 0))
}

# Builds Debian's GoogleTest for another system, if it is not in the folder yet.
# Usage: build_googletest FOLDER CMAKE_ARGUMENTS...
build_googletest() {
    [ -e "$1/lib/cmake/GTest/GTestConfig.cmake" ] && return
    quietly cmake -S /usr/src/googletest -B "$1/build" -G Ninja -DBUILD_GMOCK=OFF -DCMAKE_INSTALL_PREFIX="$PWD/$1" \
        -DCMAKE_INSTALL_LIBDIR=lib "${@:2}"
    quietly cmake --build "$1/build" --target install
}

# Lets Windows programs run with settings of their own.
use_wine() {
    export WINEPREFIX=$work/wine WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
    PATH=$PATH:/usr/lib/wine # wineserver
}
