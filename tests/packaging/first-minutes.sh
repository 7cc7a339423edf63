#!/bin/sh
# Installs the package on a copy of this system and runs a test there that uses what was installed.
# Arguments: the package, the test. Exit code 77: cannot be tried here.
set -eu
umask 022

if [ $# = 2 ]; then
    namespace=-m
    [ "$(id -u)" = 0 ] || namespace=-rm
    unshare $namespace true || { echo "no mount namespace for this user"; exit 77; }
    exec unshare $namespace sh "$0" "$1" "$2" inside
fi
package=$1
tested=$2
. "$(dirname "$0")/root.sh"

make_root "$package"
mount --rbind /dev $root/dev
mkdir -p "$root$(dirname "$tested")" $root/sys
mount --bind "$(dirname "$tested")" "$root$(dirname "$tested")"
chmod 1777 $root/tmp
cp "$package" $root/tmp/brimlow.deb
chroot $root dpkg --purge --force-unsafe-io --no-triggers brimlow >/dev/null 2>&1 || true
chroot $root dpkg --install --force-unsafe-io --no-triggers /tmp/brimlow.deb >/dev/null
exec chroot $root "$tested"
