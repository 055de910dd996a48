#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# completion_test PROGRAM FILE: bash offers each option that the program's --help tells and that it
# takes, and no other, and the values of those that have a list of them.
set -uo pipefail

program=$1
name=$(basename "$program")
failed=0
# shellcheck source=/dev/null
source "$2"
function=_${name//-/_}

# offer WORD...: what is offered for the last word, sorted.
offer() {
    COMP_WORDS=("$name" "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    "$function"
    printf '%s\n' "${COMPREPLY[@]}" | sort
}

# expect CASE EXPECTED WORD...
expect() {
    local case=$1 expected=$2 offered
    shift 2
    offered=$(offer "$@" | tr '\n' ' ')
    if [[ $offered != "$expected " ]]; then
        echo "$case: offered \"$offered\", expected \"$expected\""
        failed=1
    fi
}

told=$("$program" --help | grep -oE '^ +(-[a-zA-Z], )?(--[a-z-]+=?|-[a-z]( |$))' |
    grep -oE -- '--?[a-zA-Z-]+=?' | sort | tr '\n' ' ')
expect "all options" "${told% }" "-"
for option in $told; do
    error=$("$program" "$option" 2>&1 < /dev/null)
    if [[ $error == *"is not understood"* ]]; then
        echo "$option: offered and told, but $error"
        failed=1
    fi
done
forms="auto cubies facelets macro moves"
expect "--from" "$forms" --from ""
expect "--from=" "$forms" --from =
expect "--from=ma" "macro" --from = ma
expect "-f" "$forms" -f ""
if [[ $name == vexel-solve ]]; then
    expect "--to" "cubies facelets macro moves" --to ""
    expect "-d" "14 15 16" -d ""
fi
cd "$(mktemp -d)" || exit 2
touch some.macros
expect "files" "some.macros" "so"
expect "files of a list" "some.macros" --json ""
rm some.macros
rmdir "$PWD"
exit $failed
