#include "html/HtmlBrowserModule.h"

#include <dlfcn.h>

#include "utl/Paths.h"

namespace {

struct LoadedLibrary {
  HtmlBrowserFactory factory = nullptr;
  UriSchemeRegistrar registrar = nullptr;
  std::string error;
};

std::string LoaderError() {
  char const * reason = ::dlerror();
  return reason != nullptr ? reason : "unknown reason";
}

std::string LibraryBesideThisOne() {
  Dl_info info{};
  if (::dladdr(reinterpret_cast<void *>(&GetHtmlBrowserFactory), &info) == 0 ||
      info.dli_fname == nullptr)
    return "";
  std::string const folder = VxGetDirectory(info.dli_fname);
  return folder.empty() ? "" : VxPathAppend(folder, kHtmlBrowserLibraryFileName);
}

LoadedLibrary Load() {
  LoadedLibrary loaded;
  std::string const beside = LibraryBesideThisOne();
  std::string const path =
      !beside.empty() && VxFileExist(beside) ? beside : kHtmlBrowserLibraryFileName;
  // RTLD_LOCAL: WebKit's symbols stay out of the global scope.
  void * handle = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    loaded.error = path + ": " + LoaderError();
    return loaded;
  }
  loaded.factory = reinterpret_cast<HtmlBrowserFactory>(::dlsym(handle, kHtmlBrowserEntryPoint));
  loaded.registrar = reinterpret_cast<UriSchemeRegistrar>(::dlsym(handle, kUriSchemeEntryPoint));
  if (loaded.factory == nullptr) {
    loaded.error = path + " exports no " + kHtmlBrowserEntryPoint;
    ::dlclose(handle);
  }
  return loaded;
}

LoadedLibrary const * gLoaded = nullptr;

}  // namespace

HtmlBrowserFactory GetHtmlBrowserFactory(std::string & error) {
  // The GUI thread alone makes views, so no lock.
  static LoadedLibrary const loaded = Load();
  gLoaded = &loaded;
  error = loaded.error;
  return loaded.factory;
}

UriSchemeRegistrar GetUriSchemeRegistrar(std::string & error) {
  std::string loadError;
  if (GetHtmlBrowserFactory(loadError) == nullptr) {
    error = loadError;
    return nullptr;
  }
  if (gLoaded->registrar == nullptr) error = std::string("no ") + kUriSchemeEntryPoint;
  return gLoaded->registrar;
}

bool IsHtmlBrowserLoaded() { return gLoaded != nullptr && gLoaded->factory != nullptr; }
