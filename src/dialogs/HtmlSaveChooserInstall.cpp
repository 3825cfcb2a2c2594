// The HTML views save through the family's file dialog, which opens in the
// export folder it remembers.
#include "dialogs/VxFileDialog.h"
#include "html/HtmlSaveChooser.h"
#include "platform/CommDlg.h"
#include "platform/WinUser.h"

namespace {

HtmlSaveAnswer SaveWithFileDialog(HtmlSaveRequest const & request) {
  std::wstring const extension = request.defaultExtension.ToStdWstring();
  std::wstring const name = request.fileName.ToStdWstring();
  std::wstring const filter = request.filter.ToStdWstring();
  VxFileDialog dialog(VxFileDialog::eExportDir, 0, extension.c_str(), name.c_str(),
                      OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, filter.c_str(), request.parent);
  HtmlSaveAnswer answer;
  answer.accepted = dialog.DoModal() == IDOK;
  if (answer.accepted) {
    answer.path = dialog.GetPathName();
    answer.title = dialog.GetFileTitle();
  }
  return answer;
}

struct Install {
  Install() { SetHtmlSaveChooser(&SaveWithFileDialog); }
} const kInstall;

}  // namespace
