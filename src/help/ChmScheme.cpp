#include "help/ChmScheme.h"

#include <cstring>

#include "help/ChmAddress.h"
#include "html/HtmlBrowserModule.h"
#include "utl/Log.h"

namespace {

class Server : public UriSchemeServer {
public:
  bool Serve(std::string const & uri, std::string & bytes, std::string & mimeType,
             std::string & error) override {
    return ChmScheme::Instance().Serve(uri, bytes, mimeType, error);
  }
};

}  // namespace

ChmScheme & ChmScheme::Instance() {
  static ChmScheme instance;
  return instance;
}

void ChmScheme::Register(std::string const & chmPath) {
  std::lock_guard<std::mutex> const lock(mMutex);
  ++mEntries[chmPath].registrations;
}

void ChmScheme::Unregister(std::string const & chmPath) {
  std::lock_guard<std::mutex> const lock(mMutex);
  auto const found = mEntries.find(chmPath);
  if (found == mEntries.end()) return;
  if (--found->second.registrations <= 0) mEntries.erase(found);
}

bool ChmScheme::IsRegistered(std::string const & chmPath) const {
  std::lock_guard<std::mutex> const lock(mMutex);
  return mEntries.count(chmPath) != 0;
}

std::shared_ptr<ChmArchive> ChmScheme::ArchiveOf(std::string const & chmPath, ChmError & error) {
  std::lock_guard<std::mutex> const lock(mMutex);
  auto const found = mEntries.find(chmPath);
  if (found == mEntries.end()) {
    error = ChmError::NotFound;
    return nullptr;
  }
  if (!found->second.archive) {
    found->second.archive = ChmArchive::Open(chmPath, error);
    if (!found->second.archive) return nullptr;
  }
  error = ChmError::None;
  return found->second.archive;
}

bool ChmScheme::Serve(std::string const & url, std::string & bytes, std::string & mimeType,
                      std::string & error) {
  bytes.clear();
  std::string chmPath;
  std::string inner;
  if (!ParseChmAddress(url, chmPath, inner)) {
    error = "not found";
    return false;
  }
  ChmError result = ChmError::None;
  std::shared_ptr<ChmArchive> const archive = ArchiveOf(chmPath, result);
  if (archive) result = archive->Extract(inner, bytes);
  if (result != ChmError::None) {
    error = result == ChmError::NotFound ? "not found" : ChmErrorText(result);
    if (result != ChmError::NotFound)
      Log::WriteMessage("ChmScheme", "Serve", chmPath + ": " + error, Log::Notice, false);
    return false;
  }
  mimeType = ChmMimeType(inner);
  return true;
}

bool ChmScheme::InstallInBrowser() {
  static bool const installed = [] {
    std::string error;
    UriSchemeRegistrar const registrar = GetUriSchemeRegistrar(error);
    static Server server;
    if (registrar == nullptr || !registrar("its", &server)) {
      Log::WriteMessage("ChmScheme", "InstallInBrowser", "No its: scheme: " + error, Log::Error,
                        false);
      return false;
    }
    return true;
  }();
  return installed;
}

char const * ChmMimeType(std::string_view name) {
  static struct {
    char const * extension;
    char const * type;
  } const types[] = {
      {".htm", "text/html"},      {".html", "text/html"},   {".css", "text/css"},
      {".js", "text/javascript"}, {".png", "image/png"},    {".gif", "image/gif"},
      {".jpg", "image/jpeg"},     {".jpeg", "image/jpeg"},  {".svg", "image/svg+xml"},
      {".bmp", "image/bmp"},      {".ico", "image/x-icon"}, {".txt", "text/plain"},
      {".xml", "text/xml"},       {".hhc", "text/html"},    {".hhk", "text/html"},
  };
  auto const dot = name.rfind('.');
  if (dot != std::string_view::npos) {
    std::string extension(name.substr(dot));
    for (char & c : extension)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    for (auto const & t : types)
      if (extension == t.extension) return t.type;
  }
  return "application/octet-stream";
}
