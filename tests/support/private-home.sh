#!/bin/sh
# Runs one test with a HOME and XDG folders of its own, so that tests neither see nor touch the user's files.
# With ZEL_TEST_DISPLAY=1 the test gets a virtual X screen with a window manager, else Qt's offscreen platform.
set -eu
home=$(mktemp -d "${TMPDIR:-/tmp}/zeltest.XXXXXX")
cleanup() { chmod -R u+rwX "$home" 2>/dev/null || true; rm -rf "$home"; }
trap cleanup EXIT
trap 'exit 130' INT TERM
mkdir -m 700 "$home/run" "$home/tmp"
export HOME="$home" TMPDIR="$home/tmp" XDG_RUNTIME_DIR="$home/run" XDG_CONFIG_HOME="$home/.config" \
    XDG_DATA_HOME="$home/.local/share" XDG_STATE_HOME="$home/.local/state" XDG_CACHE_HOME="$home/.cache"
unset WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME XDG_CURRENT_DESKTOP
export LANG="${ZEL_TEST_LANG:-C.UTF-8}" LC_ALL= LANGUAGE=
if [ "${ZEL_TEST_DISPLAY:-}" = 1 ]; then
    export QT_QPA_PLATFORM=xcb ZEL_TEST_SCREEN="${ZEL_TEST_SCREEN:-1600x1000x24}"
    "$(dirname "$0")/with-display.sh" "$@"
else
    export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
    "$@"
fi
