#include "service/ServiceUnit.h"

#include <systemd/sd-bus.h>
#include <systemd/sd-login.h>

#include <cstdlib>
#include <mutex>

#include "utl/Utf.h"

namespace VxService {

namespace {

constexpr size_t kMaxServiceNameCharacters = 256;
constexpr size_t kMaxUnitNameBytes = 255;

std::mutex gSeamMutex;
UnitLookup gUnitLookup;
ManagerState::Query gStateQuery;

bool IsUnitCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ':' ||
         c == '_' || c == '.';
}

std::string ManagerUnit() {
  char * unit = nullptr;
  std::string result;
  if (::sd_pid_get_user_unit(0, &unit) >= 0 && unit != nullptr) {
    result = unit;
  } else {
    std::free(unit);
    unit = nullptr;
    if (::sd_pid_get_unit(0, &unit) >= 0 && unit != nullptr) result = unit;
  }
  std::free(unit);
  return result;
}

}  // namespace

bool IsValidServiceName(std::wstring const & name) {
  if (name.empty() || name.size() > kMaxServiceNameCharacters) return false;
  for (wchar_t const c : name) {
    auto const code = static_cast<unsigned long>(c);
    if (c == L'/' || c == L'\\' || code < 0x20 || code == 0x7F || (code >= 0x80 && code < 0xA0) ||
        (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF)
      return false;
  }
  return UnitNameOf(name).size() <= kMaxUnitNameBytes;
}

std::string EscapeUnitName(std::string const & name) {
  static char const kHex[] = "0123456789abcdef";
  std::string result;
  result.reserve(name.size());
  for (size_t i = 0; i < name.size(); ++i) {
    char const c = name[i];
    if (c == '/') {
      result += '-';
    } else if (IsUnitCharacter(c) && !(i == 0 && c == '.')) {
      result += c;
    } else {
      auto const byte = static_cast<unsigned char>(c);
      result += "\\x";
      result += kHex[byte >> 4];
      result += kHex[byte & 15];
    }
  }
  return result;
}

std::string UnitNameOf(std::wstring const & serviceName) {
  return EscapeUnitName(vx3::WideToUtf8(serviceName)) + ".service";
}

std::string OwnUnit() {
  UnitLookup lookup;
  {
    std::lock_guard<std::mutex> lock(gSeamMutex);
    lookup = gUnitLookup;
  }
  return lookup ? lookup() : ManagerUnit();
}

UnitLookup SetUnitLookup(UnitLookup lookup) {
  std::lock_guard<std::mutex> lock(gSeamMutex);
  std::swap(gUnitLookup, lookup);
  return lookup;
}

struct ManagerState::Bus {
  sd_bus * bus = nullptr;
  Query query;
};

ManagerState::ManagerState() : mBus(new Bus) {
  {
    std::lock_guard<std::mutex> lock(gSeamMutex);
    mBus->query = gStateQuery;
  }
  if (mBus->query) return;
  // A service of a user's manager asks that manager; others the system's.
  char * unit = nullptr;
  bool const userUnit = ::sd_pid_get_user_unit(0, &unit) >= 0;
  std::free(unit);
  int const opened = userUnit ? ::sd_bus_open_user(&mBus->bus) : ::sd_bus_open_system(&mBus->bus);
  if (opened < 0) mBus->bus = nullptr;
}

ManagerState::~ManagerState() {
  if (mBus->bus != nullptr) ::sd_bus_flush_close_unref(mBus->bus);
  delete mBus;
}

bool ManagerState::IsStopping() {
  if (mBus->query) return mBus->query() == "stopping";
  if (mBus->bus == nullptr) return false;
  char * state = nullptr;
  int const got = ::sd_bus_get_property_string(
      mBus->bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
      "org.freedesktop.systemd1.Manager", "SystemState", nullptr, &state);
  bool const stopping = got >= 0 && state != nullptr && std::string(state) == "stopping";
  std::free(state);
  return stopping;
}

void ManagerState::SetQuery(Query query) {
  std::lock_guard<std::mutex> lock(gSeamMutex);
  gStateQuery = std::move(query);
}

}  // namespace VxService
