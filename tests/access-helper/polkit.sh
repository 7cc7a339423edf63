# Plays pkexec, sourced by namespace.sh: starts as much of polkit as the stage says, with our policy
# for /run/helper, and lets an ordinary user ask through the real pkexec.
# After namespace.sh's own arguments: the policy, the stage, and pkexec's arguments.
policy=$4
stage=$5
chmod 755 /run
mkdir /run/dbus /run/actions /run/rules.d
sed 's|\(exec.path">\)[^<]*|\1/run/helper|' "$policy" >/run/actions/brimlow.policy
cp /usr/share/polkit-1/actions/org.freedesktop.policykit.policy /run/actions
mount --bind /run/actions /usr/share/polkit-1/actions
mount --bind /run/rules.d /etc/polkit-1/rules.d
case $stage in
    AUTH_ADMIN | YES) echo "polkit.addRule(function() { return polkit.Result.$stage; });" >/run/rules.d/all.rules ;;
esac
cat >/run/bus.conf <<'END'
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=/run/dbus/system_bus_socket</listen>
  <policy context="default">
    <allow user="*"/><allow own="*"/><allow send_destination="*"/><allow receive_sender="*"/>
  </policy>
</busconfig>
END

started=
if [ "$stage" != nothing ]; then
    dbus-daemon --config-file=/run/bus.conf --nofork &
    started=$!
    until [ -S /run/dbus/system_bus_socket ]; do sleep 0.02; done
fi
if [ "$stage" != nothing ] && [ "$stage" != bus ]; then
    /usr/lib/polkit-1/polkitd --no-debug >/dev/null 2>&1 &
    started="$started $!"
    until pkaction >/dev/null 2>&1; do sleep 0.02; done
fi
setpriv --reuid=65534 --regid=65534 --clear-groups pkexec "$6" /run/helper "$8" &&
    cmp /etc/udev/rules.d/70-brimlow.rules /run/expected
status=$?
# shellcheck disable=SC2086
[ -z "$started" ] || { kill $started && wait; }
exit $status
