#!/usr/bin/env bash
# The packages have all that an installation has, each what its name says.
#
# usage: components.sh BUILD INSTALLED LIBDIR      INSTALLED holds an installation of BUILD
set -euo pipefail

build=$1
installed=$2
libdir=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
files_in() { (cd "$1" && find . ! -type d | sort); }
for component in libtavo1 libtavo-wide1 libtavo-dev tavo; do
    cmake --install "$build" --component $component --prefix "$folder/$component" >/dev/null
    mkdir -p "$folder/$component"
    files_in "$folder/$component" >>"$folder/all"
done
diff <(sort -u "$folder/all") <(files_in "$installed")
cd "$folder"
for library in libtavo libtavo-wide; do
    package=${library}1
    [ "$(ls $package "$package/$libdir" | paste -sd ' ')" = \
        "$package: ${libdir%%/*}  $package/$libdir: $library.so.1 $(basename $package/"$libdir"/$library.so.1.*)" ]
    [ -L "libtavo-dev/$libdir/$library.so" ]
done
[ ! -e libtavo-dev/bin ]
if [ -e "$installed/bin/tavo" ]; then
    [ "$(ls tavo | paste -sd ' ')" = "bin share" ]
fi
