// .reg files from anywhere through the parser and, when they parse, through
// the importer against hives of the fuzzer's own, as a dry run that takes
// every change back. Nothing may crash; a refusal always says why.
#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RegFile.h"
#include "platform/RegFileImport.h"
#include "platform/RegistryStore.h"

namespace {

std::string gFolder;

void RemoveHives() {
  registry::CloseHives();
  std::error_code ignored;
  std::filesystem::remove_all(gFolder, ignored);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  // Never the user's or the machine's hives.
  char const * tmp = getenv("TMPDIR");
  std::string pattern = std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-fuzz-reg.XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) abort();
  gFolder = pattern;
  setenv("TALVO_REGISTRY_USER_HIVE", (gFolder + "/user.db").c_str(), 1);
  setenv("TALVO_REGISTRY_SYSTEM_HIVE", (gFolder + "/system.db").c_str(), 1);
  atexit(RemoveHives);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const bytes(reinterpret_cast<char const *>(data), size);
  std::vector<registry::RegFileEntry> entries;
  ExceptionMessage error;
  if (!registry::ParseRegFile(bytes, entries, error)) {
    if (error.IsEmpty() || !entries.empty()) __builtin_trap();
    return 0;
  }
  for (registry::RegFileEntry const & entry : entries)
    if (entry.line < 1 || entry.root == nullptr) __builtin_trap();
  ExceptionMessage importError;
  if (!registry::ImportRegFile(entries, importError, registry::ImportMode::DryRun) &&
      importError.IsEmpty())
    __builtin_trap();
  return 0;
}
