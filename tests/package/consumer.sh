#!/usr/bin/env bash
# Uses the installed tree in one of the ways in which users do, in a folder of its own. The
# environment says where the tree is.
#
# usage: consumer.sh find_package|add_subdirectory|FetchContent|pkg_config|python|program SOURCES VERSION
set -euo pipefail

way=$1
sources=$2
version=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

case $way in
find_package | add_subdirectory | FetchContent)
    cmake -S "$sources/tests/package/consumer" -B build -G Ninja -DWAY="$way" \
        -DSOURCES="$sources" -DTAVO_VERSION="$version"
    # It does what add_subdirectory does, so the names are enough.
    [ "$way" != FetchContent ] || exit 0
    cmake --build build
    build/consumer-wide "$sources/examples/engine.a2l" engine.ini
    cmp engine.ini "$sources/examples/engine.ini"
    build/consumer "$sources/examples/engine.a2l" engine.ini
    # The project's own program, and of another project only the library.
    [ "$(find build -type f -executable -name '*tavo*' ! -name 'libtavo*.so.*')" = "" ]
    cmake --install build --prefix installed
    [ ! -e installed ]
    ;;
pkg_config)
    for library in tavo tavo-wide; do
        [ "$(pkg-config --modversion $library)" = "$version" ]
        read -ra flags <<<"$CFLAGS $(pkg-config --cflags --libs $library)"
        "$CC" "$sources/examples/host.c" "${flags[@]}" -o host
        rm -f engine.ini
        ./host "$sources/examples/engine.a2l" engine.ini
        cmp engine.ini "$sources/examples/engine.ini"
    done
    ;;
python)
    printf '/begin PROJECT p ""\n/begin MODULE m "" /begin UNIT' >bad.a2l
    status=0
    report=$(python3 "$sources/examples/host.py" bad.a2l bad.ini) || status=$?
    [ "$status: $report" = "3: Error (bad.a2l:2): Unexpected token 'UNIT'" ]
    [ -z "$(python3 "$sources/examples/host.py" "$sources/examples/engine.a2l" engine.ini)" ]
    ;;
program)
    tavo --version | grep -Ex "tavo ${version//./\\.}( \([0-9a-f]{7,}\+?\))?"
    tavo convert "$sources/examples/engine.a2l" engine.ini
    prefix=$(dirname "$(dirname "$(command -v tavo)")")
    for file in share/man/man1/tavo.1 share/bash-completion/completions/tavo \
        share/zsh/site-functions/_tavo; do
        [ -s "$prefix/$file" ] || { echo "$file is missing" && exit 1; }
    done
    ;;
esac
cmp engine.ini "$sources/examples/engine.ini"
