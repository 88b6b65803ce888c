#!/usr/bin/env bash
# Skelda's one entry point for people and CI.
#   ./skelda.sh start   install what is missing, build, and start Skelda on the bundled database
#   ./skelda.sh test    install what is missing, build, and run the whole test suite
#   ./skelda.sh install [--autostart]
#                       build, and install Skelda for the current user under ~/.local (no root);
#                       --autostart also starts it at login
#   ./skelda.sh uninstall
#                       remove what `install` put under ~/.local; the station folder stays
#   ./skelda.sh package build the Debian package build/skelda_<version>_<arch>.deb
#   ./skelda.sh remove-gateway
#                       take away the gateway that `start` set up under /usr/local (root)
set -euo pipefail
cd "$(dirname "$0")"

packages=(g++ cmake make ninja-build pkg-config qt6-base-dev libsqlite3-dev libcurl4-openssl-dev
          libgtest-dev libgmock-dev libbenchmark-dev
          desktop-file-utils appstream lintian dpkg-dev file sqlite3
          xvfb xauth openbox trayer poppler-utils clang libclang-rt-14-dev clang-format-14 clang-tidy-14
          nginx libnginx-mod-http-js fcgiwrap ca-certificates openssl curl iproute2)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

install_missing() {
    local missing=()
    for p in "${packages[@]}"; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}"
}

build() {
    cmake -S . -B "$1" -G Ninja -DCMAKE_BUILD_TYPE="${2:-RelWithDebInfo}" ${3:+"$3"} >/dev/null
    cmake --build "$1" -j "$(nproc)"
}

# Installed for the current user, Skelda's files go under ~/.local; the list of them stays beside
# the program, for uninstall.
prefix=$HOME/.local
installed_list=$prefix/lib/skelda/installed-files.txt
autostart_entry=${XDG_CONFIG_HOME:-$HOME/.config}/autostart/skelda.desktop

install_for_me() {
    # The program alone: the gateway is a site of the machine's nginx, for root to set up.
    cmake --install build --prefix "$prefix" --component Unspecified >/dev/null
    cp build/install_manifest.txt "$installed_list"
    echo "Skelda is installed in $prefix: start it from the application menu, or with $prefix/bin/skelda"
    echo "Skelda's gateway, through which it sees real weather, needs root: install the Debian package (./skelda.sh package), or run ./skelda.sh start once"
    if [ "${1:-}" = --autostart ]; then
        # The session may not have ~/.local/bin on its PATH: the entry names the launcher in full.
        mkdir -p "$(dirname "$autostart_entry")"
        sed "s|^Exec=.*|Exec=\"$prefix/bin/skelda\"|" "$prefix/share/applications/skelda.desktop" >"$autostart_entry"
        echo "Skelda starts at login: $autostart_entry"
    fi
}

uninstall_for_me() {
    if [ ! -f "$installed_list" ]; then
        echo "Skelda isn't installed in $prefix" >&2
        exit 1
    fi
    xargs -d '\n' rm -f -- <"$installed_list"
    rm -f -- "$installed_list" "$autostart_entry"
    rmdir -- "$prefix/lib/skelda/Images" "$prefix/lib/skelda" "$prefix/share/doc/skelda" 2>/dev/null || true
    echo "Skelda is removed from $prefix; your station folder, ${XDG_DATA_HOME:-$HOME/.local/share}/skelda, stays"
}

# Skelda's gateway, as the Debian package sets it up, but with its files under /usr/local (a home
# folder is private to its user, and nginx's workers can't read it). A gateway that answers for its
# news page with this version's is left as it is, whoever set it up.
gateway=/usr/local/lib/skelda/skelda-gateway
gateway_address=127.0.0.1

gateway_answers() {
    { [ -x /usr/lib/skelda/skelda-gateway ] && /usr/lib/skelda/skelda-gateway check; } ||
        { [ -x "$gateway" ] && "$gateway" check; }
}

start_gateway() {
    gateway_answers && return
    as_root cmake --install build --prefix /usr/local --component gateway >/dev/null
    as_root "$gateway" enable || true
    gateway_answers && return
    if curl -s --noproxy '*' --max-time 3 -o /dev/null "http://$gateway_address/"; then
        echo "Another web server holds port 80 of 127.0.0.1 and answers Skelda's requests with its own pages, which Skelda stores like any reply." >&2
    else
        echo "Skelda's gateway isn't running: Skelda starts, and stores no observation." >&2
    fi
}

remove_gateway() {
    if [ ! -f build/install_manifest_gateway.txt ]; then
        echo "No gateway was set up from this folder" >&2
        exit 1
    fi
    as_root "$gateway" disable
    as_root xargs -d '\n' rm -f -- <build/install_manifest_gateway.txt
    as_root rm -f build/install_manifest_gateway.txt
    as_root rmdir /usr/local/lib/skelda /usr/local/share/skelda/gateway /usr/local/share/skelda 2>/dev/null || true
    echo "Skelda's gateway is removed; nginx stays"
}

case "${1:-}" in
start)
    install_missing
    build build
    start_gateway
    # Skelda looks for log/ and Images/ under its current directory, and for database.mdb beside itself.
    cd build/bin && exec ./skelda
    ;;
test)
    install_missing
    build build
    # The plain CMake build: CMake's default generator (Unix Makefiles), which unlike Ninja makes
    # no folder for a command's output, on the targets of the data and the packaging only.
    cmake -S . -B build-make >/dev/null
    cmake --build build-make -j "$(nproc)" --target database_mdb artwork_files installed_files
    # Headless, but for the tests labelled "desktop", which run on a virtual X display of their
    # own with a window manager and a notification area (xvfb, openbox, trayer).
    (cd build && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)")
    # clang-tidy over every file of the tree that the normal build compiles, with the checks that
    # .clang-tidy names; a finding fails the command. Files found clean are looked at again only
    # once something that reaches them has changed.
    python3 tests/layout/Tidy.py build "$(nproc)"
    # The platform layer and the decoder run once more under AddressSanitizer and UBSan.
    build build-sanitize Debug -DSKELDA_SANITIZE=ON
    (cd build-sanitize && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)" -L sanitize)
    # The fuzz targets (the decoder, the reception of a reply), built with clang, run about 30 s each.
    CXX=clang++ build build-fuzz RelWithDebInfo -DSKELDA_FUZZ=ON
    (cd build-fuzz && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)" -L fuzz)
    ;;
install)
    install_missing
    build build
    install_for_me "${2:-}"
    ;;
uninstall)
    uninstall_for_me
    ;;
remove-gateway)
    remove_gateway
    ;;
package)
    install_missing
    build build
    (cd build && cpack -G DEB >/dev/null && ls "$PWD"/skelda_*.deb)
    ;;
*)
    echo "usage: $0 start|test|install [--autostart]|uninstall|package|remove-gateway" >&2
    exit 2
    ;;
esac
