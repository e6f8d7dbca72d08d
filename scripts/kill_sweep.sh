#!/usr/bin/env bash
# Kills each command that replaces a player's files at its calls of the system, one after another,
# and looks whether anything is lost each time.
#   scripts/kill_sweep.sh BIN [EVERY]
# BIN: the folder of the built programs. EVERY: each so manyth call alone; 1, all of them, if left
# out. KILL_SWEEP_ROOT can name the folder to work in.
set -euo pipefail
driver=$1/kill_driver
every=${2:-1}
parent=${KILL_SWEEP_ROOT:-}
if [ -z "$parent" ]; then
    parent=/tmp
    [ -w /dev/shm ] && parent=/dev/shm
fi
root=$(mktemp -d "$parent/kill-sweep.XXXXXX")
trap 'rm -rf "$root" "$root"-*' EXIT

# Puts the calls of a run of the driver into a file: a line each, its name and how manyth of that name
# it is.
calls_of() {
    strace -qq -e signal=none -e trace=%file,%desc -o "$root-trace" "$driver" "${@:2}" >/dev/null
    awk -F'(' '{ print $1, ++seen[$1] }' "$root-trace" >"$1"
    rm "$root-trace"
}

points=0 lost=0
for command in $("$driver" list); do
    "$driver" prepare "$root" "$command"
    calls_of "$root-calls" idle "$root"
    # What comes before the command is the same in both runs.
    first=$(wc -l <"$root-calls")
    calls_of "$root-calls" run "$root" "$command"
    mapfile -t calls < <(tail -n "+$((first + 1))" "$root-calls")
    "$driver" prepare "$root" "$command"
    killed=0
    for ((i = 0; i < ${#calls[@]}; i += every)); do
        read -r name number <<<"${calls[i]}"
        status=0
        # The shell's own word about the killed process is of no interest.
        { strace -qq -o /dev/null -e "trace=$name" -e "inject=$name:signal=KILL:when=$number" \
            "$driver" run "$root" "$command" >/dev/null; } 2>/dev/null || status=$?
        if [ "$status" -eq 137 ]; then killed=$((killed + 1)); fi
        if ! "$driver" check "$root" "$command"; then
            echo "LOST: $command killed at call $((i + 1)), $name" >&2
            lost=$((lost + 1))
        fi
    done
    printf '%-20s killed at %4d of %4d calls\n' "$command" "$killed" "${#calls[@]}"
    points=$((points + killed))
done
echo "Killed at $points points, $lost lost ($SECONDS s)"
[ "$points" -gt 100 ] && [ "$lost" -eq 0 ]
