# shellcheck shell=bash
# Building and testing for ./test and .ci/run. Goes on after a failure, so that one run tells all.
# Sourced behind common.sh.

export QT_QPA_PLATFORM=offscreen
failures=()

# test_build DIRECTORY [PRESET [OPTION...]]
test_build() {
    local name=$1 preset=${2:-$1} status=0
    shift; shift || true
    hold "$name"
    configure "$preset" "$name" "$@"
    build "$name"
    say "testing $name"
    ctest --test-dir "$root/build/$name" -j "$jobs" --output-on-failure --no-tests=error \
        >"$root/build/$name-test.log" 2>&1 || status=$?
    if ((status != 0)); then
        # All but the tests that passed.
        grep -vE '(Passed +[0-9.]+ sec|^ +Start +[0-9]+:)' "$root/build/$name-test.log" >&2
        failures+=("$name")
    fi
    say "$name: $(grep -E 'tests passed' "$root/build/$name-test.log" ||
        echo "the tests could not be run, see build/$name-test.log")"
    let_go
}

# The last line, and the exit status.
finish() {
    ((${#failures[@]} == 0)) || die "FAILED: ${failures[*]}"
    say "all tests passed"
}
