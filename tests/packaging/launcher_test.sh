#!/usr/bin/env bash
# Tests of the launcher of an installed Skelda, one per run:
#
#   launcher_test.sh <launcher.sh> <test name>
#
# Each test builds an installation of its own in a temporary folder: the launcher as bin/skelda,
# and in lib/skelda/ a delivered database, two pictures and a stand-in for the program. The
# stand-in does what matters of the real one here: it records its folder and its arguments,
# writes a line to log/log.txt under its current folder and adds a line to the database of the
# station folder it is given, as a program that stores observations does. HOME is a temporary
# folder too.
set -u

launcher=$1
test_name=$2

source "$(dirname "$0")/checks.sh"
same() { cmp -s -- "$1" "$2"; }
holds() { grep -qF -- "$2" "$1"; }
one_line() { [ "$(wc -l <"$1")" -eq 1 ]; }
empty() { [ ! -s "$1" ]; }
no_leftovers() { [ -z "$(find "$1" -name '.copying.*' -o -name '.probe.*')" ]; }
lines_of() { printf '%s\n' "$@"; }

prefix=$work/prefix
delivered=$prefix/lib/skelda
mkdir -p "$prefix/bin" "$delivered/Images"
cp -- "$launcher" "$prefix/bin/skelda"
chmod +x "$prefix/bin/skelda"
lines_of "delivered database" >"$delivered/database.mdb"
lines_of "picture A" >"$delivered/Images/A.BMP"
lines_of "picture B" >"$delivered/Images/B.BMP"
cat >"$delivered/skelda" <<'EOF'
#!/bin/sh
printf '%s|%s\n' "$PWD" "$*" >>"$STARTS"
printf 'Skelda Starting\n' >>log/log.txt
printf 'observation\n' >>"$2/database.mdb"
EOF
chmod +x "$delivered/skelda"

export STARTS=$work/starts
export HOME=$work/home
unset XDG_DATA_HOME
mkdir -p "$HOME"
# No desktop around the launcher, unless a test makes one: no display, no session bus. The
# launcher looks for a notification area only where there is a display.
unset DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS
export XDG_RUNTIME_DIR=$work/runtime
mkdir -p "$XDG_RUNTIME_DIR"
station=$HOME/.local/share/skelda
status=0

# Runs the installed launcher; its status goes to $status, its error output to $work/err.
start() {
    "$prefix/bin/skelda" >"$work/out" 2>"$work/err"
    status=$?
}

started_in() { [ -f "$STARTS" ] && holds "$STARTS" "$1|--station-folder $1"; }
not_started() { [ ! -e "$STARTS" ]; }
database_is() {
    lines_of "$@" >"$work/expected"
    same "$station/database.mdb" "$work/expected"
}

FirstStartFillsTheStationFolder() {
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "nothing is said on a first start" empty "$work/err"
    check "the program runs in the station folder and is told so" started_in "$station"
    check "the database is the delivered one (and the program's line)" \
        database_is "delivered database" "observation"
    check "picture A is delivered" same "$station/Images/A.BMP" "$delivered/Images/A.BMP"
    check "picture B is delivered" same "$station/Images/B.BMP" "$delivered/Images/B.BMP"
    check "log/ is there for the program" holds "$station/log/log.txt" "Skelda Starting"
    check "no temporary file is left" no_leftovers "$station"
}

SecondStartKeepsTheUsersFiles() {
    start
    lines_of "my picture" >"$station/Images/A.BMP"
    cp -- "$station/log/log.txt" "$work/log-before"
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "nothing is said" empty "$work/err"
    check "the database keeps the first run's line and gets the second's" \
        database_is "delivered database" "observation" "observation"
    check "the user's picture stays" holds "$station/Images/A.BMP" "my picture"
    check "the log only grows" holds "$station/log/log.txt" "$(cat "$work/log-before")"
    check "the log holds both starts" [ "$(grep -c "Skelda Starting" "$station/log/log.txt")" -eq 2 ]
}

UpgradeKeepsTheUsersDatabaseAndPicturesAndAddsNewPictures() {
    start
    # The upgrade delivers another database, another picture A and a new picture C.
    lines_of "upgraded database" >"$delivered/database.mdb"
    lines_of "upgraded picture A" >"$delivered/Images/A.BMP"
    lines_of "picture C" >"$delivered/Images/C.BMP"
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the user's database stays" database_is "delivered database" "observation" "observation"
    check "the user's picture A stays" holds "$station/Images/A.BMP" "picture A"
    check "the new picture C is added" same "$station/Images/C.BMP" "$delivered/Images/C.BMP"
}

