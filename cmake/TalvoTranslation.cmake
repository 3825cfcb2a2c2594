# Message catalogs: every text for a person is an English message id,
# translated at display through Boost.Locale from gettext catalogs.

find_program(XGETTEXT_PROGRAM xgettext REQUIRED)
find_program(MSGFMT_PROGRAM msgfmt REQUIRED)

# Keywords that mark message ids in the sources: boost::locale::translate with
# and without a context (and their plural forms), ExceptionMessage::translate,
# and vx3::Tr.
set(TALVO_XGETTEXT_KEYWORDS
  --keyword=translate:1,1t --keyword=translate:1c,2,2t
  --keyword=translate:1,2,3t --keyword=translate:1c,2,3,4t
  --keyword=Tr:1,1t --keyword=Tr:1c,2,2t)

# Target `pot`: extracts every message id (with its context) of the library
# and the applications into ${CMAKE_BINARY_DIR}/TALVOutlwin.pot, the string
# tables and dialog texts of their resource modules included (the sources
# that talvo_add_resource_module generates).
function(talvo_add_pot_target)
  file(GLOB_RECURSE _sources CONFIGURE_DEPENDS
    ${CMAKE_SOURCE_DIR}/src/*.cpp ${CMAKE_SOURCE_DIR}/src/*.h
    ${CMAKE_SOURCE_DIR}/apps/*.cpp ${CMAKE_SOURCE_DIR}/apps/*.h)
  list(SORT _sources)
  get_property(_generated GLOBAL PROPERTY TALVO_POT_GENERATED_SOURCES)
  get_property(_generating GLOBAL PROPERTY TALVO_POT_GENERATED_TARGETS)
  list(APPEND _sources ${_generated})
  set(_pot ${CMAKE_BINARY_DIR}/TALVOutlwin.pot)
  add_custom_command(OUTPUT ${_pot}
    COMMAND ${XGETTEXT_PROGRAM} --language=C++ --from-code=UTF-8 --sort-by-file --force-po
            --package-name=TALVOutlwin --package-version=${PROJECT_VERSION}
            ${TALVO_XGETTEXT_KEYWORDS} -o ${_pot} ${_sources}
    DEPENDS ${_sources}
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    COMMENT "Extracting message ids into TALVOutlwin.pot"
    VERBATIM)
  add_custom_target(pot DEPENDS ${_pot})
  if(_generating)
    add_dependencies(pot ${_generating})
  endif()
endfunction()

# talvo_add_catalog(<target> PO <file.po> LANGUAGE <lang> DOMAIN <domain> DESTINATION <dir>)
# compiles one .po into <dir>/<lang>/LC_MESSAGES/<domain>.mo as part of <target>.
function(talvo_add_catalog target)
  cmake_parse_arguments(C "" "PO;LANGUAGE;DOMAIN;DESTINATION" "" ${ARGN})
  set(_mo ${C_DESTINATION}/${C_LANGUAGE}/LC_MESSAGES/${C_DOMAIN}.mo)
  add_custom_command(OUTPUT ${_mo}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${C_DESTINATION}/${C_LANGUAGE}/LC_MESSAGES
    COMMAND ${MSGFMT_PROGRAM} --check -o ${_mo} ${C_PO}
    DEPENDS ${C_PO}
    VERBATIM)
  target_sources(${target} PRIVATE ${_mo})
endfunction()
