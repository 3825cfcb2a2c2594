# Every third-party library the project links, found once for all folders.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

find_package(Boost 1.74 REQUIRED COMPONENTS locale filesystem system thread date_time
                                            serialization iostreams)
find_package(JPEG REQUIRED)
find_package(PNG 1.6 REQUIRED)
find_package(XercesC 3.2 REQUIRED)
find_package(OpenSSL 3.0 REQUIRED COMPONENTS Crypto)
find_package(SQLite3 3.35 REQUIRED)
# CUPS lists the printers the printer browser offers.
find_package(Cups 2.4 REQUIRED)
pkg_check_modules(ICU REQUIRED IMPORTED_TARGET icu-uc icu-i18n)
pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)
pkg_check_modules(LIBXSLT REQUIRED IMPORTED_TARGET libxslt)
pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
pkg_check_modules(GSF REQUIRED IMPORTED_TARGET libgsf-1)
pkg_check_modules(SYSTEMD REQUIRED IMPORTED_TARGET libsystemd)
pkg_check_modules(MSPACK REQUIRED IMPORTED_TARGET libmspack)

# wxBase only for the utility layer; the GUI library takes core, adv, html;
# the web view (WebKitGTK) only the browser library of the HTML views.
find_package(wxWidgets 3.2 REQUIRED COMPONENTS base)
set(TALVO_WXBASE_LIBRARIES ${wxWidgets_LIBRARIES})
set(TALVO_WXBASE_INCLUDE_DIRS ${wxWidgets_INCLUDE_DIRS})
set(TALVO_WXBASE_DEFINITIONS ${wxWidgets_DEFINITIONS})
unset(wxWidgets_FOUND)
find_package(wxWidgets 3.2 REQUIRED COMPONENTS richtext core base adv html xml xrc)
set(TALVO_WX_LIBRARIES ${wxWidgets_LIBRARIES})
set(TALVO_WX_INCLUDE_DIRS ${wxWidgets_INCLUDE_DIRS})
set(TALVO_WX_DEFINITIONS ${wxWidgets_DEFINITIONS})
unset(wxWidgets_FOUND)
find_package(wxWidgets 3.2 REQUIRED COMPONENTS webview core base)
set(TALVO_WXWEBVIEW_LIBRARIES ${wxWidgets_LIBRARIES})

include(TalvoWxTargets)

if(TALVO_BUILD_TESTS)
  find_package(GTest REQUIRED)
endif()
if(TALVO_BUILD_BENCHMARKS AND NOT TALVO_SANITIZE AND NOT TALVO_FUZZ)
  find_package(benchmark REQUIRED)
endif()
