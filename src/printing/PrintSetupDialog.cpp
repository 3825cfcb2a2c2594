#include "printing/PrintSetupDialog.h"

#include <wx/cmndata.h>
#include <wx/printdlg.h>

#include "platform/WinUser.h"

namespace {

PrintSetupDialogFunction & CurrentFunction() {
  static PrintSetupDialogFunction function;
  return function;
}

int DesktopPageSetup(wxWindow * parent, wxPrintData & data) {
  wxPageSetupDialogData setup(data);
  wxPageSetupDialog dialog(parent, &setup);
  if (dialog.ShowModal() != wxID_OK) return IDCANCEL;
  data = dialog.GetPageSetupDialogData().GetPrintData();
  return IDOK;
}

}  // namespace

int RunPrintSetupDialog(wxWindow * parent, wxPrintData & data) {
  auto const & function = CurrentFunction();
  return function ? function(parent, data) : DesktopPageSetup(parent, data);
}

PrintSetupDialogFunction SetPrintSetupDialogFunction(PrintSetupDialogFunction function) {
  std::swap(function, CurrentFunction());
  return function;
}
