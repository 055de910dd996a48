#!/bin/sh
# SPDX-License-Identifier: MIT
# vexel-solve from outside: answers, complaints, exit status, bad input.
solve=$1
failed=0
out=$(mktemp)
trap 'rm -f "$out"' EXIT

# expect NAME STATUS TEXT: compares with the last run's status and output
expect() {
    if [ "$status" != "$2" ] || [ "$(cat "$out")" != "$3" ]; then
        echo "$1: status $status, expected $2; output:"
        cat "$out"
        failed=1
    fi
}

names="UF UR UB UL DF DR DB DL FR FL BR BL UFR URB UBL ULF DRF DFL DLB DBR"

printf '%s\nRU\n>U*FR\n' "$names" | "$solve" >"$out"; status=$?
expect "solved, a macro, turned centres" 0 "
ur
rFb"
printf '%s X\n' "$names" | "$solve" >"$out"; status=$?
expect "a surplus name" 1 "invalid: Surplus cubie."
printf 'UF UR\n%%s%%n\nXY\n' | "$solve" >"$out"; status=$?
expect "bad names" 1 "invalid: Improper edge cubie:  .
invalid: Improper edge cubie:  %s%.
invalid: Improper edge cubie:  XY."
printf 'FU%s\n' "${names#UF}" | "$solve" >"$out"; status=$?
expect "a flipped edge" 1 "invalid: Flip any edge cubie to make a valid configuration."
printf '%s\0 X\n' "$names" | "$solve" >"$out"; status=$?
expect "a NUL" 1 "invalid: Improper corner cubie: DBR?."
head -c 1048576 /dev/zero | tr '\0' 'Z' | "$solve" >"$out"; status=$?
expect "a line of a megabyte" 1 "invalid: Improper edge cubie:  ZZZ."
"$solve" </dev/null >"$out"; status=$?
expect "an empty file" 0 ""
echo R | "$solve" -v | cut -f 1,2 >"$out"; status=$?
expect "verbose" 0 "r	1"
"$solve" --version >"$out"; status=$?
expect "version" 0 "vexel-solve $("$solve" --version | cut -d ' ' -f 2)"
"$solve" --help | head -n 1 >"$out"; status=$?
expect "help" 0 "Usage: vexel-solve [-d DEPTH] [-v] [FILE]"
for wrong in "-d 13" "-d 17" "-d x" "-q" "a b" "/nonexistent" "/"; do
    # shellcheck disable=SC2086
    "$solve" $wrong </dev/null >"$out" 2>/dev/null; status=$?
    expect "wrong: $wrong" 2 ""
done
yes R | "$solve" 2>/dev/null | head -n 2 >"$out"; status=$?
expect "a closed pipe" 0 "r
r"
exit $failed
