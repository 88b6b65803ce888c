#!/usr/bin/env bash
# The whole installation, with the real program:
#
#   installed_test.sh <build folder> <cmake>
#
# installs the build into a temporary prefix, and with a temporary HOME starts the installed
# launcher headless twice. The first start must make the station folder, fill it and run the
# program there: log/log.txt gets the start line, and the airport drawn first (the preferred one,
# which has a picture) finds its picture. Between the starts the station's database is changed so
# that the preferred airport has no picture: the second start must keep the change, and the
# program must read that database, which shows in the log as the missing picture of the new
# preferred airport. The installed template stays as the build made it.
#
# The program runs until its menu's Quit, so each run is stopped once its log shows it started.
# Its first poll fails silently where there is no network, which doesn't matter here.
set -u

build=$1
cmake=$2

source "$(dirname "$0")/checks.sh"
program_pid=
trap '[ -n "$program_pid" ] && kill "$program_pid" 2>/dev/null; cleanup' EXIT
count() { grep -cF -- "$2" "$1" 2>/dev/null; }

prefix=$work/prefix
"$cmake" --install "$build" --prefix "$prefix" --component Unspecified >"$work/install.log" || {
    cat "$work/install.log" >&2
    exit 1
}

export HOME=$work/home
unset XDG_DATA_HOME
export QT_QPA_PLATFORM=offscreen
mkdir -p "$HOME"
station=$HOME/.local/share/skelda
template=$prefix/lib/skelda/database.mdb
log=$station/log/log.txt

# run <text> <count>: starts the installed launcher and stops the program once the log holds
# <text> <count> times; fails after a minute.
run() {
    "$prefix/bin/skelda" >>"$work/program.out" 2>&1 &
    program_pid=$!
    local waited=0
    until [ "$(count "$log" "$1")" = "$2" ]; do
        if ! kill -0 "$program_pid" 2>/dev/null || [ $waited -ge 600 ]; then
            echo "FAILED: the log never held \"$1\" $2 times; the program said:" >&2
            cat "$work/program.out" >&2
            exit 1
        fi
        sleep 0.1
        waited=$((waited + 1))
    done
    kill "$program_pid"
    wait "$program_pid" 2>/dev/null
    program_pid=
}
preferred() { sqlite3 "$1" "select IDA from Aéroports where préféré <> 0"; }

# 1. The first start.
run "Skelda Starting" 1
check "the station folder is made" [ -d "$station" ]
check "the database is the delivered one" cmp -s "$station/database.mdb" "$template"
check "the log has the start line, with its date and time" \
    grep -qE '^[0-9]{2}/[0-9]{2}/[0-9]{4} [0-9]{2}:[0-9]{2}:[0-9]{2} Skelda Starting' "$log"
check "every delivered picture is in the station folder" \
    diff -r "$prefix/lib/skelda/Images" "$station/Images"
check "the preferred airport's picture is found" [ "$(count "$log" "File Not Found")" = 0 ]
check "the template is the one the build made" cmp -s "$template" "$build/packaging/template/database.mdb"

# 2. The second start, on a database whose preferred airport has no picture.
sqlite3 "$station/database.mdb" \
    "update Aéroports set préféré = (IDA = 'EGLL'), activé = (activé or IDA = 'EGLL')"
check "EGLL has no delivered picture" [ ! -e "$station/Images/EGLL.BMP" ]
run "File Not Found: Images/EGLL.BMP" 1
check "the second start adds its start line to the log" [ "$(count "$log" "Skelda Starting")" = 2 ]
check "the station's database keeps the change" [ "$(preferred "$station/database.mdb")" = EGLL ]
check "the template is unchanged" cmp -s "$template" "$build/packaging/template/database.mdb"
check "the template keeps its preferred airport" [ "$(preferred "$template")" = LFPG ]

passed
