#pragma once
// The sample application's main window: menu bar, status bar and a page
// that names what the library shows here.

#include <wx/frame.h>

#include <utility>

#include "SampleCalculation.h"

class MainFrame : public wxFrame {
public:
  // The family's about command (ID_APP_ABOUT), handled by the application.
  static constexpr int kAboutCommand = 57664;

  MainFrame();

  // What Tools > Run calculation runs; the sample's own unless replaced.
  void SetCalculationPlan(CalculationPlan plan) { mCalculation = std::move(plan); }

private:
  void BuildMenus();
  void BuildPage();
  void OnExit(wxCommandEvent & event);
  void OnRunCalculation(wxCommandEvent & event);

  class RunListPanel * mRuns = nullptr;
  CalculationPlan mCalculation;
};
