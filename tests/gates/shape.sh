#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# shape: each source says its licence in its first line, no file is longer than 600 lines, no line
# longer than 100 characters; and nothing that a compiler made is kept in the repository.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."

find src tests bench \( -name '*.h' -o -name '*.cpp' \) -print0 | xargs -0 awk '
    function complain(what) {
        print "shape: " FILENAME ":" FNR ": " what > "/dev/stderr"
        status = 1
    }
    FNR == 1 && $0 != "// SPDX-License-Identifier: MIT" { complain("no licence in the first line") }
    FNR == 601                                          { complain("the file is too long") }
    length($0) > 100                                    { complain("the line is too long") }
    END                                                 { exit status }
'

# A tarball has no list of what is kept, and nothing in it that was not.
if [[ -e .git ]]; then
    made=$(git ls-files -z | LC_ALL=C xargs -0 grep -lsaE $'^\x7fELF|^!<arch>' || true)
    if [[ -n $made ]]; then
        echo "shape: made by a compiler and kept: $made" >&2
        exit 1
    fi
fi
