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

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$box" "$@"
fi

echo "There is no display: starting the box on a virtual one."
export QT_QPA_PLATFORM=xcb
exec "$here/tests/support/with-display.sh" sh -c '
    box=$1 shot=$2 picture=$3
    shift 3
    "$box" "$@" &
    pid=$!
    status=0
    "$shot" "ZEL Box" "$picture" 60 && echo "The picture of the window is in $picture." || status=1
    kill "$pid" 2>/dev/null || true
    wait "$pid" || true
    exit $status
' run "$box" "$here/build/release/tests/windowshot" "$here/zelbox.png" "$@"
