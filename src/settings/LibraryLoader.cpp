#include "settings/LibraryLoader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <utility>

#include "utl/Exception.h"
#include "utl/Utf.h"

namespace {

HMODULE Load(std::string const & path) { return ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }

}  // namespace

LibraryLoader::LibraryLoader(wchar_t const * path) {
  std::string const file = vx3::WideToUtf8(path != nullptr ? path : L"");
  mModule = file.empty() ? nullptr : Load(file);
  if (mModule != nullptr) return;
  // A bare name that the linker did not find does not exist either.
  if (file.empty() || (::access(file.c_str(), F_OK) != 0))
    throw Exception(ExceptionMessage::translate("The file {1} does not exist.") % file);
  char const * const reason = ::dlerror();
  throw Exception(ExceptionMessage::translate("The library {1} could not be loaded: {2}") % file %
                  std::string(reason != nullptr ? reason : ""));
}

LibraryLoader::LibraryLoader(LibraryLoader && other) noexcept
    : mModule(std::exchange(other.mModule, nullptr)) {}

LibraryLoader & LibraryLoader::operator=(LibraryLoader && other) noexcept {
  if (this != &other) {
    Close();
    mModule = std::exchange(other.mModule, nullptr);
  }
  return *this;
}

LibraryLoader::~LibraryLoader() { Close(); }

bool LibraryLoader::Open(wchar_t const * path) {
  Close();
  std::string const file = vx3::WideToUtf8(path != nullptr ? path : L"");
  if (!file.empty()) mModule = Load(file);
  return mModule != nullptr;
}

bool LibraryLoader::Close() {
  if (mModule == nullptr) return true;
  // A handle dlclose refused is unusable all the same: it is dropped.
  return ::dlclose(std::exchange(mModule, nullptr)) == 0;
}

FARPROC LibraryLoader::GetFunction(char const * name) const {
  if (mModule == nullptr) throw Exception(ExceptionMessage::translate("The handle is invalid."));
  return reinterpret_cast<FARPROC>(::dlsym(mModule, name != nullptr ? name : ""));
}
