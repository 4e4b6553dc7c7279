#!/usr/bin/env bash
# The man page and the completions know the options that the program shows in its help, and no other.
#
# usage: documents.sh PROGRAM FOLDER      FOLDER holds tavo.1 and completion/
set -euo pipefail
export LC_ALL=C

program=$1
page=$2/tavo.1
failures=0
fail() {
    echo "$*"
    failures=$((failures + 1))
}

# The options in a text, one a line.
options_in() { grep -oE -- '--[a-z][a-z-]*' <<<"$1" | sort -u; }

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

plain_page=$(sed 's/\\-/-/g; s/ ", " /,/' "$page")
zsh=$(cat "$2/completion/_tavo")
all=
for command in '' convert normalize check list diff page tokens; do
    # shellcheck disable=SC2086 # No command is no word.
    shown=$("$program" $command --help | sed -n '/^Options:/,/^$/p')
    all+=$shown
    # shellcheck disable=SC2046,SC2086
    [ -z "$command" ] || expect "$(echo $(options_in "$shown"))" tavo $command --
    # With the short form, where there is one.
    for option in $(grep -oE -- '(-[a-zA-Z], )?--[a-z-]+ ' <<<"$shown" | tr -d ' '); do
        grep -q -- "$option" <<<"$plain_page" || fail "the man page lacks $option"
        grep -q -- "$option" <<<"$zsh" || fail "the completion for zsh lacks $option"
    done
done
for text in "$plain_page" "$zsh"; do
    unknown=$(comm -13 <(options_in "$all") <(options_in "$text"))
    [ -z "$unknown" ] || fail "no option of the program: $unknown"
done
expect "--color --help --quiet --verbose --version check convert diff help list normalize page tokens" tavo ""
expect "normalize" tavo --color never -q n
expect "never" tavo --color n

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
touch "$folder/a.a2l" "$folder/b.A2L" "$folder/c.ini"
expect "check convert" tavo c
expect "--force" tavo convert --f
expect "--format" tavo list --f
expect "json" tavo list --format j
expect "csv" tavo list --format = c
expect "json text" tavo diff --format ""
expect "sarif" tavo check --format s
expect "gone" tavo diff --only g
expect "measurements methods" tavo list --kind me
expect "$folder/a.a2l $folder/b.A2L" tavo check "$folder/"

exit $((failures > 0))
