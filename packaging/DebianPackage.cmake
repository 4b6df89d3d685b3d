# The Debian package: "scripts/package" makes it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME songlift)
set(CPACK_PACKAGE_VENDOR "Songlift developers")
set(CPACK_PACKAGE_CONTACT "Songlift developers <songlift@songlift.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "copy music and video off an iPod into folders")
set(CPACK_PACKAGE_DESCRIPTION
  "Songlift copies the music and video on an iPod into ordinary, well-named
folders. It finds the iPod, shows its library at once, and lets you tick what
you want by artist, album or song. It copies every byte under the right name,
or says plainly why it cannot. Search, preview and a media filter help to
choose.

It never writes to the iPod.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt's own package brings the plugin for X11; nothing that is linked brings the one for Wayland.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, qt6-wayland")
# GTK desktops lend their folder picker through a plugin of its own.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-gtk-platformtheme, udisks2")
include(CPack)
