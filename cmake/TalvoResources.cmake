# Resource modules: dialog templates, string tables, bitmaps and text
# resources known by number, embedded at build time (platform/ResourceModule.h).
#
# talvo_add_resource_module(<target> NAME <name> DIRECTORY <dir> [LIBRARY])
# turns the files under <dir> into a generated source of <target> that holds
# the module and registers it when <target> is loaded: as the application's
# module, or with LIBRARY as a library module searched after it. The layout
# of <dir> (documented in detail in resource-generator/TalvoResourceGenerator.cpp):
#   dialogs/<id>.xrc   XRC dialog template, its wxDialog object named "<id>"
#   menus/<id>.xrc     XRC menu, its wxMenuBar or wxMenu object named "<id>"
#   accelerators/<id>.txt  accelerator table: `<keys> <command id>` lines
#   toolbars/<id>.txt  tool bar: `size <w> <h>`, then a command id or `separator`
#                      a line; its images are bitmaps/<id>.png
#   bitmaps/<id>.png   PNG bitmap
#   html/<id>.<ext>    text resource of type 23 (XML defaults, CSS, XSL, HTML)
#   strings/*.txt      string tables: `<id> "<text>"` or `<id> "<context>" "<text>"`
# The generated source marks the strings' message ids (and the templates'
# titles and labels) with translate(...), so the pot target extracts them
# for modules under src/ and apps/.
#
# The generator is talvo-resgen (resource-generator/): the target of this
# build, or TALVOutlwin::talvo-resgen of an installed package, where this
# file is installed for applications of the family.

function(talvo_add_resource_module target)
  cmake_parse_arguments(R "LIBRARY" "NAME;DIRECTORY" "" ${ARGN})
  if(NOT R_NAME OR NOT R_DIRECTORY)
    message(FATAL_ERROR "talvo_add_resource_module: NAME and DIRECTORY are required")
  endif()
  get_filename_component(_root ${R_DIRECTORY} ABSOLUTE)
  file(GLOB_RECURSE _files CONFIGURE_DEPENDS LIST_DIRECTORIES false ${_root}/*)
  list(SORT _files)
  set(_role application)
  if(R_LIBRARY)
    set(_role library)
  endif()
  if(TARGET talvo-resgen)
    set(_generator talvo-resgen)
    set(_generator_file talvo-resgen)
  else()
    set(_generator TALVOutlwin::talvo-resgen)
    set(_generator_file $<TARGET_FILE:TALVOutlwin::talvo-resgen>)
  endif()
  set(_output ${CMAKE_CURRENT_BINARY_DIR}/${R_NAME}_resources.cpp)
  add_custom_command(OUTPUT ${_output}
    COMMAND ${_generator} --name ${R_NAME} --role ${_role} --root ${_root} --output ${_output}
            ${_files}
    DEPENDS ${_generator_file} ${_files}
    COMMENT "Embedding the resource module ${R_NAME}"
    VERBATIM)
  target_sources(${target} PRIVATE ${_output})

  # The strings of this project's library and applications belong to its
  # catalog; an outside application extracts its own (talvo_add_pot).
  if(NOT DEFINED TALVOutlwin_SOURCE_DIR)
    return()
  endif()
  file(RELATIVE_PATH _from_src ${TALVOutlwin_SOURCE_DIR}/src ${_root})
  file(RELATIVE_PATH _from_apps ${TALVOutlwin_SOURCE_DIR}/apps ${_root})
  if(NOT _from_src MATCHES "^\\.\\./" OR NOT _from_apps MATCHES "^\\.\\./")
    set_property(GLOBAL APPEND PROPERTY TALVO_POT_GENERATED_SOURCES ${_output})
    set_property(GLOBAL APPEND PROPERTY TALVO_POT_GENERATED_TARGETS ${target})
  endif()
endfunction()
