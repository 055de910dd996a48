#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# install CMAKE BUILD: installs a build into an empty folder and looks at what is there. The desktop's
# own checkers judge its data where they are installed (script/setup test installs them).
set -euo pipefail

prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$1" --install "$2" --prefix "$prefix" > /dev/null

expected="bin/vexel-solve
games/vexel
share/applications/vexel.desktop
share/icons/hicolor/scalable/apps/vexel.svg
share/man/man1/vexel-solve.1
share/man/man6/vexel.6
share/metainfo/net.vexel.vexel.metainfo.xml"
diff <(cd "$prefix" && find . -type f | cut -c3- | LC_ALL=C sort) <(echo "$expected")

if command -v desktop-file-validate > /dev/null; then
    desktop-file-validate "$prefix/share/applications/vexel.desktop"
fi
if command -v appstreamcli > /dev/null; then
    appstreamcli validate --no-net "$prefix/share/metainfo/net.vexel.vexel.metainfo.xml"
fi
if command -v groff > /dev/null; then
    for page in "$prefix"/share/man/man?/*; do
        complaints=$(groff -man -ww -z "$page" 2>&1)
        [[ -z $complaints ]] || { echo "$complaints"; exit 1; }
    done
fi
[[ $("$prefix/bin/vexel-solve" --version) == "vexel-solve "* ]]
[[ $(echo RU | "$prefix/bin/vexel-solve") == ur ]]
