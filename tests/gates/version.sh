#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# version: whatever repeats the version agrees with CMakeLists.txt (script/release writes all of them).
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
version=$(sed -n 's/^project(vexel VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
status=0

# expect PLACE TEXT: the place names TEXT.
expect() {
    if [[ $2 != "$version" ]]; then
        echo "version: $1 says \"$2\", CMakeLists.txt \"$version\"" >&2
        status=1
    fi
}

expect NEWS.md "$(sed -n 's/^## //p' NEWS.md | head -n 1)"
expect debian/changelog "$(sed -n '1s/^vexel (\([^)]*\)).*/\1/p' debian/changelog)"
expect "the metainfo" "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' data/*.metainfo.xml | head -n 1)"
for page in data/*.[1-9]; do
    expect "$page" "$(sed -n '1s/.*"Vexel \([^"]*\)".*/\1/p' "$page")"
done
exit $status
