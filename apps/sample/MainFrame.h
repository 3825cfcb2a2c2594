#pragma once
// The sample application's main window: menu bar, status bar and a page
// that names what the library shows here.

#include <wx/frame.h>

class MainFrame : public wxFrame {
public:
  // The family's about command (ID_APP_ABOUT).
  static constexpr int kAboutCommand = 57664;
  static constexpr int kRunCalculationCommand = wxID_HIGHEST + 1;

  MainFrame();

private:
  void BuildMenus();
  void BuildPage();
  void OnExit(wxCommandEvent & event);

  class RunListPanel * mRuns = nullptr;
};