PictureThatTheUserLacksIsAddedAgain() {
    start
    rm -- "$station/Images/B.BMP"
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "picture B is delivered again" same "$station/Images/B.BMP" "$delivered/Images/B.BMP"
    check "nothing is said" empty "$work/err"
}

MissingDatabaseIsCopiedAgainAndSaid() {
    start
    lines_of "my picture" >"$station/Images/A.BMP"
    cp -- "$station/log/log.txt" "$work/log-before"
    rm -- "$station/database.mdb"
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the delivered database is copied again" database_is "delivered database" "observation"
    check "it is said in one line" one_line "$work/err"
    check "the line names the folder" holds "$work/err" "$station"
    check "the line names the database" holds "$work/err" "database.mdb"
    check "the log is kept" holds "$station/log/log.txt" "$(cat "$work/log-before")"
    check "the user's picture is kept" holds "$station/Images/A.BMP" "my picture"
    check "the program is started" started_in "$station"
}

XdgDataHomeHoldsTheStationFolder() {
    export XDG_DATA_HOME=$work/data
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the program runs in XDG_DATA_HOME/skelda" started_in "$work/data/skelda"
    check "the database is there" same "$work/data/skelda/Images/A.BMP" "$delivered/Images/A.BMP"
    check "nothing goes under ~/.local/share" [ ! -e "$station" ]
}

RelativeXdgDataHomeIsIgnored() {
    export XDG_DATA_HOME=relative/data
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the program runs in ~/.local/share/skelda" started_in "$station"
}

# A home under a regular file can't be made, whoever runs the test (root included).
UnusableHomeStopsWithOneLine() {
    lines_of "a file" >"$work/file"
    export HOME=$work/file/home
    station=$HOME/.local/share/skelda
    start
    check "the launcher fails" [ "$status" -ne 0 ]
    check "it says so in one line" one_line "$work/err"
    check "the line names the folder" holds "$work/err" "$station"
    check "the line gives the cause" holds "$work/err" "Not a directory"
    check "the program isn't started" not_started
}

# A copy that the system refuses half way, here by a limit on the size of a file that works for
# root too: the launcher stops before the program, and leaves no half-copied database behind.
RefusedCopyStopsWithOneLineAndLeavesNoHalfFile() {
    head -c 100000 /dev/zero >"$delivered/database.mdb"
    (
        trap '' XFSZ
        ulimit -f 16
        start
        exit "$status"
    )
    status=$?
    check "the launcher fails" [ "$status" -ne 0 ]
    check "it says so in one line" one_line "$work/err"
    check "the line names the folder" holds "$work/err" "$station"
    check "the line gives the cause" holds "$work/err" "File too large"
    check "no database is left half copied" [ ! -e "$station/database.mdb" ]
    check "no temporary file is left" no_leftovers "$station"
    check "the program isn't started" not_started
}

# The folder was set up, then the station's disk became read-only: the launcher finds out before
# the program runs. Root writes through permissions, so for root the home is remounted read-only
# in a mount namespace of the test's own; a root that may not mount skips the test.
ReadOnlyHomeStopsWithOneLine() {
    if [ "$(id -u)" -eq 0 ] && ! unshare -m true 2>/dev/null; then
        echo "skipped: a read-only home for root needs a mount namespace" >&2
        exit 77
    fi
    start
    rm -f -- "$STARTS"
    if [ "$(id -u)" -eq 0 ]; then
        unshare -m --propagation private sh -c \
            'mount --bind "$1" "$1" && mount -o remount,bind,ro "$1" && "$2" >"$3" 2>"$4"' \
            sh "$HOME" "$prefix/bin/skelda" "$work/out" "$work/err"
        status=$?
    else
        chmod -R a-w "$station"
        start
    fi
    check "the launcher fails" [ "$status" -ne 0 ]
    check "it says so in one line" one_line "$work/err"
    check "the line names the folder" holds "$work/err" "$station"
    check "the program isn't started" not_started
}

