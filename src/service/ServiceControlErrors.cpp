#include "service/ServiceControlErrors.h"

#include <cstring>

namespace VxService {

namespace {

struct Entry {
  char const * function;  // the system function
  unsigned long code;
  char const * text;
};

// Texts as the service control has always written them; the two 1053 texts
// differ by their final full stop on purpose.
Entry const kEntries[] = {
    {"OpenSCManager", 5, "The requested access was denied"},
    {"OpenSCManager", 87, "A specified parameter is invalid"},
    {"OpenSCManager", 1065, "The specified database does not exist."},
    {"CloseServiceHandle", 6, "The specified handle is invalid"},
    {"CreateService", 5,
     "The handle to the specified service control manager database does not have "
     "SC_MANAGER_CREATE_SERVICE access"},
    {"CreateService", 6, "The handle to the specified service control manager database is invalid"},
    {"CreateService", 52,
     "The display name already exists in the service control manager database either as a service "
     "name or as another display name"},
    {"CreateService", 87, "A parameter that was specified is invalid"},
    {"CreateService", 123, "The specified service name is invalid"},
    {"CreateService", 1057,
     "The user account name specified in the lpServiceStartName parameter does not exist"},
    {"CreateService", 1059, "A circular service dependency was specified"},
    {"CreateService", 1073, "The specified service already exists in this database"},
    {"DeleteService", 5, "The specified handle was not opened with DELETE access"},
    {"DeleteService", 6, "The specified handle is invalid"},
    {"DeleteService", 1072, "The specified service has already been marked for deletion"},
    {"OpenService", 5,
     "The specified service control manager database handle does not have access to the service"},
    {"OpenService", 6, "The specified handle is invalid"},
    {"OpenService", 123, "The specified service name is invalid"},
    {"OpenService", 1060, "The specified service does not exist"},
    {"StartService", 3, "The service binary file could not be found"},
    {"StartService", 5, "The specified handle was not opened with SERVICE_START access"},
    {"StartService", 6, "The specified handle is invalid"},
    {"StartService", 1053,
     "The process for the service was started, but it did not call StartServiceCtrlDispatcher, or "
     "the thread that called StartServiceCtrlDispatcher may be blocked in a control handler "
     "function."},
    {"StartService", 1054, "A thread could not be created for the service"},
    {"StartService", 1055, "The database is locked"},
    {"StartService", 1056, "An instance of the service is already running"},
    {"StartService", 1058, "The service has been disabled"},
    {"StartService", 1068, "The service depends on another service that has failed to start"},
    {"StartService", 1069,
     "The service could not be logged on. This error occurs if the service was started from an "
     "account that does not have the \"Log on as a service\" right"},
    {"StartService", 1072, "The service has been marked for deletion"},
    {"StartService", 1075,
     "The service depends on a service that does not exist or has been marked for deletion"},
    {"QueryServiceStatus", 5,
     "The specified handle was not opened with SERVICE_QUERY_STATUS access"},
    {"QueryServiceStatus", 6, "The specified handle is invalid"},
    {"ControlService", 5, "The specified handle was not opened with the necessary access"},
    {"ControlService", 6,
     "The specified handle was not obtained using CreateService or OpenService, or the handle is "
     "no "
     "longer valid"},
    {"ControlService", 87, "The requested control code is undefined"},
    {"ControlService", 1051,
     "The service cannot be stopped because other running services are dependent on it"},
    {"ControlService", 1052,
     "The requested control code is not valid, or it is unacceptable to the service"},
    {"ControlService", 1053,
     "The process for the service was started, but it did not call StartServiceCtrlDispatcher, or "
     "the thread that called StartServiceCtrlDispatcher may be blocked in a control handler "
     "function"},
    {"ControlService", 1061,
     "The requested control code cannot be sent to the service because the state of the service is "
     "SERVICE_STOPPED, SERVICE_START_PENDING, or SERVICE_STOP_PENDING"},
    {"ControlService", 1062, "The service has not been started"},
    {"ControlService", 1115, "The system is shutting down"},
};

}  // namespace

char const * SystemFunctionOf(char const * operation) {
  static char const * const kFunctions[][2] = {
      {"OpenSCM", "OpenSCManager"},           {"CloseSCM", "CloseServiceHandle"},
      {"CloseService", "CloseServiceHandle"}, {"CreateServiceW", "CreateService"},
      {"DeleteService", "DeleteService"},     {"OpenServiceW", "OpenService"},
      {"StartServiceW", "StartService"},      {"QueryService", "QueryServiceStatus"},
      {"ControlService", "ControlService"},   {"StopService", "ControlService"},
      {"GetFileName", "GetModuleFileName"},
  };
  for (auto const & pair : kFunctions)
    if (std::strcmp(operation, pair[0]) == 0) return pair[1];
  return nullptr;
}

char const * ServiceControlErrorText(char const * operation, unsigned long code) {
  char const * const function = SystemFunctionOf(operation);
  if (function == nullptr) return nullptr;
  for (auto const & entry : kEntries)
    if (entry.code == code && std::strcmp(entry.function, function) == 0) return entry.text;
  return nullptr;
}

}  // namespace VxService
