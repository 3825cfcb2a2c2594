// The event log as another account sees it, for EventLogTest.cpp:
//   eventlog_test_child create SOURCE   "created", or "refused <reason>"
//   eventlog_test_child sid             the user's SID ("-" when none)
#include <cstdio>
#include <cstring>

#include "service/EventLog.h"
#include "service/EventSource.h"
#include "service/VxSid.h"
#include "utl/Exception.h"
#include "utl/Utf.h"

int main(int argc, char ** argv) {
  if (argc == 3 && std::strcmp(argv[1], "create") == 0) {
    try {
      EventLog::CreateEventSource(vx3::Utf8ToWide(argv[2]).c_str(), L"Application");
      std::puts("created");
    } catch (Exception & e) {
      std::printf("refused %s\n", e.Why().c_str());
    }
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "sid") == 0) {
    std::string const sid = VxSid(nullptr).ToString();
    std::puts(sid.empty() ? "-" : sid.c_str());
    return 0;
  }
  return 2;
}
