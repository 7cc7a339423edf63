# shellcheck shell=sh
# Sourced by install.sh in a mount namespace of its own: make_root makes $root, a copy of this system
# that vanishes with the namespace.

root=/mnt

make_root() { # PACKAGE
    mount -t tmpfs tmpfs $root
    mkdir -p $root/dev $root/host/usr $root/proc $root/tmp $root/var/lib $root/var/log
    mkdir -m 700 $root/root $root/run
    : >$root/dev/null
    mount --bind /dev/null $root/dev/null
    mount --rbind /proc $root/proc
    mount --rbind /usr $root/host/usr
    mirror_usr "$1"
    cp -P /bin /sbin /lib* $root
    cp -r /etc $root 2>/dev/null || true # what only root can read is not needed
    cp -r /var/lib/dpkg $root/var/lib 2>/dev/null || true
    stand_in_for_udev
}

# The folders that the package writes to are there, what is in them are links to this system's.
mirror_usr() { # PACKAGE
    dpkg-deb --fsys-tarfile "$1" | tar -t | sed -n 's|^\./\(usr.*\)/$|\1|p' |
        while read -r folder; do
            [ -d "/$folder" ] || continue
            rm -f "$root/$folder" # a link that its parent got
            mkdir "$root/$folder"
            find "/$folder" -mindepth 1 -maxdepth 1 -printf '/host%p\0' |
                xargs -0r ln -s -t "$root/$folder"
        done
}

# Keeps what udev was told in /tmp/told, and fails while there is /tmp/deaf.
stand_in_for_udev() {
    rm -f $root/usr/bin/udevadm
    # shellcheck disable=SC2016
    printf '#!/bin/sh\necho "$@" >>/tmp/told\n[ ! -e /tmp/deaf ]\n' >$root/usr/bin/udevadm
    chmod 755 $root/usr/bin/udevadm
}
