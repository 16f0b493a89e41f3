#!/usr/bin/env bash
# Builds the package from a build tree, unpacks it into a temporary root as dpkg would install it,
# and starts what it installed: the command line with its built-in controller, the virtual
# controller, and the window program on the offscreen platform, run by a user who cannot write
# the program's folder, against that virtual controller.
set -euo pipefail
build=$(cd "${1:?build tree}" && pwd)
work=$(mktemp -d)
chmod 755 "$work"
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    chmod -R u+w "$work" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
# Waits up to ten seconds for a shell condition.
wait_for() {
    for _ in $(seq 100); do eval "$1" && return 0; sleep 0.1; done
    return 1
}

cpack --config "$build/CPackConfig.cmake" -B "$work/package" > "$work/cpack.log" 2>&1 ||
    { cat "$work/cpack.log" >&2; fail "cpack failed"; }
deb=$(find "$work/package" -maxdepth 1 -name 'korval_*.deb')
[ -f "$deb" ] || fail "no package made"
echo "package: $(basename "$deb"), $(stat -c %s "$deb") bytes"

control=$(dpkg-deb -f "$deb")
grep -q '^Package: korval$' <<< "$control" || fail "the package is not named korval"
grep -q 'dialout' <<< "$control" || fail "the description does not tell of the dialout group"
grep -q '^Depends:.*libqt6svg6' <<< "$control" || fail "the package does not depend on libqt6svg6"
if command -v dpkg-shlibdeps > /dev/null; then
    for runtime in libqt6core6 libqt6gui6 libqt6widgets6 libqt6serialport6; do
        grep -q "^Depends:.*$runtime" <<< "$control" || fail "the package does not depend on $runtime"
    done
fi

root=$work/root
dpkg-deb -x "$deb" "$root"
program=$root/opt/korval
for file in korval korval-cli bin/kdx-sim; do
    [ -x "$program/$file" ] || fail "$file is not installed"
    [ "$(readlink "$root/usr/bin/$(basename "$file")")" = "/opt/korval/$file" ] ||
        fail "/usr/bin/$(basename "$file") does not lead to /opt/korval/$file"
done
for library in "Tavrin KDX Serial Driver.so" "Tavrin KDX Commands.so"; do
    [ -f "$program/Driver/$library" ] || fail "Driver/$library is not installed"
done
grep -q dialout "$program/README.txt" || fail "the README does not tell of the dialout group"
grep -q '^Exec=korval$' "$root/usr/share/applications/korval.desktop" || fail "desktop entry"
grep -q '^Icon=korval$' "$root/usr/share/applications/korval.desktop" || fail "desktop icon"
[ -s "$root/usr/share/icons/hicolor/scalable/apps/korval.svg" ] || fail "no icon"
bash "$(dirname "$0")/check_documentation.sh" "$program" || fail "installed documentation"

# The command line finds its libraries in the installed Driver folder.
# (Read whole: a grep that quits at its match would cut the help off with a broken pipe.)
help=$("$program/korval-cli" --help) || fail "korval-cli --help"
grep -q '^usage: korval-cli' <<<"$help" || fail "korval-cli --help"
[ "$("$program/korval-cli" --sim send getD0,)" = 1.22 ] || fail "korval-cli --sim send getD0,"

# The window program and the virtual controller run as a user who cannot write the program's
# folder, as after an install by dpkg: root writes everywhere, so root hands over to nobody.
as_user=()
if [ "$(id -u)" -eq 0 ]; then
    as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups --)
else
    chmod -R a-w "$program"
fi
home=$work/home
mkdir -p "$home" "$work/ports"
[ ${#as_user[@]} -eq 0 ] || chown nobody:nogroup "$home" "$work/ports"
export HOME=$home XDG_CONFIG_HOME=$home/.config KORVAL_PORTS=$work/ports QT_QPA_PLATFORM=offscreen
unset XDG_RUNTIME_DIR

mkfifo "$work/control"
"${as_user[@]}" "$program/bin/kdx-sim" --port 1 < "$work/control" > "$work/sim.out" 2>&1 &
pids+=($!)
exec 3> "$work/control"
wait_for '[ -L "$work/ports/Com1" ]' || fail "kdx-sim did not make itself Com1"
# Off line first, so that the window program's start is seen to bring it on line.
"$program/korval-cli" --port 1 send Q > /dev/null || fail "korval-cli could not reach kdx-sim"
echo show >&3
wait_for 'grep -q "^status J" "$work/sim.out"' || fail "kdx-sim did not go off line"

# A returning user: a first run would open the set-up wizard, which waits for its user.
settings=$home/.config/korval/KORVAL\ Settings.ini
mkdir -p "$home/.config/korval"
printf '[Run]\r\nTimes=1\r\n' > "$settings"
[ ${#as_user[@]} -eq 0 ] || chown -R nobody:nogroup "$home/.config"
"${as_user[@]}" "$program/korval" > "$work/korval.out" 2>&1 &
korval=$!
pids+=($korval)
wait_for 'grep -q "Times=2" "$settings"' ||
    { cat "$work/korval.out" >&2; fail "no settings in ~/.config/korval"; }
[ ! -e "$program/Config" ] || fail "settings were written into the program's folder"
on_line() {
    echo show >&3
    sleep 0.2
    [ "$(grep '^status' "$work/sim.out" | tail -1 | cut -d' ' -f2)" = R ]
}
wait_for on_line || fail "korval did not bring the controller on line"
kill -0 "$korval" 2>/dev/null || { cat "$work/korval.out" >&2; fail "korval ended"; }
echo "installed korval started and brought the virtual controller on line"
