#!/usr/bin/env bash
# saves_under_strace.sh PROGRAM: the system itself refuses, interrupts or kills at each call of a save, for each of
# the three writers. The file must be the old or the new one, whole, and a save that tells of success the new one.
set -euo pipefail

program=$1
skipped=77
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

if ! strace -qq -o /dev/null -e trace=write -e inject=write:error=EIO:when=99 true 2>/dev/null; then
    echo "Left out: strace cannot trace here."
    exit $skipped
fi

fail() {
    echo "FAILED: writer $writer, call $number of $call, $fault: $1"
    exit 1
}

# Saves once with one fault and judges what stands in the folder afterwards.
try() {
    writer=$1 call=$2 number=$3 fault=$4
    local target=$folder/save/target status=0
    rm -rf "$folder/save"
    mkdir "$folder/save"
    cp "$folder/before" "$target"
    # A shell of its own, so that no word of a killed save is printed.
    (
        strace -qq -o /dev/null -e "trace=$call" -e "inject=$call:$fault:when=$number" \
            "$program" save "$writer" "$target"
        exit $?
    ) >/dev/null 2>&1 || status=$?

    if cmp -s "$target" "$folder/after"; then
        [ $status -eq 0 ] || [ "$call" = fsync ] || [ "$fault" = signal=KILL ] || fail "new, but status $status"
    else
        cmp -s "$target" "$folder/before" || fail "neither old nor new"
        [ $status -ne 0 ] || fail "old, but success"
    fi
    [ "$fault" = signal=KILL ] || [ "$(ls -A "$folder/save")" = target ] || fail "a temporary stays behind"
    [ "$fault" != error=EINTR ] || [ $status -eq 0 ] || fail "not made again"
    points=$((points + 1))
}

points=0
for index in 0 1 2; do
    "$program" before $index >"$folder/before"
    "$program" after $index >"$folder/after"
    cp "$folder/before" "$folder/target"
    strace -qq -o "$folder/log" "$program" save $index "$folder/target"
    cmp -s "$folder/target" "$folder/after" || { echo "FAILED: writer $index does not save under strace"; exit 1; }

    # Only the calls from the first look at the target on belong to the save.
    start=$(grep -n -m 1 -F "$folder/target" <(tail -n +2 "$folder/log") | cut -d : -f 1)
    for each in readlink newfstatat faccessat2 openat fchmod write fsync close rename; do
        before=$(head -n "$start" "$folder/log" | grep -c "^$each(" || true)
        all=$(grep -c "^$each(" "$folder/log" || true)
        for ((at = before + 1; at <= all; at++)); do
            for fault in error=EIO error=ENOSPC signal=KILL; do
                try $index "$each" $at $fault
            done
            case $each in
            openat | write | fsync | fchmod) try $index "$each" $at error=EINTR ;;
            esac
        done
    done
done
[ $points -ge 60 ] || { echo "FAILED: only $points points were found"; exit 1; }
echo "writing: $points points of failure tried from outside, old or new and whole at each"
