#pragma once
// The sample's "Tools > Service..." dialog: installs, removes, starts, stops
// and asks about the sample service (talvo-sample-service, beside the
// sample) through the service manager: the user's own manager, unless the
// sample runs as root. Each answer shows with the state's text or the last
// error's.

#include <wx/dialog.h>

class wxMenu;
class wxTextCtrl;

class ServiceDialog : public wxDialog {
public:
  enum Button { kInstall = 100, kUninstall, kStart, kStop, kStatus };

  explicit ServiceDialog(wxWindow * parent);

  // Runs one button's operation and adds its answer to the log.
  void Run(Button button);
  wxString GetLog() const;
  wxString ServiceName() const;

private:
  wxTextCtrl * mName = nullptr;
  wxTextCtrl * mLog = nullptr;
};

// Appends "Service..." to `menu`; `frame` handles it.
void AddServiceCommand(wxMenu & menu, wxWindow & frame);
