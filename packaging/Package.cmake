# The Debian package, made by `./dev deb`.

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME brimlow)
set(CPACK_PACKAGE_CONTACT "The Brimlow authors <brimlow@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "bind taps on spots of a trackpad to actions")
set(CPACK_PACKAGE_DESCRIPTION
"A light tap on a spot of the trackpad does what was bound to it, whichever
application has the focus: go to the desktop on the left or right, close the
window in front, hide everything else, open an application, or bring one
particular window forward.

Spots are recorded by tapping them. Several profiles hold different bindings,
the palm of a hand is left out, and a binding can ask for a click as well.

Brimlow controls windows and workspaces on X11, under window managers that
follow the EWMH. It reads trackpads and mice only, never keys; a udev rule
opens these to the person at the screen.")

set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS ca-certificates) # updates are looked for over https
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib/brimlow)
# What it can do without, at a loss: access to the devices (udev, logind, pkexec), a second start that
# reaches the first (the bus), the desktop's dialogs and colours (the portal), the font of its windows.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "default-dbus-session-bus | dbus-session-bus"
    "default-logind | logind"
    "fonts-inter"
    "pkexec"
    "udev"
    "xdg-desktop-portal"
    "xdg-desktop-portal-gtk | xdg-desktop-portal-backend"
    "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
    ${CMAKE_CURRENT_LIST_DIR}/debian/postinst
    ${CMAKE_CURRENT_LIST_DIR}/debian/postrm
    ${CMAKE_CURRENT_LIST_DIR}/debian/conffiles)

include(CPack)
