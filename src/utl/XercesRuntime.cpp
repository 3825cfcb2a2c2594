#include "utl/XercesRuntime.h"

#include <future>
#include <mutex>

#include "utl/XmlModule.h"

namespace vx3 {

void EnsureXercesInitialized() { GetXmlModule().StartParser(); }

void StartXercesInitialization() {
  static std::once_flag started;
  std::call_once(started, [] {
    // The future lives to the end of the process; its destructor waits for
    // the worker, so no thread is left running during static destruction.
    static std::future<void> worker = std::async(std::launch::async, [] {
      try {
        EnsureXercesInitialized();
      } catch (...) {
        // The next use of XML tries again and reports it.
      }
    });
  });
}

}  // namespace vx3
