#!/usr/bin/env bash
# The man page and the completions know each option that the program shows in its help.
#
# usage: documents.sh PROGRAM FOLDER      FOLDER holds tavo.1 and completion/
set -euo pipefail

program=$1
page=$2/tavo.1
failures=0
fail() {
    echo "$*"
    failures=$((failures + 1))
}

plain_page=$(sed 's/\\-/-/g' "$page")
for command in '' convert check list tokens; do
    # shellcheck disable=SC2086 # No command is no word.
    options=$("$program" $command --help | sed -n '/^Options:/,/^$/p' | grep -o -- '--[a-z-]*')
    [ -n "$options" ] || fail "tavo $command shows no option"
    for option in $options; do
        grep -q -- "$option" <<<"$plain_page" || fail "the man page lacks $option"
        grep -q -- "$option" "$2/completion/_tavo" || fail "the completion for zsh lacks $option"
        grep -q -- "$option" "$2/completion/tavo.bash" || fail "the one for bash lacks $option"
    done
done

if command -v groff >/dev/null; then
    warnings=$(groff -man -ww -Tutf8 "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || fail "$warnings"
fi

# shellcheck source=/dev/null
source "$2/completion/tavo.bash"
# shellcheck disable=SC2317 # Called by the completion; the true one works there only.
compopt() { :; }
set +e # It isn't made for shells that end at the first failure.
# What the completion proposes for the last of the words.
expect() {
    local expected=$1
    shift
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    _tavo
    local proposed
    proposed=$(printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd ' ')
    [ "$proposed" = "$expected" ] || fail "completion of '$*': '$proposed'"
}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
touch "$folder/a.a2l" "$folder/b.A2L" "$folder/c.ini"
expect "check convert" tavo c
expect "--force" tavo convert --f
expect "--format" tavo list --f
expect "json" tavo list --format j
expect "csv" tavo list --format = c
expect "$folder/a.a2l $folder/b.A2L" tavo check "$folder/"

exit $((failures > 0))
