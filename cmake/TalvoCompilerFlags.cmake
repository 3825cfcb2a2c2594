# Warnings and sanitizer flags shared by every target of the project.
add_compile_options(-Wall -Wextra -Wno-unused-parameter)
# Record only the libraries a binary really uses: every needless one costs
# every process of the family its loading and relocation at start.
add_link_options(-Wl,--as-needed)
# A library's calls to its own functions are bound inside it when it is
# linked, not looked up by name in every process at start: fewer symbol
# lookups for the loader and direct calls. (Data stays interposable, so
# nothing changes for copy relocations.)
string(APPEND CMAKE_SHARED_LINKER_FLAGS " -Wl,-Bsymbolic-functions")
string(APPEND CMAKE_MODULE_LINKER_FLAGS " -Wl,-Bsymbolic-functions")

if(TALVO_SANITIZE)
  set(_talvo_san -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  # g++ 12 reports false "maybe uninitialized" warnings inside libstdc++
  # (std::function in <regex>) once ASan instruments it.
  add_compile_options(${_talvo_san} -O1 -Wno-maybe-uninitialized)
  add_link_options(${_talvo_san})
endif()

if(TALVO_FUZZ)
  # Library code gets coverage instrumentation; only fuzz binaries link the
  # libFuzzer driver (see fuzz/CMakeLists.txt).
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
