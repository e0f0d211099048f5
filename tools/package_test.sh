#!/usr/bin/env bash
# Installs the packages of a folder into a bare Debian, checks a program there, opens one by its file type, removes the
# packages and looks for what they have left.
#
# Usage: tools/package_test.sh PACKAGES [PICTURE]
#   PICTURE   a PNG of the screen with the window that the bare system has opened
# Needs root, mmdebstrap, Xvfb and xdotool; where one of them is missing, or no mirror of Debian can be reached, it says
# so and ends with status 0.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages=${1:?usage: tools/package_test.sh PACKAGES [PICTURE]}
picture=${2:-}
skip() { echo "package_test: $1, so the packages were not tried in a bare system."; exit 0; }
for tool in mmdebstrap Xvfb xdotool; do
    command -v $tool > /dev/null || skip "$tool is not installed"
done
[ "$(id -u)" -eq 0 ] || skip "this takes root"
# The system of this machine: its packages are what these were built on.
# shellcheck source=/dev/null
release=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
mirror=${KVT_MIRROR:-http://deb.debian.org/debian}

scratch=$(mktemp -d)
screen=
end() {
    [ -z "$screen" ] || kill "$screen" 2> /dev/null || true
    rm -rf "$scratch"
}
trap end EXIT
Xvfb -displayfd 3 -screen 0 1366x768x24 -ac 3> "$scratch/display" > /dev/null 2>&1 &
screen=$!
for _ in $(seq 100); do [ -s "$scratch/display" ] && break; sleep 0.1; done
display=:$(cat "$scratch/display")

# What is done with the bare system, the folder of which is the argument. It runs outside, so that the system needs
# nothing of the test.
cat > "$scratch/hook" <<'END'
#!/usr/bin/env bash
set -euo pipefail
# What the hooks of mmdebstrap print goes nowhere.
exec >> "$SCRATCH/told" 2>&1
system=$1
inside() { chroot "$system" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
user() { inside setpriv --reuid=1000 --regid=1000 --clear-groups env HOME=/home/pupil DISPLAY="$DISPLAY" QT_QPA_PLATFORM=xcb "$@"; }
apt() { inside apt-get -qq -y -o APT::Install-Recommends=false "$@" > "$SCRATCH/apt.log" 2>&1 || { cat "$SCRATCH/apt.log"; exit 1; }; }
# All names but what every installation changes.
files() {
    (cd "$system" && find . -xdev \( -path ./proc -o -path ./sys -o -path ./dev -o -path ./tmp -o -path ./run -o -path ./home \
        -o -path ./var/lib/dpkg -o -path ./var/lib/apt -o -path ./var/cache -o -path ./var/log \) -prune -o -print | sort)
}
since=$SECONDS
told() { echo "   ($((SECONDS - since)) s)"; since=$SECONDS; }

mkdir "$system/packages"
cp "$PACKAGES"/*.deb "$system/packages"
inside useradd -m -u 1000 pupil
echo "== What the packages depend on is installed first"
inside sh -c 'apt-get -s -o APT::Install-Recommends=false install /packages/*.deb' | sed -n 's/^Inst \([^ ]*\).*/\1/p' |
    grep -vxE 'kvtc?' > "$SCRATCH/needed"
mapfile -t needed < "$SCRATCH/needed"
apt install "${needed[@]}"
files > "$SCRATCH/before"
told

echo "== kvtc alone"
inside sh -c 'dpkg -i /packages/kvtc_*.deb' > /dev/null
user kvtc --version
user kvtc check /usr/share/kvt/samples/mk4_bolt.cnc | tail -1
user sh -c 'cp /usr/share/kvt/samples/iso/lathe_pin.nc "$HOME" && iso2emco --machine MK4 "$HOME/lathe_pin.nc" &&
    kvtc check "$HOME/lathe_pin.nc.~pp"' | tail -1
echo "== kvt"
inside sh -c 'dpkg -i /packages/kvt_*.deb' > /dev/null
user kvt --version
user sh -c 'cp "/usr/share/kvt/samples/mk4_pawn.cnc" "$HOME/a pawn \$(touch owned);-x.cnc"'
type=$(user xdg-mime query filetype "/home/pupil/a pawn \$(touch owned);-x.cnc")
echo "The type of the sample: $type; it is opened by $(user xdg-mime query default "$type")"
told

echo "== A sample is opened by its type"
user xdg-open "/home/pupil/a pawn \$(touch owned);-x.cnc" > "$SCRATCH/opened.log" 2>&1 &
window=
for _ in $(seq 300); do
    window=$(xdotool search --name 'Kestrel' 2> /dev/null | head -1) || true
    [ -z "$window" ] || break
    sleep 0.1
done
[ -n "$window" ] || { echo "No window came up:"; cat "$SCRATCH/opened.log"; exit 1; }
echo "The window: $(xdotool getwindowname "$window")"
sleep 1
[ -z "$PICTURE" ] || import -window root "$PICTURE"
kill "$(xdotool getwindowpid "$window")"
wait
[ ! -e "$system/home/pupil/owned" ]
(cd "$system/home/pupil" && find . -type f -path '*EMCO*' | sort)
told

echo "== Both are removed"
inside dpkg --purge kvt kvtc > /dev/null
files > "$SCRATCH/after"
if ! diff "$SCRATCH/before" "$SCRATCH/after"; then echo "This is left behind, or has gone."; exit 1; fi
echo "Nothing is left but what the user made."
told
END
chmod +x "$scratch/hook"

# A system that did not get as far as the hook tells of the mirror, not of the packages.
export SCRATCH=$scratch PACKAGES=$packages PICTURE=$picture DISPLAY=$display
status=0
mmdebstrap --quiet --variant=minbase --format=null \
    --include=xdg-utils,libfile-mimeinfo-perl,shared-mime-info,desktop-file-utils,hicolor-icon-theme \
    --customize-hook="touch $scratch/reached" --customize-hook="$scratch/hook" "$release" /dev/null "$mirror" \
    2> "$scratch/log" || status=$?
cat "$scratch/told" 2> /dev/null || true
if [ ! -e "$scratch/reached" ]; then
    tail -3 "$scratch/log"
    skip "no bare $release could be made from $mirror"
fi
[ $status -eq 0 ] || { tail -5 "$scratch/log"; exit $status; }
