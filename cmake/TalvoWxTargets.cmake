# talvo::wxbase (wxBase only, for the utility layer) and talvo::wx (the GUI
# libraries) from what FindwxWidgets found (TALVO_WXBASE_* and TALVO_WX_*).
# FindwxWidgets makes no targets of its own; the installed package includes
# this file too, so that the exported libraries name the same targets.
if(NOT TARGET talvo::wxbase)
  add_library(talvo::wxbase INTERFACE IMPORTED)
  target_include_directories(talvo::wxbase SYSTEM INTERFACE ${TALVO_WXBASE_INCLUDE_DIRS})
  target_compile_definitions(talvo::wxbase INTERFACE ${TALVO_WXBASE_DEFINITIONS})
  target_link_libraries(talvo::wxbase INTERFACE ${TALVO_WXBASE_LIBRARIES})

  add_library(talvo::wx INTERFACE IMPORTED)
  target_include_directories(talvo::wx SYSTEM INTERFACE ${TALVO_WX_INCLUDE_DIRS})
  target_compile_definitions(talvo::wx INTERFACE ${TALVO_WX_DEFINITIONS})
  target_link_libraries(talvo::wx INTERFACE ${TALVO_WX_LIBRARIES})
endif()
# The web view, for the browser library of the HTML views (and tests that
# drive its browser); the project's own build only.
if(DEFINED TALVO_WXWEBVIEW_LIBRARIES AND NOT TARGET talvo::wxwebview)
  add_library(talvo::wxwebview INTERFACE IMPORTED)
  target_link_libraries(talvo::wxwebview INTERFACE talvo::wx ${TALVO_WXWEBVIEW_LIBRARIES})
endif()
