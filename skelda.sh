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
set -euo pipefail
cd "$(dirname "$0")"

packages=(g++ cmake ninja-build pkg-config qt6-base-dev libsqlite3-dev libcurl4-openssl-dev
          libgtest-dev libgmock-dev libbenchmark-dev
          desktop-file-utils appstream lintian dpkg-dev file sqlite3
          xvfb xauth openbox trayer poppler-utils clang libclang-rt-14-dev)

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
    cmake --install build --prefix "$prefix" >/dev/null
    cp build/install_manifest.txt "$installed_list"
    echo "Skelda is installed in $prefix: start it from the application menu, or with $prefix/bin/skelda"
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

case "${1:-}" in
start)
    install_missing
    build build
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
package)
    install_missing
    build build
    (cd build && cpack -G DEB >/dev/null && ls "$PWD"/skelda_*.deb)
    ;;
*)
    echo "usage: $0 start|test|install [--autostart]|uninstall|package" >&2
    exit 2
    ;;
esac
