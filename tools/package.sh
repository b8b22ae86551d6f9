#!/bin/sh
# Builds the Debian package into build/package and has lintian look at it. Works on a copy of the source files, so that
# the tree stays as it is. Takes some minutes; the tests are not part of it.
set -eu
cd "$(dirname "$0")/.."
tools/install-deps.sh
command -v lintian >/dev/null || { echo "lintian is missing: apt install lintian" >&2; exit 1; }

version=$(dpkg-parsechangelog -S Version)
out=$PWD/build/package
copy=$out/zelbox-$version
rm -rf "$out"
mkdir -p "$copy"
tar --create --exclude-vcs --exclude=./build --exclude=./zelbox.png . | tar --extract --directory="$copy"

# debhelper gives the build a home folder of its own, where ccache would begin from nothing.
CCACHE_DIR=${CCACHE_DIR:-$(ccache --get-config cache_dir)}
export CCACHE_DIR CCACHE_BASEDIR="$copy" CCACHE_NOHASHDIR=1
(cd "$copy" && nice dpkg-buildpackage --unsigned-source --unsigned-changes --build=binary)
rm -rf "$copy"
lintian --fail-on error,warning "$out"/*.changes
ls -l "$out"/*.deb
