#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# layers: a file of src includes headers of its own floor or of a floor below, and no loop of
# includes is anywhere (doc/architecture.md). The toolkit, OpenGL and the store stay in their rooms.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
status=0

complain() {
    echo "layers: $*" >&2
    status=1
}

# The tools stand where the app stands, beside it: neither may include the other.
declare -A floor=([base]=1 [shell.h]=2 [solver]=3 [model]=4 [render]=5 [macros]=6 [input]=7 [app]=8 [tools]=8)

# "file included" for each include of ours, both as paths below src.
edges() {
    grep -roE '^#include "[^"]+"' src --include='*.h' --include='*.cpp' |
        sed -E 's|^src/([^:]+):#include "([^"]+)"|\1 \2|'
}

while read -r file included; do
    from=${floor[${file%%/*}]:-}
    to=${floor[${included%%/*}]:-}
    if [[ -z $from || -z $to ]]; then
        complain "src/$file includes \"$included\": one of them stands on no floor"
    elif ((to > from)) || [[ $to == 8 && ${file%%/*} != "${included%%/*}" ]]; then
        complain "src/$file, floor $from, includes \"$included\", floor $to"
    fi
done < <(edges)

# The tools know neither the toolkit nor OpenGL: of the rooms that do they take the parts that are free
# of them, which macrolines is by its own target and the others by the twin of glwrap in tools/nogl.
tools_may='(base|solver|model|tools)/|shell\.h|render/(eps|colors|glwrap)\.h|macros/macrolines\.h'
while read -r file included; do
    if [[ $file == tools/* && ! $included =~ ^($tools_may) ]]; then
        complain "src/$file includes \"$included\", which is not for the tools"
    fi
done < <(edges)

if ! loops=$(edges | grep -E '^[^ ]+\.h ' | tsort 2>&1 > /dev/null); then
    complain "a loop of includes: $loops"
fi

# only what pattern rooms...: the pattern may stand only in files whose path matches one of rooms.
only() {
    local what=$1 pattern=$2 rooms=$3 found
    found=$(grep -rlE "$pattern" src --include='*.h' --include='*.cpp' | grep -vE "^src/($rooms)" || true)
    if [[ -n $found ]]; then
        complain "$what in" $found
    fi
}

only "a toolkit header"  '^#include [<"]FL/'              'render/(cube_box|glscreen)\.|macros/|input/|app/'
only "an OpenGL header"  '^#include [<"](GL/|FL/gl)'      'render/(glwrap|glscreen|cube_box)\.'
only "the toolkit store" 'Fl_Preferences'                 'macros/prefstore\.'

exit $status
