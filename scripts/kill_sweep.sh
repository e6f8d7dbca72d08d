#!/usr/bin/env bash
# Kills each command that replaces a player's files at its calls of the system, one after another,
# and looks whether anything is lost each time: the commands alone, and in the windows of the program.
#   scripts/kill_sweep.sh BIN [EVERY [COMMAND ...]]
# BIN: the folder of the built programs. EVERY: each so manyth call alone; 1, all of them, if left
# out. COMMAND: these alone. KILL_SWEEP_ROOT can name the folder to work in.
set -euo pipefail
bin=$(cd "$1" && pwd)
every=${2:-1}
wanted=" ${*:3} "
parent=${KILL_SWEEP_ROOT:-}
if [ -z "$parent" ]; then
    parent=/tmp
    [ -w /dev/shm ] && parent=/dev/shm
fi
root=$(mktemp -d "$parent/kill-sweep.XXXXXX")
trap 'rm -rf "$root" "$root"-*' EXIT
cd /

is_stopped() {
    local line
    # It may be gone.
    read -r line 2>/dev/null <"/proc/$1/stat" || return 0
    line=${line##*) }
    [ "${line:0:1}" = T ]
}

# Starts a command, which stops before it begins, and lets it go on under strace with the options
# given. Leaves the trace in $root-trace, and in $root-calls its own calls that touch the game's or the
# program's folder: a line each, the name, how manyth of that name on its first path it is, and that
# path. Gives the command's status.
watch() {
    local driver=$1 command=$2 status=0 pid tracer
    shift 2
    "$driver" held "$root" "$command" >/dev/null &
    pid=$!
    until is_stopped "$pid"; do sleep 0.005; done
    strace -qq -f -y -s 0 -e signal=none -o "$root-trace" "$@" -p "$pid" 2>/dev/null &
    tracer=$!
    until grep -q '^TracerPid:[[:space:]]*[1-9]' "/proc/$pid/status"; do sleep 0.005; done
    kill -CONT "$pid"
    # The shell's own word about the killed process is of no interest.
    { wait "$pid" || status=$?; wait "$tracer" || true; } 2>/dev/null
    # Each thread counts its own calls: those of the others are none of the command's. Who asks for a
    # path with a slash behind it asks for the one without it too: strace takes both where it is there.
    # Of a renaming it looks at the old name alone.
    awk -v pid="$pid" -v below="^$root/(game|program)" '
        $1 == pid && $2 ~ /^[a-z0-9_]+\(/ {
            name = $2
            sub(/\(.*/, "", name)
            first = ""
            split("", paths)
            split("", bare)
            sub(/\) += .*/, "")  # what it gave back, as descriptors too
            for (rest = $0; match(rest, /["<]\/[^">]*/); rest = substr(rest, RSTART + RLENGTH)) {
                path = substr(rest, RSTART + 1, RLENGTH - 1)
                if (first == "" && path ~ below) { first = path }
                paths[path]
                sub(/\/$/, "", path)
                bare[path]
                if (name == "rename") { break }
            }
            for (path in paths) { ++seen[name, path] }
            for (path in bare) { ++either[name, path] }
            if (first != "") {
                path = first
                number = sub(/\/$/, "", path) ? either[name, path] : seen[name, path]
                print name, number, first
            }
        }' "$root-trace" >"$root-calls"
    return "$status"
}

points=0 lost=0 missed=0
for driver in "$bin/kill_driver" "$bin/kill_windows"; do
    for command in $("$driver" list); do
        if [ "$wanted" != "  " ] && [[ "$wanted" != *" $command "* ]]; then continue; fi
        "$driver" prepare "$root" "$command"
        watch "$driver" "$command" -e trace=%file,%desc
        mapfile -t calls <"$root-calls"
        "$driver" check "$root" "$command"
        killed=0
        for ((i = 0; i < ${#calls[@]}; i += every)); do
            read -r name number place <<<"${calls[i]}"
            status=0
            watch "$driver" "$command" -e "trace=$name" -P "$place" -P "${place%/}" \
                -e "inject=$name:signal=KILL:when=$number" || status=$?
            if [ "$status" -eq 137 ] && [ "$(tail -n 1 "$root-calls")" = "${calls[i]}" ]; then
                killed=$((killed + 1))
            else
                # What it does isn't the same in each run, and that call was another one.
                missed=$((missed + 1))
                echo "missed: $command, ${calls[i]}; the last was $(tail -n 1 "$root-calls")" >&2
            fi
            if ! "$driver" check "$root" "$command"; then
                echo "LOST: $command killed at call $((i + 1)), ${calls[i]}" >&2
                lost=$((lost + 1))
            fi
        done
        printf '%-20s killed at %4d of %4d calls\n' "$command" "$killed" "${#calls[@]}"
        points=$((points + killed))
    done
done
echo "Killed at $points points, $missed missed, $lost lost ($SECONDS s)"
[ "$points" -gt 0 ] && [ "$lost" -eq 0 ] && [ "$missed" -le $((points / 20)) ]
