#pragma once
// Owns a shared library loaded with dlopen: closed when the loader goes.
//
// Libraries load with RTLD_NOW | RTLD_LOCAL: a missing symbol fails the load
// instead of a later call, and the library's symbols do not leak into later
// lookups. A path with a "/" loads that file; a bare name is searched as the
// dynamic linker does. Where Windows searched the library's own folder for
// its dependencies, a Linux library names that folder in its RUNPATH
// ($ORIGIN).

#include "platform/WinTypes.h"

// What GetFunction returns; cast to the real signature before calling.
using FARPROC = long long (*)();

class LibraryLoader {
public:
  LibraryLoader() = default;
  // Takes over `module` (a dlopen handle), closing it when done.
  explicit LibraryLoader(HMODULE module) : mModule(module) {}
  // Loads `path`; throws Exception "The file {1} does not exist." when there
  // is no such file, and one with the loader's reason otherwise.
  explicit LibraryLoader(wchar_t const * path);
  LibraryLoader(LibraryLoader const &) = delete;
  LibraryLoader & operator=(LibraryLoader const &) = delete;
  LibraryLoader(LibraryLoader && other) noexcept;
  LibraryLoader & operator=(LibraryLoader && other) noexcept;
  ~LibraryLoader();

  // Closes any current module and loads `path`; false on failure (a null
  // path fails, rather than giving the main program).
  bool Open(wchar_t const * path);
  // Closes the module; true when nothing is loaded afterwards without error.
  bool Close();
  // The address of the exported `name`, or null when the module has none.
  // Throws Exception "The handle is invalid." (the text of
  // ERROR_INVALID_HANDLE) when no module is loaded.
  FARPROC GetFunction(char const * name) const;

  HMODULE Handle() const { return mModule; }

private:
  HMODULE mModule = nullptr;
};
