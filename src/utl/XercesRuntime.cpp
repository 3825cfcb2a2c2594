#include "utl/XercesRuntime.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

#include <exception>
#include <future>
#include <mutex>

#include "utl/Exception.h"

namespace vx3 {

void EnsureXercesInitialized() {
  static std::once_flag once;
  // call_once runs the function again on the next call if it threw, so a
  // failed start is retried rather than remembered.
  std::call_once(once, [] {
    try {
      xercesc::XMLPlatformUtils::Initialize();
    } catch (xercesc::XMLException const &) {
      throw Exception(ExceptionMessage::translate("The XML parser could not be initialised."));
    }
  });
}

void StartXercesInitialization() {
  static std::once_flag started;
  std::call_once(started, [] {
    // The future lives to the end of the process; its destructor waits for
    // the worker, so no thread is left running during static destruction.
    static std::future<void> worker = std::async(std::launch::async, [] {
      try {
        EnsureXercesInitialized();
      } catch (...) {
        // The next EnsureXercesInitialized tries again and reports it.
      }
    });
  });
}

}  // namespace vx3
