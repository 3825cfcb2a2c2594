#include "platform/RegFileImport.h"

#include "platform/RegistryErrorText.h"
#include "platform/RegistryTransaction.h"

namespace registry {

namespace {

std::string Describe(LONG code) {
  char const * text = ErrorText(code);
  return text != nullptr ? ExceptionMessage::translate(text).ToString(std::locale()) : "";
}

}  // namespace

bool ImportRegFile(std::vector<RegFileEntry> const & entries, ExceptionMessage & error,
                   ImportMode mode) {
  RegistryTransaction transaction;
  HKEY current = nullptr;  // the key of the last key line
  auto const closeCurrent = [&] {
    if (current != nullptr) RegCloseKey(current);
    current = nullptr;
  };
  for (RegFileEntry const & entry : entries) {
    LONG rc = ERROR_SUCCESS;
    auto const * data = reinterpret_cast<BYTE const *>(entry.data.data());
    switch (entry.kind) {
      case RegFileEntry::Key:
        closeCurrent();
        rc = RegCreateKeyExW(entry.root, entry.path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                             KEY_ALL_ACCESS, nullptr, &current, nullptr);
        break;
      case RegFileEntry::DeleteKey:
        closeCurrent();
        rc = RegDeleteTreeW(entry.root, entry.path.c_str());
        if (rc == ERROR_FILE_NOT_FOUND) rc = ERROR_SUCCESS;  // nothing to remove
        break;
      case RegFileEntry::Value:
        rc = RegSetValueExW(current, entry.name.c_str(), 0, entry.type, data,
                            static_cast<DWORD>(entry.data.size()));
        break;
      case RegFileEntry::DeleteValue:
        rc = RegDeleteValueW(current, entry.name.c_str());
        if (rc == ERROR_FILE_NOT_FOUND) rc = ERROR_SUCCESS;
        break;
    }
    if (rc != ERROR_SUCCESS) {
      closeCurrent();
      error = ExceptionMessage::translate(
                  "Line {1}: the change could not be made: {2} (system error {3}). Nothing "
                  "was imported.") %
              entry.line % Describe(rc) % static_cast<int>(rc);
      return false;
    }
  }
  closeCurrent();
  if (mode == ImportMode::DryRun) return true;  // the transaction's end takes all back
  LONG const committed = transaction.Commit();
  if (committed == ERROR_SUCCESS) return true;
  error = ExceptionMessage::translate(
              "The changes could not be committed: {1} (system error {2}). Nothing was "
              "imported.") %
          Describe(committed) % static_cast<int>(committed);
  return false;
}

bool ImportRegFile(std::string_view bytes, ExceptionMessage & error, ImportMode mode) {
  std::vector<RegFileEntry> entries;
  return ParseRegFile(bytes, entries, error) && ImportRegFile(entries, error, mode);
}

}  // namespace registry
