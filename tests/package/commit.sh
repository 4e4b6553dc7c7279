#!/usr/bin/env bash
# The header with the commit follows the repository from one build to the next, and is rewritten only
# if the commit is another one.
#
# usage: commit.sh SOURCES
set -euo pipefail

sources=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
export GIT_CONFIG_GLOBAL=/dev/null
export GIT_AUTHOR_NAME=n GIT_AUTHOR_EMAIL=e GIT_COMMITTER_NAME=n GIT_COMMITTER_EMAIL=e

mkdir project
cat >project/CMakeLists.txt <<END
cmake_minimum_required(VERSION 3.25)
project(shown LANGUAGES C)
include($sources/cmake/commit.cmake)
add_executable(shown shown.c)
add_commit_header(shown)
END
cat >project/shown.c <<END
#include "commit.h"
#include <stdio.h>
int main(void)
{
    return puts(TAVO_COMMIT) < 0;
}
END
cmake -S project -B build -G Ninja --log-level=ERROR
expect() {
    cmake --build build >log
    local shown
    shown=$(build/shown)
    [ "$shown" = "$1" ] || { echo "'$shown' and not '$1': $2" && exit 1; }
}
commit() { git -C project commit -q --allow-empty -m "$1" && git -C project rev-parse --short=7 HEAD; }

expect "" "there is no repository"
git init -q .
git commit -q --allow-empty -m other
expect "" "the repository is somebody else's"
git init -q project
expect "" "there is no commit yet"
git -C project add .
expect " ($(commit one))" "the first commit"
expect " ($(commit two))" "a new commit"
expect " ($(git -C project rev-parse --short=7 HEAD))" "nothing has changed"
! grep -q shown.c log || { echo "it was compiled again" && exit 1; }
echo >>project/shown.c
expect " ($(git -C project rev-parse --short=7 HEAD)+)" "a changed file"
git -C project add .
(
    export GIT_DIR=$folder/.git # as in a hook
    expect " ($(git -C "$folder/project" --git-dir=.git rev-parse --short=7 HEAD)+)" "a change to come"
)
