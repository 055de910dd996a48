#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# externs: a global is declared in the header of its owner and nowhere else.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

if grep -rnE '^[[:space:]]*extern[[:space:]]+[^"[:space:]]' src tests bench --include='*.cpp'; then
    echo "externs: these belong into headers" >&2
    exit 1
fi
