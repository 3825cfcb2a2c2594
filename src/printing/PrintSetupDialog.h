#pragma once
// The print setup: the desktop's page setup dialog over the printer
// defaults (paper, orientation), behind a replaceable function so that
// tests answer it. Returns a Windows id: IDOK when the user accepted, and
// then `data` holds the choice; IDCANCEL otherwise, `data` untouched.

#include <functional>

class wxPrintData;
class wxWindow;

using PrintSetupDialogFunction = std::function<int(wxWindow * parent, wxPrintData & data)>;

int RunPrintSetupDialog(wxWindow * parent, wxPrintData & data);
// Installs `function` (empty: the desktop's dialog) and returns the former.
PrintSetupDialogFunction SetPrintSetupDialogFunction(PrintSetupDialogFunction function);
