#include "xml/XercesStart.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

#include <mutex>

#include "utl/Exception.h"

namespace vx3 {

void StartXerces() {
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

}  // namespace vx3
