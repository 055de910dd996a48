#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# documents BUILD: what the documents say of the tree is true. Every path and script that they name is
# there, every command line of the tools that they show runs, and the table of owners in
# doc/architecture.md has a row for every global that can change.
set -euo pipefail

build=$(realpath -- "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
status=0
mapfile -t documents < <(find . -name '*.md' -not -path './build/*' -printf '%P\n' | LC_ALL=C sort)
pages=(data/*.[1-9])

complain() {
    echo "documents: $*" >&2
    status=1
}

# The pieces in backticks, "file text" a line.
quoted() {
    grep -oHE '`[^` ][^`]*`' "${documents[@]}" | sed -E 's/^([^:]+):`(.*)`$/\1 \2/'
}

# Indented lines and lines within .nf and .fi: "file text" a line, comments taken off.
shown() {
    grep -HE '^    [^ ]' "${documents[@]}" | sed -E 's/^([^:]+): +/\1 /'
    awk '/^\.fi/ { on = 0 } on { print FILENAME, $0 } /^\.nf/ { on = 1 }' "${pages[@]}" |
        sed 's/\\-/-/g; s/\\(dq/"/g; s/\\&//g; s/\\e/\\/g'
}

# Paths. A room of src may be named without src, a module without its ending.
while read -r file path; do
    case $path in
        *[\<*\$~]*) continue ;;
        build/* | -* | ./*) continue ;;
        src/* | tests/* | doc/* | data/* | bench/* | script/* | examples/* | debian/*)
            [[ -e ${path%% *} ]] || complain "$file names $path, which is not there"
            ;;
        *.md)
            [[ -e $path || -e doc/$path || -e $(dirname "$file")/$path ]] ||
                complain "$file names $path, which is not there"
            ;;
        */*)
            if [[ -d src/${path%%/*} && $path != *' '* ]]; then
                compgen -G "src/$path*" > /dev/null ||
                    complain "$file names $path, which is not there"
            fi
            ;;
    esac
done < <(quoted)

shown > "$scratch/shown"

# Scripts: there, and with a word of theirs that their own heading tells of.
while read -r file command word _; do
    [[ $command == script/* ]] || continue
    [[ -x $command ]] || complain "$file shows $command, which is not there"
    if [[ $word =~ ^[a-z]+$ && -f $command ]] && grep -qE "^$file $command $word( |$)  +" "$scratch/shown"; then
        grep -E '^#' "$command" | grep -w -- "$word" > /dev/null ||
            complain "$file shows $command $word, which the script does not know"
    fi
done < "$scratch/shown"

# Presets.
while read -r file preset; do
    grep -q "\"name\": \"$preset\"" CMakePresets.json ||
        complain "$file shows the preset $preset, which is not there"
done < <(sed -nE 's/^([^ ]+) .*cmake (--build )?--preset ([a-z]+).*/\1 \3/p' "$scratch/shown")

# Command lines of the tools run. A synopsis, with its brackets, is none.
cp examples/* "$scratch"
echo "RU*F" > "$scratch/cubes.txt"
while read -r file line; do
    [[ $line =~ (^|\| )vexel-(solve|macro) && ! $line =~ \[-|\[[A-Z] ]] || continue
    line=${line%%  \#*}
    if ! (cd "$scratch" && PATH=$build:$PATH timeout 60 bash -c "set -o pipefail; $line") \
        > "$scratch/out" 2>&1 < /dev/null
    then
        complain "$file shows \"$line\", which fails: $(head -n 3 "$scratch/out")"
    fi
done < "$scratch/shown"

# Owners. The tables of the solver are one row together.
while read -r name; do
    grep -q "^|.*\`$name\`" doc/architecture.md ||
        complain "doc/architecture.md has no row for the global $name"
done < <(grep -rhE '^extern ' src --include='*.h' --exclude-dir=solver | grep -v '^extern const ' |
    sed -E 's/^extern (const char\* const )?//; s/[[;].*//; s/.*[ *&]//' | sort -u)

exit $status
