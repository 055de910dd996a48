#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# notbugs: NOT-BUGS.md, the marks in the code and the tests agree, one for one.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
status=0

complain() {
    echo "notbugs: $*" >&2
    status=1
}

# The marks may be broken over two comment lines.
marks=$(cat $(find src -name '*.h' -o -name '*.cpp') | sed -E 's|^ *// ?||' | tr '\n' ' ' |
    grep -oE 'NOT-BUGS\.md, "[^ ]([^"]|"[^ ]*")*"' | sed -E 's/^[^"]*"(.*)"$/\1/' | sort -u)
titles=$(sed -n 's/^### //p' NOT-BUGS.md | sort)

while read -r title; do
    grep -qxF -- "$title" <<< "$titles" || complain "the code is marked with no entry: $title"
done <<< "$marks"
while read -r title; do
    grep -qxF -- "$title" <<< "$marks" || complain "an entry that marks nothing: $title"
done <<< "$titles"

# Every entry names tests as Suite.Name, and each stands in tests/.
while read -r suite name; do
    grep -rqE "TEST(_F)?\($suite, $name\)" tests || complain "no such test: $suite.$name"
done < <(grep -oE '`[A-Z][A-Za-z]*\.[A-Z][A-Za-z0-9]*`' NOT-BUGS.md | tr -d '`' | tr '.' ' ')

exit $status
