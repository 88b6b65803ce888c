# What the shell tests of this folder share: a temporary folder, $work, removed at the end, and
# check, which runs one assertion, says which failed and counts it. A test ends with `passed`.
#
#   check "what is expected, in words" command args...

work=$(mktemp -d)
# The tests make some of their folders read-only: give them back before removing.
cleanup() { chmod -R u+w "$work" 2>/dev/null; rm -rf "$work"; }
trap cleanup EXIT

failures=0
check() {
    local what=$1
    shift
    if ! "$@"; then
        echo "FAILED: $what" >&2
        failures=$((failures + 1))
    fi
}

passed() { [ "$failures" -eq 0 ]; }
