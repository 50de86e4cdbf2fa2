# SPDX-License-Identifier: MIT
# To be sourced after roots.sh: boots a root and runs commands in it.
# shellcheck shell=bash disable=SC2154 # $scratch is the caller's

# Waits until the condition holds. Some desktops need minutes on a slow machine.
wait_until() {
    local deadline=$((SECONDS + $1)) what=$2
    shift 2
    until "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || { echo "$what did not come" >&2; return 1; }
        read -r -t 0.1 _ <> <(:) || true
    done
}

has_booted() {
    [ -d "/proc/$watcher" ] || { echo "the machine went off" >&2; exit 1; }
    init=$(tr -d ' ' <"/proc/$watcher/task/$watcher/children")
    [ -n "$init" ] && [ -S "/proc/$init/root/run/dbus/system_bus_socket" ] \
        && in_machine systemctl is-active --quiet multi-user.target
}

# The machine ends with its watcher, and the watcher ends with this script.
boot_machine() {
    local root=$1
    setpriv --pdeathsig KILL unshare --mount --net --pid --uts --ipc --cgroup --fork --kill-child \
        --propagation private tests/sessions/boot "$root" >"$scratch/boot.log" 2>&1 &
    watcher=$!
    wait_until 120 "the machine to boot" has_booted
}

in_machine() {
    nsenter -t "$init" -m -n -p -u -i -C -r -w \
        env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 TERM="${TERM:-dumb}" "$@"
}

as_user() {
    in_machine runuser -u ann -- /srv/sessions/enter "$@"
}

stop_machine() {
    [ -n "${watcher:-}" ] || return 0
    kill -KILL "$watcher" 2>/dev/null || true
    wait "$watcher" 2>/dev/null || true
}
