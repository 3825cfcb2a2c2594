#include "service/ServiceErrorText.h"

#include <cwctype>

#include "platform/RegistryErrorText.h"
#include "platform/WinTypes.h"
#include "utl/Translation.h"

namespace {

// The codes that services and their control meet beyond the registry's.
char const * ServiceCodeText(unsigned long code) {
  switch (code) {
    case 0: return "The operation completed successfully.";
    case 3: return "The system cannot find the path specified.";
    case 13: return "The data is invalid.";
    case 31: return "A device attached to the system is not functioning.";
    case 50: return "The request is not supported.";
    case 123: return "The filename, directory name, or volume label syntax is incorrect.";
    case 1051:
      return "A stop control has been sent to a service that other running services are dependent "
             "on.";
    case 1052: return "The requested control is not valid for this service.";
    case 1053:
      return "The service did not respond to the start or control request in a timely fashion.";
    case 1054: return "A thread could not be created for the service.";
    case 1055: return "The service database is locked.";
    case 1056: return "An instance of the service is already running.";
    case 1057:
      return "The account name is invalid or does not exist, or the password is invalid for the "
             "account name specified.";
    case 1058:
      return "The service cannot be started, either because it is disabled or because it has no "
             "enabled devices associated with it.";
    case 1060: return "The specified service does not exist as an installed service.";
    case 1061: return "The service cannot accept control messages at this time.";
    case 1062: return "The service has not been started.";
    case 1063: return "The service process could not connect to the service controller.";
    case 1066: return "The service has returned a service-specific error code.";
    case 1068: return "The dependency service or group failed to start.";
    case 1072: return "The specified service has been marked for deletion.";
    case 1073: return "The specified service already exists.";
    case 1115: return "A system shutdown is in progress.";
    default: return nullptr;
  }
}

}  // namespace

namespace VxService {

std::string GetErrorText(unsigned long code) {
  char const * text = ServiceCodeText(code);
  if (text == nullptr && code <= 0x7FFFFFFFul) text = registry::ErrorText(static_cast<LONG>(code));
  std::string result = vx3::Tr(text != nullptr ? text : "Unknown error.").utf8_string();
  while (!result.empty() && std::iswspace(static_cast<unsigned char>(result.back())))
    result.pop_back();
  return result;
}

}  // namespace VxService
