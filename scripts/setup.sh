# What ./run, ./test, bench/run and fuzz/run share; sourced by them. Installs packages and builds a
# preset.
# shellcheck shell=bash disable=SC2015,SC2034

BUILD_PACKAGES="cmake g++ libc-bin libcrypt-dev libsqlite3-dev ninja-build nettle-dev openssl
    python3 util-linux"
LIGHTTPD_PACKAGES="lighttpd lighttpd-mod-openssl lighttpd-modules-lua"
NGINX_PACKAGES="fcgiwrap libnginx-mod-http-headers-more-filter nginx"
APACHE_PACKAGES="apache2-bin"
SERVER_PACKAGES="$LIGHTTPD_PACKAGES $NGINX_PACKAGES $APACHE_PACKAGES"
CHECK_PACKAGES="python3-requests"
TEST_PACKAGES="$CHECK_PACKAGES abigail-tools binutils clang-format clang-tidy cppcheck doxygen
    libgtest-dev mount pkg-config pyflakes3 shellcheck"
BOARD_PACKAGES="autoconf automake dpkg-dev g++-powerpc-linux-gnu googletest libtool m4 make
    pkg-config qemu-user-static tcl"
BROWSER_PACKAGES="chromium chromium-driver firefox-esr fonts-dejavu-core fonts-ipafont-gothic
    python3-selenium"
VALGRIND_PACKAGES="valgrind"
FUZZ_PACKAGES="clang libclang-rt-dev"
BENCH_PACKAGES="apache2-utils $VALGRIND_PACKAGES"
BENCH_PEERS="libcgicc-dev libcgi-pm-perl php-cgi"

fail() {
    printf '%s: %s\n' "${0##*/}" "$1" >&2
    exit 1
}

# Run as root. Packages of web servers start a service and enable it for the next boot, but ./run starts
# servers of its own: no service is started, and those of the new packages are disabled.
# shellcheck disable=SC2016
INSTALL_WITHOUT_SERVICES='
    policy=/usr/sbin/policy-rc.d
    if [ ! -e $policy ]; then
        trap "rm -f $policy" EXIT
        trap "exit 1" HUP INT TERM
        printf "#!/bin/sh\nexit 101\n" >$policy && chmod 755 $policy || exit 1
    fi
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq && apt-get install -y -qq --no-install-recommends "$@" >/dev/null || exit 1
    for unit in fcgiwrap.service fcgiwrap.socket lighttpd.service nginx.service; do
        case " $* " in
            *" ${unit%.*} "*)
                DPKG_MAINTSCRIPT_PACKAGE=${unit%.*} deb-systemd-helper disable "$unit" &&
                    update-rc.d "${unit%.*}" disable
                ;;
        esac || echo "$unit may start at the next boot: disable it" >&2
    done'

# server_packages NAME : those of a web server of ./run --server.
server_packages() {
    case $1 in
        nginx) echo "$NGINX_PACKAGES" ;;
        apache) echo "$APACHE_PACKAGES" ;;
        *) echo "$LIGHTTPD_PACKAGES" ;;
    esac
}

# install_packages NAME… : those of the Debian packages that are not installed yet.
install_packages() {
    local missing=() package privileged=()
    command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
        fail "this needs Debian's apt-get to install: $*"
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || fail "as root, install first: apt-get install ${missing[*]}"
        privileged=(sudo)
    fi
    echo "Installing ${missing[*]}"
    "${privileged[@]}" sh -c "$INSTALL_WITHOUT_SERVICES" sh "${missing[@]}" ||
        fail "apt-get could not install: ${missing[*]}"
}

# build_preset NAME [CMAKE OPTION…] : configures and builds; shows the output only when it fails.
build_preset() {
    local preset=$1 log
    shift
    mkdir -p build 2>/dev/null && [ -w build ] || fail "cannot write to $PWD/build"
    log=build/$preset.log
    echo "Building preset $preset (log: $log)"
    { cmake --preset "$preset" "$@" && cmake --build --preset "$preset"; } >"$log" 2>&1 || {
        tail -n 50 "$log" >&2
        fail "the build failed: see $log"
    }
}
