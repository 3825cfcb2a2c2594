#include "SampleAbout.h"

#include <wx/utils.h>
#include <wx/version.h>

#include "frame/AboutDialog.h"
#include "frame/VxAppCustomization.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

void PrepareSampleAbout(AboutDialog & dialog) {
  wxString details;
  details << vx3::Tr("Application") << ": "
          << wxString::FromUTF8(VxSystemInfo::GetApplicationName()) << " "
          << wxString::FromUTF8(VxSystemInfo::GetApplicationVersionAndBuild()) << "\n"
          << vx3::Tr("Toolkit") << ": " << wxVERSION_STRING << "\n"
          << vx3::Tr("System") << ": " << wxGetOsDescription() << "\n";
  std::string const & package = VxAppCustomization::Instance()->GetPackagePath();
  details << vx3::Tr("Customization package") << ": "
          << (package.empty() ? vx3::Tr("none") : wxString::FromUTF8(package)) << "\n";
  dialog.SetDetailsButtonText(vx3::Tr("About application", "&Details..."));
  dialog.SetDetailsText(details.wc_str());
}
