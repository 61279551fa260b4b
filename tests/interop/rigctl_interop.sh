#!/usr/bin/env bash
# Hamlib's rigctl, a CAT client written by others, reads and sets each simulated rig that
# Hamlib knows. Skipped (77) where rigctl is not installed.
set -u
rigsim="$1"
command -v rigctl >/dev/null || { echo "rigctl not installed: skipped"; exit 77; }
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$work"' EXIT

failures=0
# rig, Hamlib model, line speed, whether the mode can be read
rows=("FT817 1020 4800 yes" "FT857 1022 4800 yes" "FT897 1023 4800 yes"
      "FT847 1001 4800 yes" "FT920 1014 4800 yes" "FT450 1027 38400 yes" "FRG100 1017 4800 no")
for row in "${rows[@]}"; do
    read -r rig model baud readsMode <<<"$row"
    tty="$work/tty$rig"
    state="$work/state$rig"
    "$rigsim" --rig "$rig" --link "$tty" --baud "$baud" --freq 14074000 --mode USB \
        --state-file "$state" >/dev/null &
    sim=$!
    for _ in $(seq 50); do [ -e "$tty" ] && break; sleep 0.1; done

    read_back=$(timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" f 2>/dev/null | head -1)
    if [ "$read_back" != "14074000" ]; then
        echo "FAIL $rig: rigctl read '$read_back', the rig has 14074000"; failures=$((failures + 1))
    fi
    if [ "$readsMode" = yes ]; then
        mode=$(timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" m 2>/dev/null | head -1)
        [ "$mode" = USB ] || { echo "FAIL $rig: mode '$mode', the rig has USB"; failures=$((failures + 1)); }
    fi
    timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" F 7074000 >/dev/null 2>&1
    sleep 0.2
    if ! grep -qx "frequency=7074000" "$state"; then
        echo "FAIL $rig: rigctl set 7074000, the rig has $(grep '^frequency=' "$state")"
        failures=$((failures + 1))
    else
        echo "ok   $rig: read 14074000, set 7074000"
    fi
    # Writes that Hamlib encodes on its own: the simulated rig must decode them alike.
    timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" M LSB 0 >/dev/null 2>&1
    sleep 0.2
    if grep -qx "mode=LSB" "$state"; then
        echo "ok   $rig: set mode LSB"
    else
        echo "FAIL $rig: rigctl set LSB, the rig has $(grep '^mode=' "$state")"
        failures=$((failures + 1))
    fi
    if [ "$rig" != FRG100 ]; then
        timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" T 1 >/dev/null 2>&1
        sleep 0.2
        keyed=$(grep '^ptt=' "$state")
        timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" T 0 >/dev/null 2>&1
        sleep 0.2
        if [ "$keyed" = "ptt=1" ] && grep -qx "ptt=0" "$state"; then
            echo "ok   $rig: keyed and unkeyed"
        else
            echo "FAIL $rig: PTT on gave '$keyed', off gave $(grep '^ptt=' "$state")"
            failures=$((failures + 1))
        fi
    fi
    case "$rig" in FT817 | FT857 | FT897)
        # Repeater: tone 88.5 Hz, minus shift, 600 kHz offset.
        for args in "C 885" "R -" "O 600000"; do
            # shellcheck disable=SC2086
            timeout 20 rigctl -m "$model" -r "$tty" -s "$baud" $args >/dev/null 2>&1
        done
        sleep 0.2
        if grep -qx "toneDeciHz=885" "$state" && grep -qx "shift=-" "$state" &&
            grep -qx "offset=600000" "$state"; then
            echo "ok   $rig: tone, shift and offset"
        else
            echo "FAIL $rig: repeater settings: $(grep -E '^(tone|shift|offset)' "$state" | tr '\n' ' ')"
            failures=$((failures + 1))
        fi
        ;;
    esac
    kill "$sim"; wait "$sim" 2>/dev/null
done
[ "$failures" -eq 0 ]
