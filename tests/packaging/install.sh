#!/bin/sh
# Installs the package on a copy of this system, starts what was installed, removes and purges it.
# Argument: the package. Exit code 77: cannot be tried here.
set -eu
umask 022
export LC_ALL=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin

if [ $# = 1 ]; then
    namespace=-m
    [ "$(id -u)" = 0 ] || namespace=-rm
    unshare $namespace true || { echo "no mount namespace for this user"; exit 77; }
    exec unshare $namespace sh "$0" "$1" inside
fi
package=$1
. "$(dirname "$0")/root.sh"

fail() {
    echo "install.sh: $*" >&2
    exit 1
}

expect() { # WHAT EXPECTED ACTUAL
    [ "$2" = "$3" ] || fail "$1: expected \"$2\", got \"$3\""
}

package_manager() { chroot $root dpkg --force-unsafe-io --no-triggers "$@" >/dev/null; }

# What the package manager and fontconfig keep of their own is no trace.
files() {
    find $root -xdev -printf '%y /%P\n' |
        grep -vE ' /(tmp/|var/cache|var/log/|var/lib/dpkg/[^i])' | sort
}

told() {
    cat $root/tmp/told
    : >$root/tmp/told
}

value() { # KEY FILE
    sed -n "s/^$1=//p" "$root/$2"
}

expect_start() { # COMMAND
    : >$root/tmp/log
    # shellcheck disable=SC2086
    env -i PATH="$PATH" LC_ALL=C.UTF-8 HOME=/root XDG_RUNTIME_DIR=/run \
        chroot $root timeout 20 $1 >$root/tmp/log 2>&1 &
    program=$!
    until grep -qx 'AppCoordinator: tap detection ENABLED' $root/tmp/log; do
        kill -0 $program 2>/dev/null || fail "\"$1\" has ended: $(cat $root/tmp/log)"
        sleep 0.02
    done
    kill $program
    { wait $program || true; } 2>/dev/null
    grep -qx 'MultitouchManager: framework symbols loaded successfully' $root/tmp/log ||
        fail "\"$1\" does not find its images: $(cat $root/tmp/log)"
}

make_root "$package"
# Both may be there on this system.
package_manager --purge brimlow 2>/dev/null || true
rm -f $root/etc/udev/rules.d/70-brimlow.rules
: >$root/tmp/told
files >$root/tmp/before

cp "$package" $root/tmp/brimlow.deb
package_manager --install /tmp/brimlow.deb
expect "installing tells udev" "control --reload
trigger --action=change --subsystem-match=input --property-match=ID_INPUT_TOUCHPAD=1 \
--property-match=ID_INPUT_MOUSE=1" "$(told)"
: >$root/tmp/deaf
package_manager --install /tmp/brimlow.deb # again, and udev does not answer
expect "a deaf udev is asked once" "control --reload" "$(told)"
rm $root/tmp/deaf

for file in usr/share/applications/org.brimlow.Brimlow.desktop \
    etc/xdg/autostart/org.brimlow.Brimlow.desktop \
    usr/share/dbus-1/services/org.brimlow.Brimlow.service; do
    expect_start "$(value Exec $file)"
done

# As pkexec would start it.
helper=$(sed -n 's|.*exec.path">\([^<]*\)<.*|\1|p' \
    $root/usr/share/polkit-1/actions/org.brimlow.Brimlow.policy | uniq)
chroot $root "$helper" install
cmp $root/etc/udev/rules.d/70-brimlow.rules $root/usr/lib/udev/rules.d/70-brimlow.rules
: >$root/tmp/told

package_manager --remove brimlow
expect "removing tells udev" "control --reload" "$(told)"
expect "what stays until it is purged" /etc/xdg/autostart/org.brimlow.Brimlow.desktop \
    "$(find $root/etc/xdg -name '*rimlow*' | sed "s|^$root||")"

package_manager --purge brimlow
files >$root/tmp/after
expect "what is left" "> d /root/.config
> d /root/.config/brimlow
> f /root/.config/brimlow/preferences.json" "$(diff $root/tmp/before $root/tmp/after | grep '^[<>]')"
