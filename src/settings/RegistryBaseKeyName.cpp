#include "settings/RegistryBaseKeyName.h"

#include <boost/format.hpp>

#include "utl/VxSystemInfo.h"

std::string GetRegistryBaseKeyName() {
  std::string const profile = (boost::format("%1%\\%2%") % VxSystemInfo::GetApplicationName() %
                               VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionPath))
                                  .str();
  return (boost::format("SOFTWARE\\%1%\\%2%") % "Karvinel" % profile).str();
}
