// talvo-reg: the registry hives from the command line.
//
//   talvo-reg list [HIVE] [KEY]   every key below KEY (default: the whole hive)
//                                 with its values; HIVE is HKEY_CURRENT_USER
//                                 (the default), HKEY_LOCAL_MACHINE,
//                                 HKEY_CLASSES_ROOT or HKCU, HKLM, HKCR
//   talvo-reg export FILE KEY     KEY (e.g. HKCU\Software\Karvinel) and all
//                                 below it into FILE, in the .reg form
//   talvo-reg import FILE         what FILE says, as one transaction: a
//                                 malformed file is refused with its line
//                                 number, and nothing changes
//   talvo-reg --help | --version
//
// Exit code 0 on success, 1 on failure (the file or key and the reason on
// stderr), 2 for a wrong command line (the usage on stderr). The
// hives are where the library finds them (TALVO_REGISTRY_USER_HIVE and
// TALVO_REGISTRY_SYSTEM_HIVE move them).
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "platform/RegFile.h"
#include "platform/RegFileExport.h"
#include "platform/RegFileImport.h"
#include "platform/RegistryErrorText.h"
#include "platform/RegistryNotices.h"
#include "platform/RegistryStore.h"
#include "utl/Utf.h"
#include "utl/WholeFile.h"

namespace {

int const kFailure = 1;
int const kUsage = 2;

void Tell(std::string const & text) { std::fprintf(stderr, "talvo-reg: %s\n", text.c_str()); }
void Tell(ExceptionMessage const & message) { Tell(message.ToString(std::locale())); }

constexpr char kUsageText[] =
    "usage: talvo-reg list [HIVE] [KEY]\n"
    "       talvo-reg export FILE KEY\n"
    "       talvo-reg import FILE\n"
    "       talvo-reg --help | --version\n"
    "HIVE: HKEY_CURRENT_USER (HKCU), HKEY_LOCAL_MACHINE (HKLM), HKEY_CLASSES_ROOT (HKCR)\n";

int Usage() {
  std::fputs(kUsageText, stderr);
  return kUsage;
}

// "HKCU\Software\X" as root and path; false when it starts with no root.
bool SplitKey(std::string const & text, HKEY & root, std::wstring & path) {
  size_t const separator = text.find('\\');
  root = registry::RegFileRoot(text.substr(0, separator));
  path = separator == std::string::npos ? L"" : vx3::Utf8ToWide(text.substr(separator + 1));
  return root != nullptr;
}

std::string TypeName(DWORD type) {
  static char const * const names[] = {"REG_NONE",
                                       "REG_SZ",
                                       "REG_EXPAND_SZ",
                                       "REG_BINARY",
                                       "REG_DWORD",
                                       "REG_DWORD_BIG_ENDIAN",
                                       "REG_LINK",
                                       "REG_MULTI_SZ",
                                       "REG_RESOURCE_LIST",
                                       "REG_FULL_RESOURCE_DESCRIPTOR",
                                       "REG_RESOURCE_REQUIREMENTS_LIST",
                                       "REG_QWORD"};
  if (type < std::size(names)) return names[type];
  char text[16];
  std::snprintf(text, sizeof text, "0x%x", static_cast<unsigned>(type));
  return text;
}

std::wstring WideOf(std::string const & bytes) {
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  return text;
}

// The data as `reg query` shows it.
std::string Display(registry::StoredValue const & value) {
  char text[32];
  switch (value.type) {
    case REG_SZ:
    case REG_EXPAND_SZ: {
      std::wstring const wide = WideOf(value.data);
      return vx3::WideToUtf8(wide.substr(0, wide.find(L'\0')));
    }
    case REG_MULTI_SZ: {
      std::wstring wide = WideOf(value.data);
      while (!wide.empty() && wide.back() == L'\0') wide.pop_back();
      std::string shown;
      for (wchar_t c : wide) shown += c == L'\0' ? "\\0" : vx3::WideToUtf8(std::wstring(1, c));
      return shown;
    }
    case REG_DWORD:
    case REG_QWORD:
      if (value.data.size() == (value.type == REG_DWORD ? 4u : 8u)) {
        uint64_t number = 0;
        std::memcpy(&number, value.data.data(), value.data.size());
        std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(number));
        return text;
      }
      [[fallthrough]];
    default: {
      std::string shown;
      for (char byte : value.data) {
        std::snprintf(text, sizeof text, "%02X", static_cast<unsigned char>(byte));
        shown += text;
      }
      return shown;
    }
  }
}

