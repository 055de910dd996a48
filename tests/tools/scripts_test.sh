#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# scripts_test FOLDER DOCUMENT EXAMPLES [whole]: the worked examples of a document do what it shows.
#
# FOLDER holds the programs. An example is a block marked "console": each "$ " begins a command that
# bash runs, "> " goes on with it, and what stands below is its output, to the letter. Without
# "whole" an example of a thousand cubes is done with twenty, and its counts are not compared.
set -uo pipefail

folder=$(readlink -f "$1")
document=$(readlink -f "$2")
examples=$(readlink -f "$3")
whole=${4:-}
failed=0
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 2
ln -s "$examples" examples
export PATH=$folder:$PATH LC_ALL=C

if ! command -v parallel > /dev/null; then
    echo "scripts_test: skipped, parallel is not installed (script/setup test installs it)"
    exit 77
fi

# transcript BLOCK: its commands, with what they say when they are run one after the other.
transcript() {
    local line command=
    while IFS= read -r line; do
        case $line in
            "$ "*) flush; command=${line#$ } ;;
            "> "*) command+=$'\n'${line#> } ;;
        esac
    done < "$1"
    flush
}

# The command that has been collected.
flush() {
    [[ -n $command ]] || return
    sed '1s/^/$ /; 2,$s/^/> /' <<< "$command"
    if [[ $whole != whole ]]; then
        command=${command//scramble=1000/scramble=20}
        command=${command//-N 250/-N 5}
    fi
    bash -c "$command" 2>&1 < /dev/null
    command=
}

# What is compared of a transcript.
compared() {
    if [[ $whole == whole ]]; then cat; else grep -vE '^ +[0-9]+ [0-9]+$'; fi
}

awk '/^```console/ { number++; on = 1; next } /^```/ { on = 0 } on { print > "block" number }' \
    "$document"
[[ $(find . -name 'block*' | wc -l) == 6 ]] || { echo "there are not six examples"; failed=1; }
for block in block?; do
    transcript "$block" > "ran$block"
    if ! diff <(compared < "$block") <(compared < "ran$block"); then
        echo "$block is shown otherwise than it is (left: shown)"
        failed=1
    fi
    [[ -z ${KEEP:-} ]] || cp "ran$block" "$KEEP"
done
exit $failed
