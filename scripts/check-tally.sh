# The PASS and FAIL lines of the test scripts, and their tally. Sourced; a script ends with
# `tally_exit`, whose line "N passed, M failed" is the last it prints, and which fails unless
# something passed and nothing failed.
passed=0
failed=0
pass() { echo "PASS $1"; passed=$((passed + 1)); }
fail() { echo "FAIL $1"; failed=$((failed + 1)); }
# check NAME COMMAND...: PASS when the command succeeds.
check() {
    local name=$1
    shift
    if "$@"; then pass "$name"; else fail "$name"; fi
}
tally_exit() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
    exit $?
}
