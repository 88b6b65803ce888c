#!/usr/bin/env bash
# The Debian package installed and removed on this machine, as a user would with apt, where
# Debian's nginx runs with its default site:
#
#   package_install_test.sh <build folder> <cpack>
#
# Installed, the gateway is a site of that nginx, nginx's configuration passes its own check, and
# the gateway answers on Skelda's address; removed, no site of it is left, and the machine's web
# server still starts. Needs root and nginx (skipped otherwise), and leaves a Skelda that was
# installed before alone (skipped).
set -u

build=$1
cpack=$2

if [ "$(id -u)" -ne 0 ]; then echo "not root: skipped"; exit 77; fi
for p in nginx libnginx-mod-http-js fcgiwrap; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || { echo "$p isn't installed: skipped"; exit 77; }
done
if dpkg-query -W -f='${Status}' skelda 2>/dev/null | grep -q "install ok installed"; then
    echo "Skelda is installed on this machine: skipped, to leave it alone"
    exit 77
fi

source "$(dirname "$0")/checks.sh"

(cd "$work" && "$cpack" -G DEB --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" 2>&1) || {
    cat "$work/cpack.log" >&2
    exit 1
}
deb=$(ls "$work"/skelda_*.deb)

running() { [ -s /run/nginx.pid ] && kill -0 "$(cat /run/nginx.pid)" 2>/dev/null; }
answers() { curl -s --noproxy '*' --max-time 5 "$@"; }
started=no
if ! running; then
    nginx || { echo "nginx doesn't start here: skipped"; exit 77; }
    started=yes
fi
default_before=no
[ -e /etc/nginx/sites-enabled/default ] && default_before=yes
stop_what_we_started() {
    if [ "$started" = yes ] && running; then nginx -s stop; fi
    cleanup
}
trap stop_what_we_started EXIT

apt-get install -y -qq --no-install-recommends "$deb" >"$work/install.log" 2>&1 || cat "$work/install.log" >&2
check "the package is installed" dpkg-query -W skelda
check "the gateway is a site of nginx" test -f /etc/nginx/sites-enabled/skelda-gateway
check "nginx's configuration passes its own check" nginx -t -q
check "nginx runs" running
check "the gateway serves the news page of this version" \
    cmp -s <(answers http://127.0.0.1/Skelda/promo.html) /usr/share/skelda/gateway/promo.html
check "a forecast page comes in the portal's layout" grep -q -- "<!--TEXT FORECAST-->" <(answers http://127.0.0.1/forecast/LFPG.html)
check "another path is not found" test "$(answers -o /dev/null -w '%{http_code}' http://127.0.0.1/etc/passwd)" = 404
check "the gateway answers on no other address" test "$(answers -o /dev/null -w '%{http_code}' http://127.0.0.2/Skelda/promo.html)" != 200
# With the default site taken out, every socket nginx listens on is the gateway's, on the loopback.
if [ ! -e /etc/nginx/sites-enabled/default ]; then
    check "nginx listens on the loopback only" test -z "$(ss -Hltnp | grep '"nginx"' | awk '{ print $4 }' |
        grep -vxE '127\.0\.0\.1:(80|857)|\[::1\]:80')"
    check "the page maker's source is on 127.0.0.1:857" test -n "$(ss -Hltn src 127.0.0.1:857)"
fi

apt-get remove -y -qq skelda >"$work/remove.log" 2>&1 || cat "$work/remove.log" >&2
check "the package is removed" test -z "$(dpkg-query -W -f='${Status}' skelda 2>/dev/null | grep ' installed')"
check "no site of the gateway is left" test ! -e /etc/nginx/sites-enabled/skelda-gateway
check "nothing of the gateway is left in nginx's folder" test -z "$(grep -rl skelda /etc/nginx 2>/dev/null)"
if [ "$default_before" = yes ]; then
    check "nginx's default site is back" test -e /etc/nginx/sites-enabled/default
fi
check "nginx's configuration still passes its check" nginx -t -q
nginx -s stop 2>/dev/null
for _ in $(seq 50); do running || break; sleep 0.1; done
check "the machine's web server still starts" nginx
for _ in $(seq 50); do running && break; sleep 0.1; done
check "and runs" running
check "and answers on the machine's own address" test "$(answers -o /dev/null -w '%{http_code}' http://127.0.0.1/)" != 000
apt-get purge -y -qq skelda >/dev/null 2>&1
if [ "$started" = no ] && ! running; then nginx; fi

passed
