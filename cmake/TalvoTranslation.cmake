# Message catalogs: every text for a person is an English message id,
# translated at display through Boost.Locale from gettext catalogs.

include(GNUInstallDirs)
find_program(XGETTEXT_PROGRAM xgettext REQUIRED)
find_program(MSGFMT_PROGRAM msgfmt REQUIRED)

# Keywords that mark message ids in the sources: boost::locale::translate with
# and without a context (and their plural forms), ExceptionMessage::translate,
# and vx3::Tr / vx3::TranslateText.
set(TALVO_XGETTEXT_KEYWORDS
  --keyword=translate:1,1t --keyword=translate:1c,2,2t
  --keyword=translate:1,2,3t --keyword=translate:1c,2,3,4t
  --keyword=Tr:1,1t --keyword=Tr:1c,2,2t
  --keyword=TranslateText:1,2t --keyword=TranslateText:1c,2,3t)

# talvo_add_pot(<target> OUTPUT <file.pot> PACKAGE <name> [VERSION <v>]
#               SOURCES <files...> [DEPENDS <targets...>])
# Target <target> extracts every message id (with its context) of SOURCES
# into OUTPUT for translators; DEPENDS names the targets that generate some
# of the sources (resource modules).
function(talvo_add_pot target)
  cmake_parse_arguments(P "" "OUTPUT;PACKAGE;VERSION" "SOURCES;DEPENDS" ${ARGN})
  if(NOT P_OUTPUT OR NOT P_PACKAGE OR NOT P_SOURCES)
    message(FATAL_ERROR "talvo_add_pot: OUTPUT, PACKAGE and SOURCES are required")
  endif()
  set(_version)
  if(P_VERSION)
    set(_version --package-version=${P_VERSION})
  endif()
  get_filename_component(_name ${P_OUTPUT} NAME)
  add_custom_command(OUTPUT ${P_OUTPUT}
    COMMAND ${XGETTEXT_PROGRAM} --language=C++ --from-code=UTF-8 --sort-by-file --force-po
            --package-name=${P_PACKAGE} ${_version}
            ${TALVO_XGETTEXT_KEYWORDS} -o ${P_OUTPUT} ${P_SOURCES}
    DEPENDS ${P_SOURCES}
    WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
    COMMENT "Extracting message ids into ${_name}"
    VERBATIM)
  add_custom_target(${target} DEPENDS ${P_OUTPUT})
  if(P_DEPENDS)
    add_dependencies(${target} ${P_DEPENDS})
  endif()
endfunction()

# Target `pot`: the library's and the applications' message ids, the string
# tables and dialog texts of their resource modules included (the sources
# that talvo_add_resource_module generates), in TALVOutlwin.pot of the build.
function(talvo_add_pot_target)
  file(GLOB_RECURSE _sources CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/src/*.cpp ${PROJECT_SOURCE_DIR}/src/*.h
    ${PROJECT_SOURCE_DIR}/apps/*.cpp ${PROJECT_SOURCE_DIR}/apps/*.h)
  list(SORT _sources)
  get_property(_generated GLOBAL PROPERTY TALVO_POT_GENERATED_SOURCES)
  get_property(_generating GLOBAL PROPERTY TALVO_POT_GENERATED_TARGETS)
  talvo_add_pot(pot OUTPUT ${PROJECT_BINARY_DIR}/TALVOutlwin.pot PACKAGE TALVOutlwin
                VERSION ${PROJECT_VERSION} SOURCES ${_sources} ${_generated} DEPENDS ${_generating})
endfunction()

# talvo_add_catalog(<target> PO <file.po> LANGUAGE <lang> DOMAIN <domain> DESTINATION <dir>
#                   [INSTALL [COMPONENT <component>]])
# compiles one .po into <dir>/<lang>/LC_MESSAGES/<domain>.mo as part of
# <target>; with INSTALL it is installed under share/locale, where
# vx3::DefaultCatalogPaths finds it for an installed executable.
function(talvo_add_catalog target)
  cmake_parse_arguments(C "INSTALL" "PO;LANGUAGE;DOMAIN;DESTINATION;COMPONENT" "" ${ARGN})
  set(_mo ${C_DESTINATION}/${C_LANGUAGE}/LC_MESSAGES/${C_DOMAIN}.mo)
  add_custom_command(OUTPUT ${_mo}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${C_DESTINATION}/${C_LANGUAGE}/LC_MESSAGES
    COMMAND ${MSGFMT_PROGRAM} --check -o ${_mo} ${C_PO}
    DEPENDS ${C_PO}
    VERBATIM)
  target_sources(${target} PRIVATE ${_mo})
  if(C_INSTALL)
    set(_component)
    if(C_COMPONENT)
      set(_component COMPONENT ${C_COMPONENT})
    endif()
    install(FILES ${_mo} DESTINATION ${CMAKE_INSTALL_LOCALEDIR}/${C_LANGUAGE}/LC_MESSAGES
            ${_component})
  endif()
endfunction()
