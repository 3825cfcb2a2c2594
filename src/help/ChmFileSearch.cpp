#include "help/ChmFileSearch.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

#include "frame/KnownFolders.h"
#include "platform/MessageBoxes.h"
#include "platform/WinReg.h"
#include "platform/WinUser.h"
#include "utl/Paths.h"
#include "utl/Utf.h"

namespace {

bool IsFile(std::string const & path) {
  struct stat info {};
  return !path.empty() && ::stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

std::string Joined(std::string const & folder, std::string const & base) {
  if (folder.empty()) return {};
  return folder.back() == '/' ? folder + base : folder + "/" + base;
}

std::string Absolute(std::string const & path) {
  if (!path.empty() && path[0] == '/') return path;
  char buffer[PATH_MAX];
  if (::getcwd(buffer, sizeof buffer) == nullptr) return path;
  return Joined(buffer, path);
}

// A string value of the system-wide registry; empty when absent.
std::string MachineValue(wchar_t const * key, std::string const & name) {
  HKEY handle = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, key, 0, KEY_QUERY_VALUE, &handle) != ERROR_SUCCESS)
    return {};
  std::wstring const wideName = vx3::Utf8ToWide(name);
  DWORD type = 0;
  DWORD size = 0;
  std::string value;
  if (RegQueryValueExW(handle, wideName.c_str(), nullptr, &type, nullptr, &size) == ERROR_SUCCESS &&
      (type == REG_SZ || type == REG_EXPAND_SZ) && size > 0) {
    std::vector<wchar_t> buffer(size / sizeof(wchar_t) + 1, L'\0');
    if (RegQueryValueExW(handle, wideName.c_str(), nullptr, &type,
                         reinterpret_cast<BYTE *>(buffer.data()), &size) == ERROR_SUCCESS)
      value = vx3::WideToUtf8(buffer.data());
  }
  RegCloseKey(handle);
  return value;
}

std::string ReadText(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string_view Trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
    s.remove_suffix(1);
  return s;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    if (fold(a[i]) != fold(b[i])) return false;
  }
  return true;
}

}  // namespace

bool ReadHhIniFilesEntry(std::string_view ini, std::string_view key, std::string & value) {
  bool inFiles = false;
  while (!ini.empty()) {
    auto const end = ini.find('\n');
    std::string_view const line = Trimmed(ini.substr(0, end));
    ini = end == std::string_view::npos ? std::string_view() : ini.substr(end + 1);
    if (line.empty() || line[0] == ';') continue;
    if (line.front() == '[') {
      auto const close = line.find(']');
      inFiles = close != std::string_view::npos &&
                EqualNoCase(Trimmed(line.substr(1, close - 1)), "files");
      continue;
    }
    if (!inFiles) continue;
    auto const eq = line.find('=');
    if (eq == std::string_view::npos) continue;
    if (!EqualNoCase(Trimmed(line.substr(0, eq)), key)) continue;
    value = std::string(Trimmed(line.substr(eq + 1)));
    return true;
  }
  return false;
}

ChmFileSearchPlaces CurrentChmFileSearchPlaces() {
  ChmFileSearchPlaces places;
  char buffer[PATH_MAX];
  ssize_t const n = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  if (n > 0)
    places.programFolder = VxGetDirectory(std::string(buffer, static_cast<std::size_t>(n)));
  if (::getcwd(buffer, sizeof buffer) != nullptr) places.currentFolder = buffer;
  char const * const dataDirs = std::getenv("XDG_DATA_DIRS");
  std::string first = dataDirs != nullptr ? dataDirs : "";
  first = first.substr(0, first.find(':'));
  places.sharedFolderFallback = !first.empty() && first[0] == '/' ? first : "/usr/local/share";
  std::string const common = vx3::CommonDataFolder();
  if (!common.empty()) places.hhIniPath = Joined(common, "hh.ini");
  places.ask = [](std::string const & prompt) {
    return AfxMessageBox(wxString::FromUTF8(prompt), MB_OKCANCEL | MB_ICONSTOP);
  };
  return places;
}

bool FindChmFile(std::string const & name, std::string & result) {
  return FindChmFile(name, result, CurrentChmFileSearchPlaces());
}

bool FindChmFile(std::string const & name, std::string & result,
                 ChmFileSearchPlaces const & places) {
  if (name.empty()) return false;
  if (IsFile(name)) {
    result = Absolute(name);
    return true;
  }
  std::string const base = name.substr(name.find_last_of("/\\") + 1);
  if (base.empty()) return false;
  std::string const programCopy = Joined(places.programFolder, base);
  if (IsFile(programCopy)) {
    result = programCopy;
    return true;
  }
  std::string const currentCopy = Joined(places.currentFolder, base);
  if (IsFile(currentCopy)) {
    result = currentCopy;
    return true;
  }
  std::string const registered = Joined(MachineValue(kChmFolderKey, base), base);
  if (IsFile(registered)) {
    result = registered;
    return true;
  }
  std::string shared = MachineValue(kSharedFolderKey, "SharedDir");
  if (shared.empty()) shared = places.sharedFolderFallback;
  std::string const sharedCopy = Joined(Joined(shared, "help"), base);
  if (IsFile(sharedCopy)) {
    result = sharedCopy;
    return true;
  }
  std::string entry;
  if (places.hhIniPath.empty() || !ReadHhIniFilesEntry(ReadText(places.hhIniPath), base, entry))
    return false;
  if (entry.size() < 2) return false;
  auto const comma = entry.find(',');
  std::string const path = entry.substr(0, comma);
  std::string const prompt = comma == std::string::npos ? std::string() : entry.substr(comma + 1);
  result = path;
  if (IsFile(path)) return true;
  if (prompt.empty() || !places.ask) return false;
  while (places.ask(prompt) == IDOK) {
    if (IsFile(path)) break;
  }
  return true;
}
