#!/bin/sh
# Installs what is missing, builds the box and starts it with your own data. Arguments go to the box.
# Without a display the box starts on a virtual one, and a picture of its window is saved as zelbox.png.
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
"$here/tools/install-deps.sh"
cd "$here"
cmake --preset release
cmake --build --preset release --target box windowshot
box="$here/build/release/bin/zelbox"

# The launcher's own options (--help, --version …) need no display, the self-test brings none.
case "${1:-}" in --help | --version) exec "$box" "$@" ;; esac
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$box" "$@"
fi

echo "There is no display: starting the box on a virtual one."
export QT_QPA_PLATFORM=xcb
exec "$here/tests/support/with-display.sh" bash -c '
    box=$1 shot=$2 picture=$3
    shift 3
    "$box" "$@" & boxpid=$!
    "$shot" "ZEL Box" "$picture" 60 & shotpid=$!
    # Whatever ends first: the picture is taken, or the box had nothing to show (/action=exit, another box runs).
    wait -n -p first "$boxpid" "$shotpid"; status=$?
    if [ "$first" = "$boxpid" ]; then
        kill "$shotpid" 2>/dev/null
        echo "The box ended without showing its window; there is no picture."
        exit "$status"
    fi
    [ "$status" -ne 0 ] || echo "The picture of the window is in $picture."
    kill "$boxpid" 2>/dev/null
    wait "$boxpid"
    exit "$status"
' run "$box" "$here/build/release/tests/windowshot" "$here/zelbox.png" "$@"
