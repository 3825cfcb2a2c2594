# What `cmake --install` puts in place, by component (the Debian packages of
# TalvoPackaging.cmake):
#   runtime  the versioned shared libraries, the XML module and the HTML
#            views' browser library beside them and
#            the library's message catalogs
#   dev      headers under include/talvoutlwin/, the library names to link,
#            the CMake package with the resource and catalog functions and
#            talvo-resgen, the pkg-config files
#   tools    talvo-reg and talvo-art
include(CMakePackageConfigHelpers)

set(TALVO_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/TALVOutlwin)
set(TALVO_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/talvoutlwin)

install(TARGETS TALVOutl TALVOregistry TALVOappcore TALVOcrash TALVOutlwin EXPORT TALVOutlwinTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  INCLUDES DESTINATION ${TALVO_INSTALL_INCLUDEDIR})
if(TARGET TALVOservice)
  install(TARGETS TALVOservice EXPORT TALVOutlwinTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
    INCLUDES DESTINATION ${TALVO_INSTALL_INCLUDEDIR})
endif()
# Loaded with dlopen from the folder of libTALVOutl.so (libTALVOutlwin.so),
# under these names.
install(TARGETS TALVOxml TALVOhtmlbrowser LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
install(TARGETS talvo-resgen EXPORT TALVOutlwinTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT dev)

# The headers keep their folders: #include "frame/VxApp.h". The XML module's
# headers are its own (Xerces-C), and resources/ holds no headers.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${TALVO_INSTALL_INCLUDEDIR}
  COMPONENT dev FILES_MATCHING PATTERN "*.h" PATTERN "xml" EXCLUDE PATTERN "resources" EXCLUDE)

if(TARGET talvo-reg)
  install(TARGETS talvo-reg talvo-art talvo-crash-report RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
endif()

# The library's own catalogs, po/<language>.po, in the domain "talvoutlwin":
# in the build tree where the build's executables look, and installed.
file(GLOB _catalogs CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/po/*.po)
foreach(po IN LISTS _catalogs)
  get_filename_component(_language ${po} NAME_WE)
  talvo_add_catalog(TALVOutlwin PO ${po} LANGUAGE ${_language} DOMAIN talvoutlwin
                    DESTINATION ${PROJECT_BINARY_DIR}/share/locale INSTALL COMPONENT runtime)
endforeach()

# The CMake package: find_package(TALVOutlwin 0.1) gives TALVOutlwin::TALVOutl,
# TALVOutlwin::TALVOutlwin and the functions of an application's own
# resource module and catalog.
install(EXPORT TALVOutlwinTargets NAMESPACE TALVOutlwin:: DESTINATION ${TALVO_INSTALL_CMAKEDIR}
  COMPONENT dev)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/package/TALVOutlwinConfig.cmake.in
  ${PROJECT_BINARY_DIR}/package/TALVOutlwinConfig.cmake INSTALL_DESTINATION ${TALVO_INSTALL_CMAKEDIR})
# 0.x: a new minor version may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/TALVOutlwinConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/TALVOutlwinConfig.cmake
              ${PROJECT_BINARY_DIR}/package/TALVOutlwinConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/TalvoWxTargets.cmake
              ${CMAKE_CURRENT_LIST_DIR}/TalvoResources.cmake
              ${CMAKE_CURRENT_LIST_DIR}/TalvoTranslation.cmake
        DESTINATION ${TALVO_INSTALL_CMAKEDIR} COMPONENT dev)

# pkg-config files, relocatable: the prefix is found from the file's folder.
# wx and Boost ship no pkg-config files on Debian, so their flags are
# written in as this build found them.
function(talvo_flags_of out)
  cmake_parse_arguments(F "" "" "DEFINITIONS;INCLUDE_DIRS;LIBRARIES" ${ARGN})
  set(_flags)
  foreach(d IN LISTS F_DEFINITIONS)
    list(APPEND _flags -D${d})
  endforeach()
  foreach(i IN LISTS F_INCLUDE_DIRS)
    list(APPEND _flags -I${i})
  endforeach()
  list(APPEND _flags ${F_LIBRARIES})
  list(JOIN _flags " " _joined)
  set(${out} "${_joined}" PARENT_SCOPE)
endfunction()
talvo_flags_of(TALVO_PC_WXBASE_CFLAGS DEFINITIONS ${TALVO_WXBASE_DEFINITIONS}
               INCLUDE_DIRS ${TALVO_WXBASE_INCLUDE_DIRS})
talvo_flags_of(TALVO_PC_WXBASE_LIBS LIBRARIES ${TALVO_WXBASE_LIBRARIES})
talvo_flags_of(TALVO_PC_WX_CFLAGS DEFINITIONS ${TALVO_WX_DEFINITIONS}
               INCLUDE_DIRS ${TALVO_WX_INCLUDE_DIRS})
talvo_flags_of(TALVO_PC_WX_LIBS LIBRARIES ${TALVO_WX_LIBRARIES})
file(RELATIVE_PATH TALVO_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" TALVO_PC_TO_PREFIX "${TALVO_PC_TO_PREFIX}")
foreach(pc talvoutl talvoutlwin)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/package/${pc}.pc.in ${PROJECT_BINARY_DIR}/package/${pc}.pc
                 @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/${pc}.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endforeach()
