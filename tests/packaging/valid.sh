#!/bin/sh
# Asks whoever knows whether the package and what is in it are in order.
# Argument: the package.
set -eu
export LC_ALL=C.UTF-8
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
dpkg-deb -x "$1" "$folder"
cd "$folder"

desktop-file-validate usr/share/applications/*.desktop etc/xdg/autostart/*.desktop
appstreamcli validate --no-net usr/share/metainfo/*.xml
lintian --fail-on error,warning "$1"

# One version everywhere.
version=$(dpkg-deb -f "$1" Version)
zcat usr/share/doc/brimlow/changelog.gz | head -1 | grep -F "brimlow ($version) "
grep -F "<release version=\"$version\" " usr/share/metainfo/*.xml
grep -F "\"CFBundleShortVersionString\": \"$version\"" usr/share/brimlow/Info.json