int List(HKEY root, std::wstring const & path) {
  std::string top = registry::RegFileRootName(root);
  if (!path.empty()) top += "\\" + vx3::WideToUtf8(path);
  LONG const rc = registry::WalkKeyTree(
      root, path, top,
      [](std::string const & name, std::vector<registry::StoredValue> const & values) {
        std::printf("%s\n", name.c_str());
        for (registry::StoredValue const & value : values) {
          std::printf("    %s    %s    %s\n", value.name.empty() ? "(Default)" : value.name.c_str(),
                      TypeName(value.type).c_str(), Display(value).c_str());
        }
        std::printf("\n");
        return true;
      });
  if (rc == ERROR_SUCCESS) return 0;
  char const * why = registry::ErrorText(rc);
  Tell(ExceptionMessage::translate("The key {1} cannot be listed: {2} (system error {3}).") % top %
       (why != nullptr ? ExceptionMessage::translate(why).ToString(std::locale()) : "") %
       static_cast<int>(rc));
  return kFailure;
}

int Export(std::string const & file, std::string const & keyText) {
  HKEY root = nullptr;
  std::wstring path;
  if (!SplitKey(keyText, root, path)) return Usage();
  std::string text;
  ExceptionMessage error;
  if (!registry::ExportRegFile(root, path, text, error)) {
    Tell(ExceptionMessage::translate("{1}: {2}") % file % error.ToString(std::locale()));
    return kFailure;
  }
  if (!registry::SaveRegFile(file, text, error)) {
    Tell(error);
    return kFailure;
  }
  return 0;
}

int Import(std::string const & file) {
  std::string bytes;
  if (int const code = vx3::ReadFileBytes(file, bytes)) {
    Tell(ExceptionMessage::translate("The file {1} cannot be read: {2}.") % file %
         std::string(std::strerror(code)));
    return kFailure;
  }
  ExceptionMessage error;
  if (!registry::ImportRegFile(bytes, error)) {
    Tell(ExceptionMessage::translate("{1}: {2}") % file % error.ToString(std::locale()));
    return kFailure;
  }
  return 0;
}

int Run(std::vector<std::string> const & args) {
  if (args.empty()) return Usage();
  std::string const & command = args[0];
  if (command == "--help" && args.size() == 1) {
    std::fputs(kUsageText, stdout);
    return 0;
  }
  if (command == "--version" && args.size() == 1) {
    std::printf("talvo-reg %s\n", TALVO_PROJECT_VERSION);
    return 0;
  }
  if (command == "list" && args.size() <= 3) {
    HKEY root = HKEY_CURRENT_USER;
    std::wstring path;
    if (args.size() >= 2 && !SplitKey(args[1], root, path)) return Usage();
    if (args.size() == 3) {
      if (!path.empty()) return Usage();
      path = vx3::Utf8ToWide(args[2]);
    }
    return List(root, path);
  }
  if (command == "export" && args.size() == 3) return Export(args[1], args[2]);
  if (command == "import" && args.size() == 2) return Import(args[1]);
  return Usage();
}

}  // namespace

int main(int argc, char ** argv) {
  int const result = Run(std::vector<std::string>(argv + 1, argv + argc));
  for (ExceptionMessage const & notice : registry::TakeNotices()) Tell(notice);
  return result;
}
