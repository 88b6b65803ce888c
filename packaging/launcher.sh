#!/bin/sh
# skelda: starts an installed Skelda in the user's own station folder.
#
# Skelda finds database.mdb in the folder that stands for its own, and log/ and Images/ under its
# current folder. Installed, its own folder (lib/skelda/ of the installation, beside which this
# launcher's bin/ sits) is shared by every user and read-only, and it keeps there the delivered
# database and pictures as a template. So each user gets a station folder,
# ${XDG_DATA_HOME:-~/.local/share}/skelda/, filled from the template on the first start; the
# program runs in it and is told with --station-folder that it stands for the program's own.
#
# What the user has is never replaced: a database, a log or a picture that is there stays, through
# later starts, upgrades and reinstalls. A missing database is copied again, and said; a delivered
# picture that the user lacks is added, so an upgrade brings its new pictures. Every copy goes to a
# temporary name in the station folder first and is then hard-linked into place, which fails
# rather than replace a file: of two starts at once, one places each file and the other finds it.
# When the folder can't be set up (read-only, full, in the way of a file), one line on standard
# error names the folder and the cause, and the program isn't started.
#
# Skelda lives in the notification area: once its start-up picture has gone, its icon is all
# there is of it. When the desktop shows no notification area (GNOME shows one only with its
# AppIndicator extension), one line on standard error says so, and the program starts all the
# same. The line comes only when both kinds of notification area were looked for and neither
# is there; when either can't be looked for, nothing is said.
set -u

# The system's own words for a failure: the last part of a tool's last line of complaint.
cause() {
    printf '%s\n' "$1" | tail -n 1 | sed 's/.*: //'
}

fail() {
    [ -n "$copying" ] && rm -f -- "$copying"
    printf 'skelda: cannot set up the station folder %s: %s\n' "$station" "$1" >&2
    exit 1
}

# place FILE TARGET: copies FILE to TARGET if TARGET isn't there. Succeeds if this call placed it,
# fails quietly if TARGET was there (or another start placed it first), and stops the launcher on
# any other failure.
place() {
    [ -e "$2" ] && return 1
    err=$(mktemp -- "$station/.copying.XXXXXX" 2>&1) || fail "$(cause "$err")"
    copying=$err
    err=$(cp -- "$1" "$copying" 2>&1) || fail "$(cause "$err")"
    if err=$(ln -- "$copying" "$2" 2>&1); then
        rm -f -- "$copying"
        copying=
        return 0
    fi
    rm -f -- "$copying"
    copying=
    [ -e "$2" ] && return 1
    fail "$(cause "$err")"
}

# status_notifier_watcher: succeeds when a StatusNotifierWatcher holds its name on the session
# bus (KDE Plasma, GNOME with the AppIndicator extension, Xfce, MATE, LXQt...); fails with 1 when
# the bus says that none does, or when there is no session bus at all, and with 2 when the bus
# can't be asked.
status_notifier_watcher() {
    if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ] && [ ! -S "${XDG_RUNTIME_DIR:-/nonexistent}/bus" ]; then
        return 1
    fi
    command -v dbus-send >/dev/null 2>&1 || return 2
    reply=$(dbus-send --session --print-reply --reply-timeout=2000 --dest=org.freedesktop.DBus \
        /org/freedesktop/DBus org.freedesktop.DBus.NameHasOwner string:org.kde.StatusNotifierWatcher \
        2>/dev/null) || return 2
    case $reply in
    *"boolean true"*) return 0 ;;
    *"boolean false"*) return 1 ;;
    *) return 2 ;;
    esac
}

# x11_notification_area: succeeds when a window owns the X11 notification area's selection,
# _NET_SYSTEM_TRAY_S<screen>, on $DISPLAY (trayer, stalonetray, and the panels of most X11
# desktops); fails with 1 when none does or there is no X display, and with 2 when that can't be
# asked (no python3 or no libX11 to ask with).
x11_notification_area() {
    [ -n "${DISPLAY:-}" ] || return 1
    command -v python3 >/dev/null 2>&1 || return 2
    python3 - 2>/dev/null <<'PYTHON'
import ctypes, sys
try:
    x = ctypes.CDLL("libX11.so.6")
    x.XOpenDisplay.restype = ctypes.c_void_p
    x.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x.XDefaultScreen.argtypes = [ctypes.c_void_p]
    x.XInternAtom.restype = ctypes.c_ulong
    x.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x.XGetSelectionOwner.restype = ctypes.c_ulong
    x.XGetSelectionOwner.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
    x.XCloseDisplay.argtypes = [ctypes.c_void_p]
    display = x.XOpenDisplay(None)
    if not display:
        sys.exit(2)
    selection = x.XInternAtom(display, b"_NET_SYSTEM_TRAY_S%d" % x.XDefaultScreen(display), 0)
    owner = x.XGetSelectionOwner(display, selection)
    x.XCloseDisplay(display)
except Exception:
    sys.exit(2)
sys.exit(0 if owner else 1)
PYTHON
    case $? in
    0) return 0 ;;
    1) return 1 ;;
    *) return 2 ;;
    esac
}

# Says so when the desktop has a display but neither kind of notification area. Never fails.
say_if_no_notification_area() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || return 0
    status_notifier_watcher
    [ $? -eq 1 ] || return 0
    x11_notification_area
    [ $? -eq 1 ] || return 0
    printf '%s\n' "skelda: this desktop shows no notification area, so Skelda's icon won't be seen; on GNOME, install and enable the AppIndicator extension (gnome-shell-extension-appindicator)" >&2
}

copying=
trap 'fail "interrupted"' HUP INT TERM

program_folder=$(readlink -f -- "$(dirname -- "$(readlink -f -- "$0")")/../lib/skelda")
case "${XDG_DATA_HOME:-}" in
/*) station=$XDG_DATA_HOME/skelda ;;
*) station=${HOME:?}/.local/share/skelda ;;  # unset, empty or relative: the XDG default
esac

if [ ! -f "$program_folder/database.mdb" ] || [ ! -x "$program_folder/skelda" ]; then
    printf 'skelda: the program or its delivered database is missing in %s: reinstall Skelda\n' "$program_folder" >&2
    exit 1
fi

# 1. The folders, and proof that the station folder takes a new file (a read-only one does not).
err=$(mkdir -p -- "$station/log" "$station/Images" 2>&1) || fail "$(cause "$err")"
probe=$(mktemp -- "$station/.probe.XXXXXX" 2>&1) || fail "$(cause "$probe")"
rm -f -- "$probe"

# 2. The database, unless the user has one. A folder in use already holds the program's log or
# pictures; on a first start (even two at once) neither is there yet, as both come after the
# database, so only a database lost from a folder in use is worth a word.
in_use=
if [ -e "$station/log/log.txt" ] || [ -n "$(ls -A -- "$station/Images")" ]; then in_use=yes; fi
if place "$program_folder/database.mdb" "$station/database.mdb" && [ -n "$in_use" ]; then
    printf 'skelda: %s had no database.mdb: copied the delivered one again; the log and the pictures are kept\n' \
        "$station" >&2
fi

# 3. The delivered pictures that the user lacks.
for picture in "$program_folder"/Images/*; do
    [ -f "$picture" ] || continue
    place "$picture" "$station/Images/${picture##*/}" || :
done

# 4. A word if the desktop has nowhere to show the icon.
say_if_no_notification_area

# 5. The program, in its station folder.
cd -- "$station" 2>/dev/null || fail "cannot enter it"
exec "$program_folder/skelda" --station-folder "$station" "$@"
