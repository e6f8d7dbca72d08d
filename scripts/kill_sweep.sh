#!/usr/bin/env bash
# Kills each command that replaces a player's files at its calls of the system, one after another,
# and looks whether anything is lost each time.
#   scripts/kill_sweep.sh BIN [EVERY]
# BIN: the folder of the built programs. EVERY: each so manyth call alone; 1, all of them, if left
# out. KILL_SWEEP_ROOT can name the folder to work in.
set -euo pipefail
driver=$1/kill_driver
every=${2:-1}
calls=%file,%desc
parent=${KILL_SWEEP_ROOT:-}
if [ -z "$parent" ]; then
    parent=/tmp
    [ -w /dev/shm ] && parent=/dev/shm
fi
root=$(mktemp -d "$parent/kill-sweep.XXXXXX")
trap 'rm -rf "$root" "$root-whole"' EXIT

# traced OPTION... -- ARGUMENT...: runs the driver under strace with the options.
traced() {
    local options=()
    while [ "$1" != -- ]; do options+=("$1"); shift; done
    shift
    strace -f -qq -e signal=none -e "trace=$calls" "${options[@]}" "$driver" "$@"
}

count() { wc -l <"$root-trace"; }

points=0 lost=0
for command in $("$driver" list); do
    "$driver" prepare "$root" "$command"
    traced -o "$root-trace" -- idle "$root"
    first=$(count)
    traced -o "$root-trace" -- run "$root" "$command" >/dev/null
    last=$(count)
    rm -f "$root-trace"
    "$driver" prepare "$root" "$command"
    done_here=0
    for ((call = first; call <= last; call += every)); do
        # The shell's own word about the killed process is of no interest.
        { traced -o /dev/null -e "inject=$calls:signal=KILL:when=$call" -- run "$root" "$command" \
            >/dev/null; } 2>/dev/null || true
        if ! "$driver" check "$root" "$command"; then
            echo "LOST: $command killed at call $call" >&2
            lost=$((lost + 1))
        fi
        done_here=$((done_here + 1))
    done
    printf '%-20s killed at %4d of %4d calls\n' "$command" "$done_here" "$((last - first + 1))"
    points=$((points + done_here))
done
echo "Killed at $points points, $lost lost ($SECONDS s)"
[ "$points" -gt 100 ] && [ "$lost" -eq 0 ]
