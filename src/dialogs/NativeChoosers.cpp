#include "dialogs/NativeChoosers.h"

#include <utility>

#include <gtk/gtk.h>
#include <wx/dirdlg.h>
#include <wx/filedlg.h>

namespace {

FileChooserFunction & FileFunction() {
  static FileChooserFunction function;
  return function;
}

FolderChooserFunction & FolderFunction() {
  static FolderChooserFunction function;
  return function;
}

// wx offers no label for the chooser's accept button; GTK does.
void SetAcceptLabel(wxFileDialog & dialog, wxString const & label) {
  if (label.empty()) return;
  GtkWidget * widget = dialog.GetHandle();
  if (widget == nullptr || !GTK_IS_DIALOG(widget)) return;
  GtkWidget * button = gtk_dialog_get_widget_for_response(GTK_DIALOG(widget), GTK_RESPONSE_ACCEPT);
  if (button == nullptr || !GTK_IS_BUTTON(button)) return;
  // Windows marks the access key with "&", GTK with "_".
  wxString text = label;
  text.Replace("_", "__");
  text.Replace("&&", wxString(wxUniChar(1)));
  text.Replace("&", "_");
  text.Replace(wxString(wxUniChar(1)), "&");
  gtk_button_set_use_underline(GTK_BUTTON(button), TRUE);
  gtk_button_set_label(GTK_BUTTON(button), text.utf8_str().data());
}

}  // namespace

FileChooserAnswer RunFileChooser(FileChooserRequest const & request) {
  FileChooserFunction const function = FileFunction();  // may replace itself
  return function ? function(request) : NativeFileChooser(request);
}

FolderChooserAnswer RunFolderChooser(FolderChooserRequest const & request) {
  FolderChooserFunction const function = FolderFunction();
  return function ? function(request) : NativeFolderChooser(request);
}

FileChooserFunction SetFileChooserFunction(FileChooserFunction function) {
  return std::exchange(FileFunction(), std::move(function));
}

FolderChooserFunction SetFolderChooserFunction(FolderChooserFunction function) {
  return std::exchange(FolderFunction(), std::move(function));
}

FileChooserAnswer NativeFileChooser(FileChooserRequest const & request) {
  long style = request.open ? wxFD_OPEN : wxFD_SAVE;
  if (request.open && request.multiple) style |= wxFD_MULTIPLE;
  if (request.open && request.fileMustExist) style |= wxFD_FILE_MUST_EXIST;
  if (!request.open && request.overwritePrompt) style |= wxFD_OVERWRITE_PROMPT;
  wxString const wildcard = request.wildcard.empty() ? wxString("*") : request.wildcard;
  wxFileDialog dialog(request.parent,
                      request.title.empty() ? wxString(wxFileSelectorPromptStr) : request.title,
                      request.initialFolder, request.fileName, wildcard, style);
  if (request.filterIndex > 0) dialog.SetFilterIndex(request.filterIndex);
  SetAcceptLabel(dialog, request.acceptLabel);

  FileChooserAnswer answer;
  answer.accepted = dialog.ShowModal() == wxID_OK;
  if (!answer.accepted) return answer;
  wxArrayString paths;
  if (style & wxFD_MULTIPLE) {
    dialog.GetPaths(paths);
  } else {
    paths.push_back(dialog.GetPath());
  }
  for (wxString const & path : paths) {
    if (!path.empty()) answer.paths.push_back(path);
  }
  answer.accepted = !answer.paths.empty();
  answer.filterIndex = dialog.GetFilterIndex();
  return answer;
}

FolderChooserAnswer NativeFolderChooser(FolderChooserRequest const & request) {
  wxDirDialog dialog(request.parent,
                     request.title.empty() ? wxString(wxDirSelectorPromptStr) : request.title,
                     request.initialFolder, wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
  FolderChooserAnswer answer;
  if (dialog.ShowModal() != wxID_OK) return answer;
  answer.path = dialog.GetPath();
  answer.accepted = !answer.path.empty();
  return answer;
}
