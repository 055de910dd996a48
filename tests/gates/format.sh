#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# format: the sources are as clang-format leaves them. Releases of it differ: another one than 14, or
# none, is status 77, skipped.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

if ! command -v clang-format > /dev/null; then
    echo "format: skipped, clang-format is not installed (script/setup test installs it)"
    exit 77
fi
version=$(clang-format --version | sed -nE 's/.*version ([0-9]+).*/\1/p')
if [[ $version != 14 ]]; then
    echo "format: skipped, this is clang-format $version, and the sources are formatted by 14"
    exit 77
fi
find src tests bench \( -name '*.h' -o -name '*.cpp' \) -print0 |
    xargs -0 -P "$(nproc)" -n 40 clang-format --dry-run -Werror || {
    echo "format: please run clang-format -i on these" >&2
    exit 1
}
