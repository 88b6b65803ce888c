# The compiler refuses another library's form: the file that asks Forms for the main window builds
# as a file of the main window's library, and fails as one of the tray's, on the assertion of
# forms/Forms.h (not on any other error).
#
#   CheckFormReach.sh <build folder>
set -u
if ! cmake --build "$1" --target reach_from_mainwindow >/dev/null 2>&1; then
    echo "the main window's own library can't reach its form"
    exit 1
fi
if out=$(cmake --build "$1" --target reach_from_tray 2>&1); then
    echo "the tray's library reached the main window's form"
    exit 1
fi
if ! grep -q "reached through its interface of forms/ only" <<<"$out"; then
    echo "the tray's reach failed, but not on the meeting place's assertion:"
    echo "$out"
    exit 1
fi
echo "the tray's library is refused the main window's form"
