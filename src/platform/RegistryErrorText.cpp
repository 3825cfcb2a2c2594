#include "platform/RegistryErrorText.h"

#include "platform/WinError.h"

namespace registry {

char const * ErrorText(LONG code) {
  switch (code) {
    case ERROR_SUCCESS: return "The operation completed successfully.";
    case ERROR_FILE_NOT_FOUND: return "The system cannot find the file specified.";
    case ERROR_ACCESS_DENIED: return "Access is denied.";
    case ERROR_INVALID_HANDLE: return "The handle is invalid.";
    case ERROR_NOT_ENOUGH_MEMORY:
      return "Not enough memory resources are available to process this command.";
    case ERROR_INVALID_PARAMETER: return "The parameter is incorrect.";
    case ERROR_BAD_PATHNAME: return "The specified path is invalid.";
    case ERROR_BUSY: return "The requested resource is in use.";
    case ERROR_MORE_DATA: return "More data is available.";
    case ERROR_CANCELLED: return "The operation was canceled by the user.";
    case ERROR_NO_MORE_ITEMS: return "No more data is available.";
    case ERROR_NOACCESS: return "Invalid access to memory location.";
    case ERROR_BADDB: return "The configuration registry database is corrupt.";
    case ERROR_BADKEY: return "The configuration registry key is invalid.";
    case ERROR_CANTOPEN: return "The configuration registry key could not be opened.";
    case ERROR_CANTREAD: return "The configuration registry key could not be read.";
    case ERROR_CANTWRITE: return "The configuration registry key could not be written.";
    case ERROR_REGISTRY_IO_FAILED:
      return "An I/O operation initiated by the registry failed unrecoverably.";
    case ERROR_KEY_DELETED:
      return "Illegal operation attempted on a registry key that has been marked for deletion.";
    case ERROR_NO_SYSTEM_RESOURCES:
      return "Insufficient system resources exist to complete the requested service.";
    case ERROR_UNSUPPORTED_TYPE: return "Data of this type is not supported.";
    default: return nullptr;
  }
}

}  // namespace registry
