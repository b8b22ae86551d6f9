#!/bin/sh
# Runs a command on a private Xvfb screen with the openbox window manager, and ends both afterwards.
# Xvfb picks a free display number and writes it to a pipe once it serves; openbox runs its startup command
# once it manages the screen. ZEL_TEST_WM=none leaves the window manager out.
set -eu
fifo=$(mktemp -u "${TMPDIR:-/tmp}/zeldisplay.XXXXXX")
mkfifo -m 600 "$fifo"
Xvfb -displayfd 3 -screen 0 "${ZEL_TEST_SCREEN:-1600x1000x24}" -dpi 96 -nolisten tcp -noreset 3>"$fifo" >/dev/null 2>&1 &
xvfb=$!
wm=
cleanup() { [ -z "$wm" ] || kill "$wm" 2>/dev/null || true; kill "$xvfb" 2>/dev/null || true; rm -f "$fifo"; }
trap cleanup EXIT
trap 'exit 130' INT TERM
read -r number <"$fifo"
export DISPLAY=":$number"
if [ "${ZEL_TEST_WM:-openbox}" = openbox ]; then
    openbox --startup "sh -c 'echo ready >$fifo'" >/dev/null 2>&1 &
    wm=$!
    # Xvfb may still be closing its end of the pipe, which reads as an empty line.
    until read -r ready <"$fifo" && [ "$ready" = ready ]; do :; done
fi
rm -f "$fifo"
"$@"
