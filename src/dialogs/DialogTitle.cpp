#include "dialogs/DialogTitle.h"

#include "utl/VxSystemInfo.h"

wxString TitleOrApplicationName(wxString const & caption) {
  return caption.empty() ? wxString::FromUTF8(VxSystemInfo::GetApplicationName()) : caption;
}
