# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# check: sourced by the tests of the tools, which look at a program from outside. They leave their
# folder for a scratch folder of their own, which is gone when they end.

failed=0
program=$(readlink -f "$1")
name=$(basename "$program")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 2

# run [ARGUMENT]...: the program with standard input; keeps status, out and err. Zeros in its answer
# are left out by the shell.
run() {
    "$program" "$@" > out 2> err
    status=$?
}

# same FILE TEXT: whether the file is the text and a newline, or nothing for no text.
same() {
    [[ $(cat "$1"; echo .) == "$2"$'\n.' || -z $2 && ! -s $1 ]]
}

# expect CASE STATUS OUT [ERR]: compares with the last run.
expect() {
    if [[ $status != "$2" ]] || ! same out "$3" || ! same err "${4:-}"; then
        printf '%s: status %s, expected %s\n-- output:\n%s\n-- expected:\n%s\n' \
            "$1" "$status" "$2" "$(head -c 2000 out)" "$3"
        printf -- '-- complaints:\n%s\n-- expected:\n%s\n' "$(head -c 2000 err)" "${4:-}"
        failed=1
    fi
}

# fail CASE WHAT
fail() {
    echo "$1: $2"
    failed=1
}

# until_true COMMAND...: waits for it, a minute at most, or patience times 50 ms.
until_true() {
    local tries
    for ((tries = 0; tries < ${patience:-1200}; tries++)); do
        "$@" && return 0
        sleep 0.05
    done
    return 1
}

hint="Try '$name --help' for more information."

# What both programs do alike.

check_common() {
    local cube=$1 wrong
    shift
    ! ldd "$program" | grep -iE 'fltk|libGL|libX11' || fail "the libraries" "are a window's"

    run --version < /dev/null
    expect "version" 0 "$name $VEXEL_VERSION"
    run -V < /dev/null
    expect "short version" 0 "$name $VEXEL_VERSION"
    run --help < /dev/null
    [[ $(head -n 1 out) == "Usage: $name [OPTION]... [FILE]..." ]] || fail "help" "$(head -n 1 out)"
    cp out help
    run -h < /dev/null
    cmp out help || fail "help" "-h is something else than --help"
    (
        exec -a ../other "$program" --help
    ) | head -n 1 > out
    [[ $(cat out) == "Usage: other "* ]] || fail "help" "the name is not that of the call"
    awk 'length($0) > 95 { exit 1 }' help || fail "help" "a line is too long"

    run --frobnicate < /dev/null
    expect "an unknown option" 2 "" "$name: option '--frobnicate' is not understood
$hint"
    run $'--\e[31m' < /dev/null
    expect "an option that a terminal would obey" 2 "" "$name: option '--\\x1b[31m' is not understood
$hint"
    run -eZ < /dev/null
    expect "an unknown letter" 2 "" "$name: option '-Z' is not understood
$hint"
    run --from < /dev/null
    expect "a missing argument" 2 "" "$name: option '--from' needs an argument
$hint"
    run -f < /dev/null
    expect "a missing short argument" 2 "" "$name: option '-f' needs an argument
$hint"
    run --header=x < /dev/null
    expect "a surplus argument" 2 "" "$name: option '--header=x' is not understood
$hint"
    run --from=cube < /dev/null
    expect "an unknown form" 2 "" \
        "$name: a form is auto, macro, moves, facelets or cubies, not 'cube'
$hint"

    # Writing
    for wrong in --help --version; do
        "$program" "$wrong" > /dev/full 2> err
        status=$?
        : > out
        expect "$wrong on a full device" 2 "" "$name: write error: No space left on device"
    done
    echo "$cube" | "$program" "$@" > /dev/full 2> err
    status=${PIPESTATUS[1]}
    : > out
    expect "a full device" 2 "" "$name: write error: No space left on device"
    echo "$cube" | "$program" "$@" >&- 2> err
    status=${PIPESTATUS[1]}
    expect "a closed output" 2 "" "$name: write error: Bad file descriptor"
    (
        set +o pipefail
        trap '' PIPE
        yes "$cube" 2> yeserr | "$program" "$@" 2> err | head -n 2 > out
        echo "${PIPESTATUS[1]}" > status
    )
    status=$(cat status)
    [[ $status == 141 && $(wc -l < out) == 2 && ! -s err ]] || fail "a closed pipe" "$status $(cat err)"
    run "$@" <&-
    expect "a closed input" 1 "" "$name: standard input: Bad file descriptor"

    # Files
    echo "$cube" > cube
    run "$@" cube /nonexistent / cube < /dev/null
    [[ $status == 1 && $(wc -l < out) == $((2 * $(run "$@" cube; wc -l < out))) ]] ||
        fail "files" "the rest did not go on"
    run "$@" /nonexistent / /dev/null < /dev/null
    expect "no files" 1 "" "$name: /nonexistent: No such file or directory
$name: /: Is a directory"
    run "$@" $'no\nfile' < /dev/null
    expect "a name that a terminal would obey" 1 "" "$name: no\\nfile: No such file or directory"
    run "$@" < /dev/null
    expect "no line" 0 ""

    # Lines
    printf '%s\r\n\xef\xbb\xbf%s\n%s\0\n%s' "$cube" "$cube" "$cube" "$cube" | run_lines "$@"
    printf '\xef\xbb\xbf%s' "$cube" > marked
    run "$@" marked
    [[ $status == 0 ]] || fail "a byte order mark" "$(cat out err)"
    head -c 100000000 /dev/zero | tr '\0' R > long
    echo >> long
    echo "$cube" >> long
    local before=$SECONDS
    run "$@" long
    [[ $status == 1 && $(head -n 1 out) == "invalid: longer than 4194304 bytes" ]] ||
        fail "a line of 100 MB" "$(head -c 300 out)"
    ((SECONDS - before < 10)) || fail "a line of 100 MB" "took $((SECONDS - before)) seconds"
    rm long
    head -c 100000 /dev/urandom > random
    run "$@" random
    [[ $status == 1 && ! -s err || $status == 0 ]] || fail "random bytes" "$status $(head -n 3 err)"
}

# Of four lines the second holds a mark where none is meant, the third a zero.
run_lines() {
    run "$@"
    [[ $status == 1 && $(grep -c '^invalid: ' out) == 2 ]] || fail "four lines" "$(cat out)"
    grep -q '^invalid: column 1: "\\xef\\xbb\\xbf" does not fit$' out || fail "four lines" "$(cat out)"
    grep -q '^invalid: column [0-9]*: "\\x00" does not fit$' out || fail "four lines" "$(cat out)"
}

# check_memory ARGUMENT...: a hundred thousand lines after the first thousand take no more room.
check_memory() {
    mkfifo lines
    ASAN_OPTIONS=quarantine_size_mb=1 "$program" "$@" < lines > answers 2>&1 &
    local process=$! first second i
    exec 5> lines
    for ((i = 0; i < 1000; i++)); do echo "RUruFB"; done >&5
    until_true eval '[[ $(grep -c . answers) -ge 1000 ]]' || fail "memory" "no answers"
    first=$(awk '/VmHWM/ { print $2 }' "/proc/$process/status")
    yes "RUruFB" | head -n 100000 >&5
    until_true eval '[[ $(grep -c . answers) -ge 101000 ]]' || fail "memory" "no more answers"
    second=$(awk '/VmHWM/ { print $2 }' "/proc/$process/status")
    exec 5>&-
    wait "$process"
    ((second - first < 4000)) || fail "memory" "grew from $first to $second kB"
    rm lines
}