# A home on a full disk: a tiny file system of its own, which only root can mount (in a mount
# namespace of the test's own); elsewhere the test is skipped.
FullHomeStopsWithOneLine() {
    if [ "$(id -u)" -ne 0 ] || ! unshare -m true 2>/dev/null; then
        echo "skipped: mounting a small full file system needs root" >&2
        exit 77
    fi
    head -c 400000 /dev/urandom >"$delivered/database.mdb"
    unshare -m --propagation private sh -c \
        'mount -t tmpfs -o size=256k tmpfs "$1" && "$2" >"$3" 2>"$4"; s=$?; ls -A "$1/.local/share/skelda" >"$5"; exit $s' \
        sh "$HOME" "$prefix/bin/skelda" "$work/out" "$work/err" "$work/left"
    status=$?
    check "the launcher fails" [ "$status" -ne 0 ]
    check "it says so in one line" one_line "$work/err"
    check "the line names the folder" holds "$work/err" "$station"
    check "the line gives the cause" holds "$work/err" "No space left on device"
    check "no database nor temporary file is left" [ -z "$(grep -e database.mdb -e '^\.' "$work/left")" ]
    check "the program isn't started" not_started
}

# Two starts at once on a new station folder, held in the worst order by a cp that the test puts
# first on the PATH: both find no database, the first places its copy and its program starts and
# writes, and only then does the second finish its copy. The second must find the database
# placed and leave it be: a copy made over it would lose the first program's line.
TwoStartsAtOnceDoNotCopyOverEachOther() {
    local real_cp
    real_cp=$(command -v cp)
    mkdir -p "$work/shim"
    cat >"$work/shim/cp" <<EOF
#!/bin/sh
# Only the copies of the database are held, each for ten seconds at most.
case "\$*" in *database.mdb*)
    if mkdir "$work/first" 2>/dev/null; then
        until [ -d "$work/second" ] || [ \$((n = \${n:-0} + 1)) -gt 100 ]; do sleep 0.1; done
    else
        mkdir "$work/second"
        until [ -s "$STARTS" ] || [ \$((n = \${n:-0} + 1)) -gt 100 ]; do sleep 0.1; done
    fi ;;
esac
exec "$real_cp" "\$@"
EOF
    chmod +x "$work/shim/cp"
    PATH=$work/shim:$PATH "$prefix/bin/skelda" >"$work/out.1" 2>"$work/err.1" &
    local first=$!
    PATH=$work/shim:$PATH "$prefix/bin/skelda" >"$work/out.2" 2>"$work/err.2"
    local second_status=$? first_status=0
    wait "$first" || first_status=$?
    check "the two starts overlapped" [ -d "$work/second" ]
    check "the first launcher succeeds" [ "$first_status" -eq 0 ]
    check "the second launcher succeeds" [ "$second_status" -eq 0 ]
    check "nothing is said" [ -z "$(cat "$work/err.1" "$work/err.2")" ]
    check "both programs ran" [ "$(wc -l <"$STARTS")" -eq 2 ]
    check "the database kept the line of both programs" \
        database_is "delivered database" "observation" "observation"
    check "no temporary file is left" no_leftovers "$station"
}

# Several starts at once, as they come: each finds the folder whole, and every program's line stays.
SeveralStartsAtOnceShareOneStationFolder() {
    head -c 3000000 /dev/zero >"$delivered/database.mdb"
    local n=6 pids=() i failed=0
    for i in $(seq $n); do
        "$prefix/bin/skelda" >"$work/out.$i" 2>"$work/err.$i" &
        pids+=($!)
    done
    for i in "${!pids[@]}"; do wait "${pids[$i]}" || failed=$((failed + 1)); done
    check "every launcher succeeds" [ "$failed" -eq 0 ]
    check "nothing is said" [ -z "$(cat "$work"/err.*)" ]
    check "every program ran" [ "$(wc -l <"$STARTS")" -eq "$n" ]
    check "the database kept the line of every program" \
        [ "$(tail -c +3000001 "$station/database.mdb" | grep -c observation)" -eq "$n" ]
    check "the delivered part is whole" cmp -s -n 3000000 "$station/database.mdb" "$delivered/database.mdb"
    check "each picture is whole" same "$station/Images/A.BMP" "$delivered/Images/A.BMP"
    check "no temporary file is left" no_leftovers "$station"
}

