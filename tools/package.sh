#!/usr/bin/env bash
# Makes the packages and the archive of the sources, and checks them.
#
# Usage: tools/package.sh [--yes] [--test] [BUILD]
#   --yes   missing packages for the building are installed with sudo without a question
#   --test  tries them in a bare system besides; see tools/package_test.sh
#   BUILD   an existing build to pack instead of build/release
# Packages land in BUILD/packages. A checker that is not installed is named; the rest is checked all the same.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
sure=()
try=no
build=
for word; do
    case $word in
        --yes) sure=(--yes) ;;
        --test) try=yes ;;
        -*) echo "usage: tools/package.sh [--yes] [--test] [BUILD]" >&2; exit 2 ;;
        *) build=$word ;;
    esac
done

if [ -z "$build" ]; then
    build=build/release
    tools/install_packages.sh "${sure[@]}" build
    cmake --preset release -DKVT_CCACHE=ON --log-level=WARNING
fi
cmake --build "$build"
packages=$build/packages
rm -rf "$packages"
(
    cd "$build"
    cpack -G DEB
    cpack --config CPackSourceConfig.cmake -G TXZ
) > "$build/cpack.log" 2>&1 || { cat "$build/cpack.log" >&2; exit 1; }

# Runs a checker, or tells that it is not here.
check() {
    command -v "$1" > /dev/null || { echo "$1 is not installed: not checked."; return 0; }
    echo "-- $*"
    "$@"
}

for package in "$packages"/*.deb; do
    printf '\n== %s: %s, %s KiB installed\n' "$(basename "$package")" "$(stat -c %s "$package" | numfmt --to=iec)" \
        "$(dpkg-deb -f "$package" Installed-Size)"
    dpkg-deb -f "$package" Depends
    dpkg-deb -c "$package" | awk '!/\/$/ { print $1, $3, $6, $7, $8 }'
    # Packages that are not made for the archive of a distribution name no bug that asks for them.
    check lintian --fail-on error --suppress-tags initial-upload-closes-no-bugs "$package"
done
printf '\n== %s\n' "$(basename "$packages"/*.tar.xz): $(stat -c %s "$packages"/*.tar.xz | numfmt --to=iec)"

if [ -e "$build/packaging/kvt.desktop" ]; then
    check desktop-file-validate "$build/packaging/kvt.desktop"
    check appstreamcli validate --no-net --explain "$build"/packaging/*.metainfo.xml
fi
for page in "$build"/manual/man1/*; do
    LC_ALL=C.UTF-8 MANROFFSEQ='' check man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 > /dev/null | sed 's/^/man: /' |
        { ! grep .; }
done
for completion in "$build"/manual/completions/*; do bash -n "$completion"; done
if [ $try = yes ]; then tools/package_test.sh "$packages"; fi
