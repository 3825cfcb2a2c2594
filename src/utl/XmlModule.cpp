#include "utl/XmlModule.h"

#include <dlfcn.h>

#include <atomic>
#include <mutex>

#include "utl/Exception.h"
#include "utl/Paths.h"

namespace vx3 {

namespace {

std::string LoaderError() {
  char const * reason = ::dlerror();
  return reason != nullptr ? reason : "unknown reason";
}

Exception NotLoaded(std::string const & path, std::string const & reason) {
  return Exception(ExceptionMessage::translate("The XML module {1} cannot be loaded: {2}") % path %
                   reason);
}

// Where the module stands when it is installed with this library: in the
// folder of the object that holds this code.
std::string ModuleBesideThisLibrary() {
  Dl_info info{};
  if (::dladdr(reinterpret_cast<void *>(&GetXmlModule), &info) == 0 || info.dli_fname == nullptr)
    return "";
  std::string const folder = VxGetDirectory(info.dli_fname);
  return folder.empty() ? "" : VxPathAppend(folder, kXmlModuleFileName);
}

}  // namespace

XmlModule & LoadXmlModule(std::string const & path) {
  // RTLD_LOCAL: Xerces and its libraries stay out of the global scope.
  void * handle = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw NotLoaded(path, LoaderError());
  using Entry = XmlModule * (*)();
  auto const entry = reinterpret_cast<Entry>(::dlsym(handle, kXmlModuleEntryPoint));
  XmlModule * module = entry != nullptr ? entry() : nullptr;
  if (module == nullptr) {
    std::string const reason = entry == nullptr
                                   ? "it exports no " + std::string(kXmlModuleEntryPoint)
                                   : std::string("it returned no module");
    ::dlclose(handle);
    throw NotLoaded(path, reason);
  }
  // Never closed: documents made by the module may live until the end.
  return *module;
}

XmlModule & GetXmlModule() {
  static std::atomic<XmlModule *> loaded{nullptr};
  static std::mutex mutex;
  if (XmlModule * module = loaded.load(std::memory_order_acquire)) return *module;
  std::lock_guard<std::mutex> const lock(mutex);
  if (loaded.load(std::memory_order_relaxed) == nullptr) {
    std::string const beside = ModuleBesideThisLibrary();
    loaded.store(
        &LoadXmlModule(!beside.empty() && VxFileExist(beside) ? beside : kXmlModuleFileName),
        std::memory_order_release);
  }
  return *loaded.load(std::memory_order_relaxed);
}

}  // namespace vx3
