# Debian packages of the install components (TalvoInstall.cmake):
#   cpack -G DEB --config build/default/CPackConfig.cmake
# makes libtalvoutlwin0, libtalvoutlwin-dev and talvoutlwin-tools; the
# libraries' Depends are worked out by dpkg-shlibdeps.
set(CPACK_PACKAGE_NAME talvoutlwin)
set(CPACK_PACKAGE_VENDOR "Karvinel")
set(CPACK_PACKAGE_CONTACT "TALVOutlwin developers <talvoutlwin@karvinel.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Desktop user-interface library of the TALVO applications")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime dev tools)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The packages' own libraries, which dpkg-shlibdeps finds in no installed
# package: the tools' dependency on them is named below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)

set(_exact "(= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libtalvoutlwin${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "TALVOutlwin shared libraries")
# Opened when printers are listed, so dpkg-shlibdeps cannot see it.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "libcups2 (>= 2.4)")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libtalvoutlwin-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
# What the headers, the CMake package and its functions need.
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "libtalvoutlwin${PROJECT_VERSION_MAJOR} ${_exact}, libwxgtk3.2-dev, libboost-dev (>= 1.74), libboost-locale-dev (>= 1.74), gettext")
set(CPACK_DEBIAN_DEV_DESCRIPTION "TALVOutlwin development files (headers, CMake package, pkg-config)")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME talvoutlwin-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libtalvoutlwin${PROJECT_VERSION_MAJOR} ${_exact}")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "TALVOutlwin command-line tools: talvo-reg, talvo-art")

include(CPack)
