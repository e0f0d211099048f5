#!/usr/bin/env bash
# Installs those packages of tools/packages.txt that this machine lacks.
#
# Usage: tools/install_packages.sh [--yes] [build|check|web]
#   build   only the packages that building and running need; without it those of the tests too
#   check   those of the further checks of .ci/run besides, which do without what is not there
#   web     those of the browser page, its building and its tests, and what building needs
#   --yes   uses sudo, where it needs it, without asking
# Whoever is not root is asked before sudo is used; where nobody can answer, it tells what is missing and ends.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
group=test
sure=no
for word; do
    case $word in
        build | check | web) group=$word ;;
        --yes) sure=yes ;;
        *) echo "usage: tools/install_packages.sh [--yes] [build|check|web]" >&2; exit 2 ;;
    esac
done

# Names of the group, a line each: comments and blanks off. A group has those before it in the list too.
names() {
    case $group in
        build) sed '/^# \[test\]/,$d' "$here/packages.txt" ;;
        test) sed '/^# \[check\]/,$d' "$here/packages.txt" ;;
        check) sed '/^# \[web\]/,$d' "$here/packages.txt" ;;
        web) sed '/^# \[test\]/,/^# \[web\]/d' "$here/packages.txt" ;;
    esac | sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d'
}
mapfile -t wanted < <(names)

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "install_packages: no Debian packages on this system, so please see to these yourself: ${wanted[*]}" >&2
    exit 0
fi

# dpkg-query answers for all names in one call; one that it does not know is missing like any other.
installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null | sed -n 's/^installed //p') ||
    true
missing=()
for name in "${wanted[@]}"; do
    # npm may have come with a node from elsewhere, and Debian's does not go with that.
    [ "$name" != npm ] || ! command -v npm > /dev/null || continue
    grep -qxF -- "$name" <<<"$installed" || missing+=("$name")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "install_packages: you are not root and there is no sudo; have these installed: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
    echo "These packages are missing: ${missing[*]}" >&2
    if [ $sure = no ] && [ ! -t 0 ]; then
        echo "install_packages: nothing was installed; --yes installs them with sudo apt-get" >&2
        exit 1
    fi
    if [ $sure = no ]; then
        read -r -p "Install them with sudo apt-get? [y/N] " answer || answer=
        case $answer in
            y | Y | yes | Yes | YES) ;;
            *) echo "install_packages: nothing was installed" >&2; exit 1 ;;
        esac
    fi
fi

echo "Installing: ${missing[*]}" >&2
apt() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq "$@" >&2; }
apt update || echo "install_packages: the package lists could not be brought up to date, trying with the old ones" >&2
if ! apt install -y --no-install-recommends "${missing[@]}"; then
    echo "install_packages: not all of these could be installed: ${missing[*]}" >&2
    exit 1
fi
