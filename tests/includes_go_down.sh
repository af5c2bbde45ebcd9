#!/usr/bin/env bash
# includes_go_down.sh SOURCE_ROOT PROGRAM...: no folder includes what stands above it and no room of ui another one;
# model, report, files, unit, edit and rtf include nothing of the windowing toolkit, and the test programs of these do
# not load it either.
set -euo pipefail

root=$1
shift
result=0

# allow FOLDER ALLOWED...: the folder's own files and the named ones are all that it includes of this project.
allow() {
    local folder=$1
    local allowed
    allowed=$(IFS='|'; echo "$*")
    local files
    files=$(find "$root/$folder" -maxdepth 1 '(' -name '*.cpp' -o -name '*.h' ')')
    [ -n "$files" ] || { echo "$folder: nothing to look at"; result=1; }
    if grep -nE '^ *# *include *"' $files | grep -vE "include *\"($allowed)/[a-z0-9_]+\.h\""; then
        echo "$folder includes what it must not know (above)"
        result=1
    fi
}

core="model report files unit edit rtf"
below="$core ui/controls"
allow model
allow report model
allow files model
allow unit files model
allow edit unit files model
allow rtf
allow ui/controls edit unit model
allow ui/picture $below
rooms="ui/equaliser ui/levels ui/formats ui/optical ui/theatre ui/help ui/simulator ui/compare"
for room in $rooms; do
    allow $room $below ui/picture
done
allow ui/main $below ui/picture $rooms

for folder in $core; do
    if grep -nE '^ *# *include *<(Q|qt)' "$root/$folder"/*; then
        echo "$folder includes the windowing toolkit (above)"
        result=1
    fi
done

for program in "$@"; do
    libraries=$(ldd "$program")
    grep -q libstdc++ <<<"$libraries" || { echo "$program: cannot tell what it loads"; result=1; }
    if grep -E 'libQt|libX11|libxcb|libwayland|libGL' <<<"$libraries"; then
        echo "$program loads a windowing library (above)"
        result=1
    fi
done
exit $result
