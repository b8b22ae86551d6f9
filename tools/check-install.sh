#!/bin/sh
# Installs the box from a clean clone by the lines that the README gives for it ("Without a package"), into the ~/.local
# of a new home, and has the copy test itself. What is not committed is not looked at. Builds from nothing: minutes.
set -eu
cd "$(dirname "$0")/.."
mkdir -p build
work=$(mktemp -d "$PWD/build/check-install.XXXXXX")
trap 'rm -rf "$work"' EXIT
git clone --quiet . "$work/clone"
cd "$work/clone"
lines=$(sed -n '/^Without a package/,/^```$/p' README.md | sed -n '/^```sh$/,/^```$/p' | sed '/^```/d; s/^sudo .*# or: //')
if command -v ccache >/dev/null; then
    export CCACHE_DIR="${CCACHE_DIR:-$(ccache --get-config cache_dir)}" CCACHE_BASEDIR="$work/clone" CCACHE_NOHASHDIR=1
fi
export HOME="$work/home"
mkdir -p "$HOME"
printf '%s\n' "$lines" | sh -eux
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || export QT_QPA_PLATFORM=offscreen
"$HOME/.local/bin/zelbox" --self-test
