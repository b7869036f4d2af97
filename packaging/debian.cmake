# Debian packages, made by `cpack` in the build folder.

set(CPACK_COMPONENTS_ALL)

# morvantile_package(component NAME name SECTION section SUMMARY line DESCRIPTION text
#   [DEPENDS list] [RECOMMENDS list] [SUGGESTS list] [MULTI_ARCH same|foreign])
#
# The Debian package of a component, with the papers that each package carries.
macro(morvantile_package component)
  cmake_parse_arguments(
    arg "" "NAME;SECTION;SUMMARY;DESCRIPTION;DEPENDS;RECOMMENDS;SUGGESTS;MULTI_ARCH" "" ${ARGN})
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} id)
  set(CPACK_DEBIAN_${id}_PACKAGE_NAME ${arg_NAME})
  set(CPACK_DEBIAN_${id}_PACKAGE_SECTION ${arg_SECTION})
  set(CPACK_DEBIAN_${id}_DESCRIPTION "${arg_SUMMARY}\n${arg_DESCRIPTION}")
  set(CPACK_DEBIAN_${id}_PACKAGE_DEPENDS "${arg_DEPENDS}")
  set(CPACK_DEBIAN_${id}_PACKAGE_RECOMMENDS "${arg_RECOMMENDS}")
  set(CPACK_DEBIAN_${id}_PACKAGE_SUGGESTS "${arg_SUGGESTS}")
  set(CPACK_DEBIAN_${id}_PACKAGE_MULTIARCH ${arg_MULTI_ARCH})
  install(
    FILES debian/copyright
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${arg_NAME}
    COMPONENT ${component} EXCLUDE_FROM_ALL)
  morvantile_packed(debian/changelog ${CMAKE_INSTALL_DATAROOTDIR}/doc/${arg_NAME} changelog ${component}
                    EXCLUDE_FROM_ALL)
endmacro()

set(same "(= ${PROJECT_VERSION})")
morvantile_package(
  program
  NAME morvantile
  SECTION graphics
  SUMMARY "make the picture on the clipboard smaller"
  DESCRIPTION
    "Morvantile shows the picture on the clipboard in a dialog with a slider,\nand puts the smaller picture back. It is made to be bound to a key: take a\nscreenshot, press the key, drag the slider, press OK, and paste."
  DEPENDS "morvantile-plutil ${same}, qt6-qpa-plugins"
  RECOMMENDS "qt6-wayland, qt6-image-formats-plugins, libqt6svg6"
  SUGGESTS "qt6-translations-l10n, fonts-noto-cjk")
morvantile_package(
  plutil
  NAME morvantile-plutil
  SECTION utils
  SUMMARY "converter between XML and binary property lists"
  DESCRIPTION
    "The helper of Morvantile's property-list library, which calls it for files\nin the binary form. It is not in the users' PATH."
  MULTI_ARCH foreign)
morvantile_package(
  plist
  NAME libmorvantile-plist${MORVANTILE_ABI}
  SECTION libs
  SUMMARY "property-list library"
  DESCRIPTION
    "Reads, changes and writes property lists, in the XML and the binary form:\nsettings with defaults, nested dicts and arrays, dates, search, and the state\nof windows."
  DEPENDS "morvantile-plutil ${same}"
  MULTI_ARCH same)
morvantile_package(
  plist_qt
  NAME libmorvantile-plist-qt${MORVANTILE_ABI}
  SECTION libs
  SUMMARY "property-list library: ties to Qt's widgets"
  DESCRIPTION
    "Ties a program's own Qt widgets to Morvantile's property-list library, so that\nthe state of a window can be kept in a property list."
  DEPENDS "libmorvantile-plist${MORVANTILE_ABI} ${same}"
  MULTI_ARCH same)
morvantile_package(
  dev
  NAME libmorvantile-plist-dev
  SECTION libdevel
  SUMMARY "property-list library: development files"
  DESCRIPTION
    "The headers of Morvantile's property-list library, and what CMake and\npkg-config need to find it."
  DEPENDS
    "libmorvantile-plist${MORVANTILE_ABI} ${same}, libmorvantile-plist-qt${MORVANTILE_ABI} ${same}, libgcrypt20-dev, libutf8proc-dev"
  SUGGESTS "qt6-base-dev")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The developers of Morvantile")
set(CPACK_PACKAGE_CONTACT "The developers of Morvantile <developers@morvantile.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${MORVANTILE_URL})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
                                                GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/packaging)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")
# Debian's libraries have the linker's cache renewed by a trigger. CPack adds scripts that renew it as
# well, which lintian warns of.
set(CPACK_DEBIAN_PLIST_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/triggers)
set(CPACK_DEBIAN_PLIST_QT_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/triggers)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
