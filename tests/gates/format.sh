#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# format: the sources are as clang-format leaves them. Status 77, skipped, without clang-format.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

if ! command -v clang-format > /dev/null; then
    echo "format: skipped, clang-format is not installed (script/setup test installs it)"
    exit 77
fi
status=0
while read -r file; do
    if ! clang-format --dry-run -Werror "$file" < /dev/null; then
        echo "format: please run clang-format -i $file" >&2
        status=1
    fi
done < <(find src tests bench -name '*.h' -o -name '*.cpp')
exit $status
