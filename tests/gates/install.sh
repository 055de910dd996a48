#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# install CMAKE BUILD: installs a build into an empty folder and looks at what is there. The desktop's
# own checkers judge its data where they are installed (script/setup test installs them).
set -euo pipefail

prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$1" --install "$2" --prefix "$prefix" > /dev/null

sizes="16 22 24 32 48 64 128 256"
expected=$(LC_ALL=C sort << 'END'
bin/vexel-macro
bin/vexel-solve
games/vexel
share/applications/vexel.desktop
share/icons/hicolor/scalable/apps/vexel.svg
share/bash-completion/completions/vexel-macro
share/bash-completion/completions/vexel-solve
share/man/man1/vexel-macro.1
share/man/man1/vexel-solve.1
share/man/man5/vexel-macros.5
share/man/man6/vexel.6
share/metainfo/org.vexel.vexel.metainfo.xml
share/mime/packages/org.vexel.vexel.xml
share/doc/vexel/LICENSE
share/doc/vexel/NEWS.md
share/doc/vexel/examples/corners.macros
share/doc/vexel/examples/edges.macros
share/doc/vexel/examples/patterns.macros
share/doc/vexel/first-steps.md
share/doc/vexel/formats.md
share/doc/vexel/manual.md
share/doc/vexel/scripts.md
share/doc/vexel/pictures/collector.png
share/doc/vexel/pictures/permutation.png
share/doc/vexel/pictures/window.png
END
)
if command -v rsvg-convert > /dev/null; then
    for size in $sizes; do
        expected+=$'\n'"share/icons/hicolor/${size}x$size/apps/vexel.png"
    done
fi
diff <(cd "$prefix" && find . -type f | cut -c3- | LC_ALL=C sort) <(LC_ALL=C sort <<< "$expected")

# A build that carried the path of its folder could not be built alike elsewhere.
# A path begins where no name goes on: "/vexel" is no part of "https://vexel.org".
begun='(^|[^[:alnum:]_./-])' ended='($|[^[:alnum:]_.-])'
sources=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd | sed 's/[^[:alnum:]/_-]/\\&/g')
build=$(realpath "$2" | sed 's/[^[:alnum:]/_-]/\\&/g')
if LC_ALL=C grep -arlE -e "$begun$sources$ended" -e "$begun$build$ended" "$prefix"; then
    echo "install: the files above name the folder of the sources or of the build" >&2
    exit 1
fi

if command -v desktop-file-validate > /dev/null; then
    desktop-file-validate "$prefix/share/applications/vexel.desktop"
fi
if command -v appstreamcli > /dev/null; then
    appstreamcli validate --no-net "$prefix/share/metainfo/org.vexel.vexel.metainfo.xml"
fi
if command -v update-mime-database > /dev/null; then
    XDG_DATA_DIRS=$prefix/share update-mime-database "$prefix/share/mime"
    grep -qx '50:text/x-vexel-macros:\*.macros' "$prefix/share/mime/globs2"
fi
if command -v mandoc > /dev/null; then
    mandoc -T lint -W warning "$prefix"/share/man/man?/*
fi
if command -v groff > /dev/null; then
    for page in "$prefix"/share/man/man?/*; do
        complaints=$(groff -man -ww -z "$page" 2>&1)
        [[ -z $complaints ]] || { echo "$complaints"; exit 1; }
    done
fi
[[ $(echo "R U" | "$prefix/bin/vexel-macro" --order) == 105 ]]
[[ $("$prefix/bin/vexel-solve" --version) == "vexel-solve "* ]]
[[ $(echo RU | "$prefix/bin/vexel-solve") == ur ]]
