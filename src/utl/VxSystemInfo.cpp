#include "utl/VxSystemInfo.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>

namespace VxSystemInfo {

// A reserved domain (RFC 2606) under the library's own name: no vendor's.
char const kDefaultSupportPage[] = "https://talvoutlwin.example/support/internal-error";

namespace {

struct Identity {
  std::string name = "TALVOutlwin";
  std::array<unsigned long, 4> parts{0, 1, 0, 0};
  std::string supportPage = kDefaultSupportPage;
};

std::mutex gMutex;
Identity gIdentity;

Identity Current() {
  std::lock_guard<std::mutex> lock(gMutex);
  return gIdentity;
}

std::string Join(std::array<unsigned long, 4> const & parts, size_t count) {
  std::string text;
  for (size_t i = 0; i < count; ++i) {
    if (i > 0) text += '.';
    text += std::to_string(parts[i]);
  }
  return text;
}

}  // namespace

void SetApplication(std::string const & name, std::string const & version) {
  Identity identity;
  identity.name = name;
  identity.parts = {0, 0, 0, 0};
  size_t part = 0;
  size_t start = 0;
  while (part < identity.parts.size() && start <= version.size()) {
    size_t end = version.find('.', start);
    if (end == std::string::npos) end = version.size();
    std::string const piece = version.substr(start, end - start);
    char * stop = nullptr;
    unsigned long const value = std::strtoul(piece.c_str(), &stop, 10);
    bool const whole =
        !piece.empty() && stop != nullptr && *stop == '\0' && piece[0] != '-' && piece[0] != '+';
    identity.parts[part++] = whole ? value : 0;
    start = end + 1;
  }
  std::lock_guard<std::mutex> lock(gMutex);
  identity.supportPage = gIdentity.supportPage;
  gIdentity = identity;
}

std::string GetApplicationName() { return Current().name; }

std::string GetApplicationVersion(EVersionFormat format) {
  Identity const identity = Current();
  switch (format) {
    case VersionFull: return Join(identity.parts, 4);
    case VersionPath: return Join(identity.parts, 2);
    case VersionDisplay:
    default: return Join(identity.parts, 3);
  }
}

std::string GetApplicationVersionAndBuild() {
  Identity const identity = Current();
  return Join(identity.parts, 3) + " (build " + std::to_string(identity.parts[3]) + ")";
}

bool IsUsableSupportPage(std::string const & address) {
  size_t const scheme = address.rfind("https://", 0) == 0  ? 8
                        : address.rfind("http://", 0) == 0 ? 7
                                                           : 0;
  return scheme != 0 && address.size() > scheme &&
         std::none_of(address.begin(), address.end(),
                      [](char c) { return static_cast<unsigned char>(c) <= 0x20 || c == 0x7f; });
}

bool SetSupportPage(std::string const & address) {
  if (!IsUsableSupportPage(address)) return false;
  std::lock_guard<std::mutex> lock(gMutex);
  gIdentity.supportPage = address;
  return true;
}

std::string GetSupportPage() { return Current().supportPage; }

}  // namespace VxSystemInfo
