#!/bin/sh
# Installs what building, testing and running the box needs on Debian 12, by the list in debian/control.
# Does nothing, and needs no rights, when everything is there.
set -eu
cd "$(dirname "$0")/.."

# Packages that the installed box needs at run time: "Depends" without the substitution variables.
runtime_packages() {
    awk '/^Depends:/ { sub(/^Depends:/, ""); print }' debian/control \
        | tr ',' '\n' | sed 's/([^)]*)//; s/[[:space:]]//g' | grep -v '^\$' || true
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing_runtime() {
    for package in $(runtime_packages); do
        is_installed "$package" || printf '%s ' "$package"
    done
}

if command -v dpkg-checkbuilddeps >/dev/null && dpkg-checkbuilddeps 2>/dev/null && [ -z "$(missing_runtime)" ]; then
    exit 0
fi

as_root=
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Packages are missing and there is no sudo; run this as root once." >&2; exit 1; }
    as_root=sudo
fi
echo "Installing the packages that debian/control names …"
# Through env, because sudo hands no variables on.
as_root="$as_root env DEBIAN_FRONTEND=noninteractive"
$as_root apt-get -q update
$as_root apt-get -qy -o Dpkg::Use-Pty=0 --no-install-recommends build-dep ./
runtime=$(missing_runtime)
# shellcheck disable=SC2086 # a list of names
[ -z "$runtime" ] || $as_root apt-get -qy -o Dpkg::Use-Pty=0 --no-install-recommends install $runtime
