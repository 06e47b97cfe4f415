#!/usr/bin/env bash
# Builds for the board what Debian packages only for other machines (SQLite, libcrypt and nettle),
# from Debian's source packages, as static libraries below build/board-libraries/root. What is there
# from an earlier run is kept.
set -eu
cd "$(dirname "$0")/.."

PACKAGES="sqlite3 libxcrypt nettle"
TARGET=powerpc-linux-gnu
FOLDER=$PWD/build/board-libraries
ROOT=$FOLDER/root
APT=$FOLDER/apt
export LC_ALL=C

# The machine's own settings hold (proxies, keys, preferences). Only where packages come from and
# where apt keeps files is ours, so that this needs no right and changes nothing on the machine.
apt_get() {
    apt-get -q -o Dir::Etc::sourcelist="$APT/sources.list" \
        -o Dir::Etc::sourceparts="$APT/sources.list.d" \
        -o Dir::State::lists="$APT/lists" -o Dir::Cache="$APT/cache" "$@"
}

# Where this machine gets its packages, in both of apt's formats, turned into where it gets their
# sources.
write_package_sources() {
    local file
    mkdir -p "$APT/sources.list.d" "$APT/lists/partial" "$APT/cache/archives/partial"
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$file" ] || sed -nE 's/^[[:space:]]*deb(-src)?([[:space:]])/deb-src\2/p' "$file"
    done | sort -u >"$APT/sources.list"
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$file" ] ||
            sed -E 's/^Types:.*/Types: deb-src/I' "$file" >"$APT/sources.list.d/${file##*/}"
    done
}

# fetch PACKAGE : unpacks its source into the folder PACKAGE.
fetch() {
    mkdir "$FOLDER/$1.download"
    cd "$FOLDER/$1.download"
    apt_get source --download-only "$1"
    dpkg-source -x ./*.dsc "$FOLDER/$1"
}

build_sqlite3() {
    make -f main.mk TOP=. BCC=gcc TCC="gcc -I." NAWK=awk sqlite3.c
    $TARGET-gcc -O2 -fPIC -D_FILE_OFFSET_BITS=64 -D_TIME_BITS=64 -c sqlite3.c
    mkdir -p "$ROOT/usr/lib" "$ROOT/usr/include"
    $TARGET-ar rcs "$ROOT/usr/lib/libsqlite3.a" sqlite3.o
    cp sqlite3.h "$ROOT/usr/include"
}

build_libxcrypt() {
    autoreconf -fi
    ./configure --host=$TARGET --prefix=/usr --disable-shared --with-pic \
        --enable-hashes=yescrypt --enable-obsolete-api=no
    make -j "$(nproc)" install DESTDIR="$ROOT"
}

build_nettle() {
    ./configure --host=$TARGET --prefix=/usr --disable-shared --disable-public-key \
        --disable-openssl --disable-documentation
    make -j "$(nproc)" install-static install-headers DESTDIR="$ROOT"
}

explain_failure() {
    tail -n 30 "$FOLDER/log" >&3
    printf '%s: %s: see %s\n' "${0##*/}" "$failure" "$FOLDER/log" >&3
}

# Complete when just this script made it.
made_by=$(sha256sum <"scripts/${0##*/}")
[ "$(cat "$FOLDER/made-by" 2>/dev/null)" != "$made_by" ] || exit 0

echo "Building libraries for the board: $PACKAGES (log: build/board-libraries/log)"
rm -rf "$FOLDER"
mkdir -p "$ROOT"
exec 3>&2 >"$FOLDER/log" 2>&1
trap 'explain_failure' EXIT

failure="Debian's package sources cannot be read"
write_package_sources
# Not every source needs to be reached: the downloads show whether those that matter are.
apt_get update || true
for package in $PACKAGES; do
    failure="the source package $package cannot be had from where this machine gets its packages"
    (fetch "$package")
    failure="$package cannot be built for the board"
    (cd "$FOLDER/$package" && "build_$package")
    rm -rf "${FOLDER:?}/$package" "$FOLDER/$package.download"
done
rm -rf "$APT"
echo "$made_by" >"$FOLDER/made-by"
trap - EXIT
