#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# vexel_solve_test PROGRAM: vexel-solve from outside: answers, complaints, exit status, bad input,
# jobs. VEXEL_VERSION is the version that it should tell.
set -uo pipefail

# shellcheck source=tests/tools/check.sh
source "$(dirname "${BASH_SOURCE[0]}")/check.sh"

check_common RU
check_memory --to=facelets

names="UF UR UB UL DF DR DB DL FR FL BR BL UFR URB UBL ULF DRF DFL DLB DBR"
facelets="UUUUUUUUURRRRRRRRRFFFFFFFFFDDDDDDDDDLLLLLLLLLBBBBBBBBB"

# Forms

run << END
$names
$facelets
RU
>U*FR
R2
R U F'
[R U']
END
expect "solved, macros, turned centres, moves" 0 "

ur
rFb
RR
Fur
Ur"
run --from=macro <<< $'R2\n2U'
expect "a lost count, where it is wanted" 0 "r
u"
run --from=moves <<< "r U"
expect "a wide turn" 0 "ul"
run <<< "[R U M]"
expect "what the window would drop" 0 "$("$program" --from=moves <<< "R U M")" \
    "$name: standard input, line 1, column 6: the window would drop \"M\""
run << END
q
$names X
UF UR
R2q
FU${names#UF}
WWWWWWWWW
END
expect "bad lines" 1 'invalid: column 1: "q" does not fit
invalid: column 69: Surplus cubie.
invalid: column 1: 2 names of cubies instead of 20; --from=moves reads them as moves
invalid: column 3: "q" does not fit
invalid: Flip any edge cubie to make a valid configuration.
invalid: column 1: "W" does not fit'
run --from=cubies <<< $'UF UR\n%s%n\nXY\nR2'
expect "bad names" 1 "invalid: Improper edge cubie:  .
invalid: Improper edge cubie:  %s%.
invalid: Improper edge cubie:  XY.
invalid: Improper edge cubie:  R2."
printf '%s\0 X\n' "$names" | run --from=cubies
status=1
expect "a NUL among names" 1 "invalid: Improper corner cubie: DBR?."
head -c 1048576 /dev/zero | tr '\0' 'Z' > megabyte
run megabyte
expect "a line of a megabyte" 1 'invalid: column 1: "Z" does not fit'
run -e RU "R U" q
expect "arguments" 1 'ur
ur
invalid: column 1: "q" does not fit'
printf '%s\n' RU "R U" | xargs -d '\n' "$program" -e > out 2> err
status=$?
expect "xargs" 0 "ur
ur"
run -e
expect "no argument" 2 "" "$name: -e needs a cube
$hint"

# Answers

run --to=moves <<< RRUf
expect "moves" 0 "F U' R2"
run --to=facelets <<< "$names"
expect "facelets" 0 "$facelets"
run --to=cubies <<< "$facelets"
expect "cubies" 0 "$names"
run -v <<< R
cut -f 1,2 out > cut && mv cut out
expect "verbose" 0 "r	1"
run -v --header <<< R
cut -f 1-5 out | head -n 1 > cut && mv cut out
expect "titles" 0 "solution	turns	stage1	stage2	seconds"
run --header --to=cubies <<< q
expect "the title of cubies" 1 'cubies
invalid: column 1: "q" does not fit'
run --json <<< $'R\nq"\n'"$names X"
expect "json" 1 '{"line": 1, "solution": "r"}
{"line": 2, "error": "\"q\" does not fit", "column": 1}
{"line": 3, "error": "Surplus cubie.", "column": 69}'
run --json -v <<< R
sed -E 's/[0-9]+\.[0-9]{3}/S/; s/("stage[12]": )[0-9]+/\1N/g' out > sedded && mv sedded out
expect "json with figures" 0 \
    '{"line": 1, "solution": "r", "turns": 1, "stage1": N, "stage2": N, "seconds": S}'
for wrong in "-d 13" "-d 17" "-d x" "-d 14x" "-j 0" "-j 257" "-j x" "--to=auto" "--to=x"; do
    # shellcheck disable=SC2086
    run $wrong < /dev/null
    [[ $status == 2 && ! -s out && $(tail -n 1 err) == "$hint" ]] || fail "wrong: $wrong" "$(cat out err)"
done

# Each answer comes as soon as it is found.
mkfifo cubes
"$program" < cubes > answers &
exec 4> cubes
echo RU >&4
until_true grep -q ur answers || fail "an answer" "does not come before the next cube"
exec 4>&-
wait

# Jobs

{
    for moves in R U F L "R U" "R U F" "q" "R U F L D" "F2 L' B" "D B2 R U2"; do
        echo "$moves"
    done
    echo "RRUUFFBLDRUFLBrdulRUFrblURFDlbufRUFD"
    for moves in R "R U F2 B L'" "" "q U" "r'"; do
        echo "$moves"
    done
} > some
run some
cp out expected
[[ $(wc -l < expected) == 16 ]] || fail "jobs" "there are $(wc -l < expected) answers"
for jobs in 2 3 16; do
    run --jobs=$jobs some
    expect "$jobs jobs" 1 "$(cat expected)"
    run --jobs=$jobs some /nonexistent some
    expect "$jobs jobs and three files" 1 "$(cat expected expected)" \
        "$name: /nonexistent: No such file or directory"
    run --jobs=$jobs --to=cubies -e RU
    expect "$jobs jobs that do not solve" 0 "$("$program" --to=cubies -e RU)"
done
run --jobs=2 <<< "[M]"
expect "what is said aside in a job" 0 "$("$program" -e M)" \
    "$name: standard input, line 1, column 2: the window would drop \"M\""

"$program" --jobs=2 < cubes > answers &
exec 4> cubes
echo RU >&4
until_true grep -q ur answers || fail "an answer of a job" "does not come before the next cube"
exec 4>&-
wait

yes R 2> yeserr | "$program" --jobs=2 2> err | head -n 2 > out
status=0
expect "a closed pipe with jobs" 0 "r
r"
yes R 2> yeserr | "$program" --jobs=2 > /dev/full 2> err
status=${PIPESTATUS[1]}
: > out
expect "a full device with jobs" 2 "" "$name: write error: No space left on device"

# gone PROCESS...: whether none of them is there any more, or only as a zombie
gone() {
    local process
    for process in "$@"; do
        if [[ $(awk '/^State/ { print $2 }' "/proc/$process/status" 2> /dev/null) == [^ZX] ]]; then
            return 1
        fi
    done
}

# started MASTER: whether it has its two workers
started() {
    mapfile -t workers < <(pgrep -x -P "$1" "$name")
    [[ ${#workers[@]} == 2 ]]
}

hard="UBULURUFURURFRBRDRFUFLFRFDFDFDLDRDBDLULBLFLDLBUBRBLBDB"

# start: a master with two workers that have enough to do
start() {
    set -m # else a job in the background is deaf to INT
    "$program" --depth=16 --jobs=2 < <(yes "$hard" 2> yeserr) > answers 2> err &
    set +m
    master=$!
    until_true started "$master" || fail "jobs" "did not start"
}

# A search takes longer than the patience of these.
for signal in INT TERM HUP KILL; do
    start
    kill -s "$signal" "$master"
    wait "$master" 2> /dev/null
    patience=200 until_true gone "$master" "${workers[@]}" || fail "$signal" "a job is still there"
    [[ ! -s err ]] || fail "$signal" "was answered: $(cat err)"
done
start
kill -s KILL "${workers[1]}"
wait "$master"
status=$?
: > out
expect "a job that is killed" 2 "" "$name: a job ended unexpectedly"
until_true gone "${workers[@]}" || fail "a job that is killed" "the other one is still there"

# Of other machines this one stands for all.
if command -v parallel > /dev/null; then
    export PATH=${program%/*}:$PATH
    parallel --will-cite --keep-order --pipe --max-replace-args 5 vexel-solve < some > out 2> err
    : > err
    status=1
    expect "parallel" 1 "$(cat expected)"
fi

exit $failed
