#include "printing/PrintFooter.h"

#include <ctime>

#include <boost/format.hpp>

#include "utl/VxSystemInfo.h"
#include "utl/VxTimeUtl.h"

std::string MakePrintFooter(char const * text) {
  std::string footer = (boost::format("%1% %2% - ") % VxSystemInfo::GetApplicationName() %
                        VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionDisplay))
                           .str();
  if (text != nullptr && *text != '\0') {
    footer += text;
    footer += " - ";
  }
  footer += (boost::format("%1% (UTC%2$+g)") % VxTimeUtl::FormatLocal(std::time(nullptr), "%x %X") %
             (VxTimeUtl::GetUtcOffset() / 3600.0))
                .str();
  return footer;
}
