# cpack in the build tree creates tallyfen_VERSION_ARCHITECTURE.deb there; packaging/build runs all necessary steps.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_PACKAGE_NAME tallyfen)
set(CPACK_PACKAGE_CONTACT "The Tallyfen developers <mail@tallyfen.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "finder of duplicated files with a graphical interface")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Tallyfen searches the folders that are listed in its window and shows each
group of duplicated files together. Files are compared by content, by name,
or by name and size.
.
A file that is reached by two ways, through overlapping folders or a second
mount, is never taken for two. Links are not followed, pipes and devices not
opened.")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://www.tallyfen.example)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Dependencies that shlibdeps cannot find: the plugin for SVG pictures, which is in the library's package in Debian 12;
# the font that the forms are designed for; the MIME database; the Wayland plugin.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~)")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-extra, shared-mime-info, qt6-wayland")
include(CPack)
