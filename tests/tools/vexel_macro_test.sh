#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# vexel_macro_test PROGRAM: vexel-macro from outside: each property, the ways of telling them,
# macro files, pictures, scrambles, bad input. VEXEL_VERSION is the version that it should tell.
set -uo pipefail

golden=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../golden")
# shellcheck source=tests/tools/check.sh
source "$(dirname "${BASH_SOURCE[0]}")/check.sh"

check_common RU --length
check_memory --permutation --json

# Each property alone

report="Current cube permutation:
(UR UF UL UB)(URB UFR ULF UBL)
Cycle structure: 2(4) 

Face Permutation:
(Urb Urf Ulf Ulb)(Ur Uf Ul Ub)(Bru Ruf Ful Lub)(Bu Ru Fu Lu)
(Blu Rub Fur Luf)
Cycle Structure: 5(4) "
net="       W W W 
       W W W 
       W W W 

R R R  B B B  O O O  G G G 
G G G  R R R  B B B  O O O 
G G G  R R R  B B B  O O O 

       Y Y Y 
       Y Y Y 
       Y Y Y "

# tell MACRO OPTION VALUE [STATUS]
tell() {
    run "$2" -e "$1"
    expect "$2 of $1" "${4:-0}" "$3"
}

tell "R U'" --macro "Ru"
tell "Ru" --name ""
tell "Ru" --check "good"
tell "Rq" --check 'invalid: column 2: "q" does not fit' 1
tell "RRu*F" --moves "R2 U' S"
tell "3(RU)*F" --length 7
tell "99999(99999(R))" --length 2147483647
tell "RUru" --order 6
tell "RU" --order 105
tell "" --order 1
tell ">R" --order 1
tell "s(RU)" --order 1
tell ">R" --order-facelets 4
tell "*F" --order-facelets 4
tell "RUru" --order-facelets 6
tell "s(RU)" --order-facelets 0
tell "2(RU*F)>u" --inverse "2(*Bur)"
tell "s(RU)" --inverse "invalid: resets the cube" 1
tell "2(R2(U))*F" --expand "RUURUU*F"
tell "1000001(R)" --expand "invalid: more than 1000000 turns" 1
tell "F" --conjugate=RU "RUFur"
tell "F" --commutator=RU "RUFurf"
tell "R'" "--commutator=U'" "urUR"
tell "U" --cycles "2(4)"
tell "" --cycles ""
tell "U" --facelets "UUUUUUUUUBBBRRRRRRRRRFFFFFFDDDDDDDDDFFFLLLLLLLLLBBBBBB"
tell "U" --cubies "UR UB UL UF DF DR DB DL FR FL BR BL URB UBL ULF UFR DRF DFL DLB DBR"
tell "U" --permutation "$report
"
tell "U" --net "$net
"
facelets="UUUUUUUUUBBBRRRRRRRRRFFFFFFDDDDDDDDDFFFLLLLLLLLLBBBBBB"
tell $facelets --permutation "$report
"
tell $facelets --check good
tell $facelets --length "invalid: a cube and no macro" 1
run --length --from=macro -e 2U
expect "a length that the window cannot tell" 1 "invalid: *****"

# Several, all, and in JSON

