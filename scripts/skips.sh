# SPDX-License-Identifier: MIT
# shellcheck shell=bash disable=SC2154 # $scratch is the caller's
# To be sourced: collects in $scratch/skipped what checks say they skipped, and judges it.

# note_skips WHERE COMMAND… runs a command and collects the lines in which it says what it skipped.
note_skips() {
    local where=$1
    shift
    "$@" | tee "$scratch/output"
    sed -n "s/^-- SKIPPED: /$where: /p" "$scratch/output" >>"$scratch/skipped"
}

# Whether this machine has what the skipped check says it lacks. What is not known here could run.
could_run() {
    case $1 in
        *"only root"*) [ "$(id -u)" = 0 ] ;;
        *"no namespaces"*) unshare --mount --net --pid --fork true 2>/dev/null ;;
        *"no copy of this system"*) return 1 ;; # the kernel refused; there is no other way to know
        *"no mirror"* | *"PackageKit cannot be installed"*) as_root apt-get -qq --error-on=any update ;;
        *"not built on this release"*) return 1 ;; # the library is missing from it
        *"pictures are those of Debian 12"*) return 1 ;; # other releases draw letters differently
        *"address sanitizer"*) return 1 ;; # never with it, always without it
        *"file system in user space"* | *bindfs*) [ -w /dev/fuse ] ;;
        # The kernel refuses them in a changed root (user_namespaces(7)).
        "Debian 13"*"user namespaces"*) return 1 ;;
        *"user namespaces"*) unshare --map-current-user true 2>/dev/null ;;
        *"set the clock"*) setpriv --dump | grep -q '^Effective capabilities:.*sys_time' ;;
        *strace*) strace -o /dev/null true 2>/dev/null ;;
    esac
}

# Names everything that was skipped. Fails if any of it could have run.
report_skipped() {
    local line status=0
    [ -s "$scratch/skipped" ] || { echo "Skipped: nothing"; return; }
    echo "Skipped:"
    while read -r line; do
        if could_run "$line"; then
            echo "  $line -- COULD HAVE RUN"
            status=1
        else
            echo "  $line"
        fi
    done <"$scratch/skipped"
    return $status
}
