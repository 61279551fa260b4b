#!/usr/bin/env bash
# The real program on a pseudo-terminal to veldor-rigsim: started with AutoStart it takes the
# FT-847 into CAT mode; SIGTERM ends it as closing its window does, and CAT mode ends too.
set -u
veldor="$1" rigsim="$2"
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$work"' EXIT
export XDG_CONFIG_HOME="$work/config" QT_QPA_PLATFORM=offscreen
mkdir -p "$XDG_CONFIG_HOME/VELDOR"
"$rigsim" --rig FT847 --link "$work/tty" --state-file "$work/state" >/dev/null &
for _ in $(seq 50); do [ -e "$work/tty" ] && break; sleep 0.1; done
printf '[Settings]\nRigType=FT847\nCommport=%s\nAutoStart=Yes\nHomeDir=%s\n' "$work/tty" "$work" \
    >"$XDG_CONFIG_HOME/VELDOR/VELDOR_E2E.ini"

# Started where an empty TimedEvents.txt stands, so that no message waits at the start.
: >"$work/TimedEvents.txt"
(cd "$work" && exec "$veldor" /CONFIG=e2e >"$work/veldor.log" 2>&1) &
veldor_pid=$!
wait_for() {
    for _ in $(seq 100); do grep -qx "$1" "$2" 2>/dev/null && return 0; sleep 0.1; done
    return 1
}
wait_for "catOn=1" "$work/state" || { echo "FAIL: CAT mode not switched on at start"; exit 1; }
wait_for "Status=Active" "$XDG_CONFIG_HOME/VELDOR/VELDOR_E2E.ini" ||
    { echo "FAIL: Status not Active"; exit 1; }
kill -TERM "$veldor_pid"
for _ in $(seq 100); do kill -0 "$veldor_pid" 2>/dev/null || break; sleep 0.1; done
kill -0 "$veldor_pid" 2>/dev/null && { echo "FAIL: veldor still running after SIGTERM"; exit 1; }
wait_for "catOn=0" "$work/state" || { echo "FAIL: CAT mode left on after SIGTERM"; exit 1; }
wait_for "Status=InActive" "$XDG_CONFIG_HOME/VELDOR/VELDOR_E2E.ini" ||
    { echo "FAIL: Status not InActive"; exit 1; }
grep -qx "RigType=FT847" "$XDG_CONFIG_HOME/VELDOR/VELDOR_E2E.ini" ||
    { echo "FAIL: RigType not saved at the end"; exit 1; }
echo "ok: CAT on at start, CAT off and settings saved on SIGTERM"
