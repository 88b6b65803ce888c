#!/usr/bin/env bash
# The Debian package, made from this build folder as `cpack -G DEB` makes it:
#
#   package_test.sh <build folder> <cpack> <the build's Images folder>
#
# The package must hold the launcher, the program's folder with the delivered database and every
# picture that the build drew, the desktop entry, the icon and the metadata; its dependencies come
# from the libraries that the program links; and lintian must find no error in it (its warnings
# and notes are shown, not failed).
set -u

build=$1
cpack=$2
images=$3

source "$(dirname "$0")/checks.sh"
lists() { grep -qE " \./$1\$" "$work/contents"; }

(cd "$work" && "$cpack" -G DEB --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" 2>&1) || {
    cat "$work/cpack.log" >&2
    exit 1
}
deb=$(ls "$work"/skelda_*.deb)
dpkg-deb --contents "$deb" >"$work/contents"

check "the launcher" lists usr/bin/skelda
check "the program" lists usr/lib/skelda/skelda
check "the delivered database" lists usr/lib/skelda/database.mdb
for picture in "$images"/*; do
    check "the picture ${picture##*/}" lists "usr/lib/skelda/Images/${picture##*/}"
done
check "the desktop entry" lists usr/share/applications/skelda.desktop
for size in 16 22 24 32 48 64 128 256; do
    check "the icon at $size" lists "usr/share/icons/hicolor/${size}x$size/apps/skelda.png"
done
check "the metadata" lists usr/share/metainfo/invalid.skelda.skelda.metainfo.xml
check "the manual page" lists usr/share/man/man1/skelda.1.gz
check "the launcher is executable" grep -qE '^-rwxr-xr-x .* \./usr/bin/skelda$' "$work/contents"

depends=$(dpkg-deb --field "$deb" Depends)
echo "Depends: $depends"
check "it depends on the Qt Widgets library it links" grep -q libqt6widgets6 <<<"$depends"
check "it depends on the SQLite library it links" grep -q libsqlite3-0 <<<"$depends"
check "it depends on the curl library it links" grep -q libcurl4 <<<"$depends"

recommends=$(dpkg-deb --field "$deb" Recommends)
echo "Recommends: $recommends"
check "it recommends GNOME's notification area first" grep -q '^gnome-shell-extension-appindicator |' <<<"$recommends"

lintian --fail-on error --display-info --tag-display-limit 0 "$deb" >"$work/lintian" 2>&1
status=$?
cat "$work/lintian"
check "lintian finds no error" [ "$status" -eq 0 ]
check "lintian lists no error" [ -z "$(grep '^E:' "$work/lintian")" ]

passed