run --header --macro --length --cycles -e RU q $facelets
expect "columns" 1 "macro	length	cycles
RU	2	1(1) 1(5) 1(7)
invalid: column 1: \"q\" does not fit		
invalid: a cube and no macro	invalid: a cube and no macro	2(4)"
run --net --length -e ""
expect "lines in a column" 0 "       W W W \\n       W W W \\n       W W W \\n\\nG G G  R R R  B B B  O O O \\nG G G  R R R  B B B  O O O \\nG G G  R R R  B B B  O O O \\n\\n       Y Y Y \\n       Y Y Y \\n       Y Y Y \\n	0"
run --json --length --inverse --order -e RU q "s(U)"
expect "json" 1 '{"line": 1, "form": "macro", "length": 2, "inverse": "ur", "order": 105}
{"line": 2, "error": "\"q\" does not fit", "column": 1}
{"line": 3, "form": "macro", "length": 1, "inverse": null, "order": 1, "error": "resets the cube"}'
run --json -e "U'"
python3 -c '
import json, sys
card = json.loads(sys.stdin.read())
assert card["form"] == "moves" and card["macro"] == "u" and card["length"] == 1, card
assert card["order"] == 4 and card["inverse"] == "U" and card["cycles"] == "2(4)", card
assert card["permutation"].startswith("Current cube permutation:\n"), card
' < out || fail "json" "of a card: $(cat out)"
run -e U
expect "a card" 0 "macro:          U
check:          good
moves:          U
length:         1
order:          4
order-facelets: 4
inverse:        u
expand:         U
cycles:         2(4)
facelets:       $facelets
cubies:         UR UB UL UF DF DR DB DL FR FL BR BL URB UBL ULF UFR DRF DFL DLB DBR
permutation:
$(sed 's/^./  &/' <<< "$report")
net:
$(sed 's/^./  &/' <<< "$net")
"
run -e "s(RU)"
[[ $status == 0 && $(grep none: out) == "moves:          none: resets the cube
inverse:        none: resets the cube
expand:         none: resets the cube" ]] || fail "a card with gaps" "$(cat out)"
run -e $facelets
[[ $status == 0 && $(head -n 2 out) == "check:          good
cycles:         2(4)" ]] || fail "a card of facelets" "$(cat out)"

# Macro files

printf 'One\n$RU\nT\\wo\r\n[R U2]\nBad\nR U\nFour\nR2' > file.macros
run --named --header --name --macro --length file.macros
expect "a macro file" 1 "name	macro	length
One	RU	2
T\\\\wo	RUU	3
Bad	invalid: column 2: \" \" does not fit	
Four	R2	invalid: *****"
run -n --length < file.macros
expect "a macro file from standard input" 1 '2
3
invalid: column 2: " " does not fit
invalid: *****'
run -n --from=auto --length file.macros
expect "a macro file of moves" 0 "2
3
2
2"
run -n --length /nonexistent / file.macros
expect "macro files that are none" 1 '2
3
invalid: column 2: " " does not fit
invalid: *****' "$name: /nonexistent: No such file or directory
$name: /: Is a directory"
run -n --check <<< "$(printf 'long\n%s\n' "$(head -c 200 /dev/zero | tr '\0' R)")"
expect "a long line of a macro file, as the window reads it" 0 "good
good"

# Pictures

run --eps=solved.eps --svg=solved.svg -e ""
expect "pictures" 0 ""
cmp solved.eps "$golden/solved.eps" || fail "eps" "is not that of the window"
[[ $(grep -c '<polygon' solved.svg) == 27 ]] || fail "svg" "$(cat solved.svg)"
run --svg=- --colors=YGRBOW -e ""
sed 's/#ffffff/#X/; s/#ffff00/#ffffff/; s/#X/#ffff00/' solved.svg | cmp - out || fail "svg" "in other colours"
run --eps=- -e ""
cmp out "$golden/solved.eps" || fail "eps" "on standard output"
run --eps=two.eps -e R U
expect "two macros for a picture" 1 "" "$name: argument 2: only the first macro is drawn"
run --eps=none.eps -e q
expect "no macro for a picture" 1 "" "$name: argument 1: column 1: \"q\" does not fit"
[[ ! -e none.eps ]] || fail "eps" "of a bad macro"
run --eps=/nonexistent/x -e R
expect "a picture that cannot be written" 2 "" \
    "$name: Couldn't open /nonexistent/x for writing: No such file or directory"
run --svg=picture.svg --length -e RU
expect "a picture and a value" 0 2

# Scrambles

run --scramble=5 --seed=1
[[ $status == 0 && $(wc -l < out) == 5 ]] || fail "scrambles" "$(cat out err)"
cp out macros
run --scramble=5 --seed=1 --facelets
cp out drawn
"$program" --facelets macros | cmp - drawn || fail "scrambles" "are not of the cubes that were drawn"
run --scramble=2 --seed=1 --cubies
expect "drawn cubes" 0 "LU DR RB FD DB BU LD BL LF FU UR RF BDL DRF BRD URB RUF LDF UBL FUL
FR RU FD RB BL BU RD FU DL FL LU BD BDL FDR LFU LDF URB FRU BLU DBR"
run --scramble=5 --facelets
cmp -s out drawn && fail "scrambles" "without a seed are those of seed 1"
run --scramble=1 --seed=18446744073709551615 --cycles
[[ $status == 0 ]] || fail "scrambles" "the greatest seed"
run --scramble=1 --seed=2 --svg=scramble.svg
expect "a picture of a scramble" 0 ""

# Wrong usage

for wrong in "--scramble=0" "--scramble=x" "--scramble=-1" "--scramble=1 x" "--scramble=1 -n" \
    "--scramble=1 -e R" "--seed=1" "--seed=x --scramble=1" "--scramble=1 --seed=18446744073709551616" \
    "--colors=WGRBOY" "--svg=x --colors=W" "-e" "-n -e R" "--conjugate=q" "--conjugate=$facelets" \
    "--commutator=s(R)" "--commutator=s" "--frob" "--conjugate"; do
    # shellcheck disable=SC2086
    run $wrong < /dev/null
    [[ $status == 2 && ! -s out && $(tail -n 1 err) == "$hint" ]] || fail "wrong: $wrong" "$(cat out err)"
done
[[ ! -e x ]] || fail "wrong usage" "made a picture"

# What belongs together closes: the inverse of the inverse, moves and back.
run --expand < macros
cp out expanded
"$program" --inverse macros | "$program" --inverse | "$program" --expand | cmp - expanded ||
    fail "the inverse of the inverse" "is another macro"
"$program" --moves macros | "$program" --macro | "$program" --facelets | cmp - drawn ||
    fail "moves" "are another cube"

exit $failed