# ---- The notification area

# A session bus put first on the PATH, as dbus-send: it notes each question, and answers whether
# a StatusNotifierWatcher holds its name as the test says: true, false, or fail (no answer).
session_bus() {
    mkdir -p "$work/bus"
    cat >"$work/bus/dbus-send" <<EOF
#!/bin/sh
printf '%s\n' "\$*" >>"$work/bus/asked"
case $1 in
true | false) printf 'method return time=1.0 sender=org.freedesktop.DBus -> destination=:1.9 serial=3 reply_serial=2\n   boolean %s\n' $1 ;;
*) echo "Error org.freedesktop.DBus.Error.NoReply: Did not receive a reply." >&2; exit 1 ;;
esac
EOF
    chmod +x "$work/bus/dbus-send"
    export PATH=$work/bus:$PATH DBUS_SESSION_BUS_ADDRESS=unix:path=$work/bus/socket
}
bus_asked_for_the_watcher() { holds "$work/bus/asked" "string:org.kde.StatusNotifierWatcher"; }
bus_not_asked() { [ ! -e "$work/bus/asked" ]; }
says_no_notification_area() { holds "$work/err" "no notification area"; }

NoNotificationAreaIsSaidInOneLine() {
    session_bus false
    export WAYLAND_DISPLAY=wayland-9 # a desktop without X11
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the bus was asked for a StatusNotifierWatcher" bus_asked_for_the_watcher
    check "it is said in one line" one_line "$work/err"
    check "the line says there is no notification area" says_no_notification_area
    check "the line names the GNOME extension" holds "$work/err" "gnome-shell-extension-appindicator"
    check "the program is started all the same" started_in "$station"
}

AStatusNotifierWatcherIsANotificationArea() {
    session_bus true
    export WAYLAND_DISPLAY=wayland-9
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the bus was asked" bus_asked_for_the_watcher
    check "nothing is said" empty "$work/err"
    check "the program is started" started_in "$station"
}

ABusThatDoesNotAnswerSaysNothing() {
    session_bus fail
    export WAYLAND_DISPLAY=wayland-9
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "nothing is said" empty "$work/err"
    check "the program is started" started_in "$station"
}

WithoutADisplayNothingIsLookedFor() {
    session_bus false
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "the bus isn't asked" bus_not_asked
    check "nothing is said" empty "$work/err"
}

WithoutASessionBusNoWatcherCanBeThere() {
    export WAYLAND_DISPLAY=wayland-9
    start
    check "the launcher succeeds" [ "$status" -eq 0 ]
    check "it is said in one line" one_line "$work/err"
    check "the line says there is no notification area" says_no_notification_area
}

# A real X display (Xvfb) without a notification area, then with one (trayer), and a bus whose
# answer is no: the launcher asks the display for the owner of _NET_SYSTEM_TRAY_S0.
AnX11NotificationAreaIsFoundOnTheDisplay() {
    local tool
    for tool in Xvfb trayer python3; do
        if ! command -v "$tool" >/dev/null 2>&1; then
            echo "skipped: $tool is missing" >&2
            exit 77
        fi
    done
    session_bus false
    Xvfb -displayfd 3 -nolisten tcp -screen 0 640x480x24 3>"$work/display" 2>/dev/null &
    local xvfb=$! n=0
    until [ -s "$work/display" ] || [ $((n += 1)) -gt 100 ]; do sleep 0.1; done
    DISPLAY=:$(cat "$work/display")
    export DISPLAY
    start
    check "without a notification area it is said in one line" one_line "$work/err"
    check "the line says there is no notification area" says_no_notification_area
    trayer --edge top --SetDockType true >/dev/null 2>&1 &
    local tray=$!
    # The notification area is there once trayer has taken the selection: ask until it has.
    n=0
    until { start && empty "$work/err"; } || [ $((n += 1)) -gt 100 ]; do sleep 0.1; done
    check "with trayer's notification area nothing is said" empty "$work/err"
    check "the program is started" started_in "$station"
    kill "$tray" "$xvfb" 2>/dev/null
    wait "$tray" "$xvfb" 2>/dev/null
}

if ! declare -F "$test_name" >/dev/null; then
    echo "no test named $test_name" >&2
    exit 2
fi
"$test_name"
passed
