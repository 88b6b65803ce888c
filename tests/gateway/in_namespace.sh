#!/bin/sh
# Runs a test program in a network namespace of its own, as root of a user namespace of its own:
# its loopback has port 80 free and addresses of the tests' choosing, and nothing it does reaches
# the machine's network. Where user namespaces are refused, the tests are skipped (77).
if ! unshare -rn true 2>/dev/null; then
    echo "user namespaces are refused here: the gateway's tests are skipped"
    exit 77
fi
command -v ip >/dev/null || { echo "ip (iproute2) is missing: the gateway's tests are skipped"; exit 77; }
# In a process namespace too, whose end takes every server the tests started with it, whatever
# way the tests end.
exec unshare -rn --pid --fork --kill-child --mount-proc sh -c 'ip link set lo up && exec "$@"' sh "$@"
