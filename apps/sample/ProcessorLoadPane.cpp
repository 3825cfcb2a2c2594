#include "ProcessorLoadPane.h"

#include <wx/settings.h>

#include "service/ProcessorMonitor.h"
#include "utl/Translation.h"
#include "work/VxStatusBar.h"

using vx3::Tr;

ProcessorLoadPane::ProcessorLoadPane(wxWindow * parent, std::unique_ptr<ProcessorMonitor> monitor)
    : wxStaticText(parent, wxID_ANY, wxString()), m_monitor(std::move(monitor)), m_timer(this) {
  ShowLoad();
  m_monitor->Init(kValueLimit, kHitLimit, &ProcessorLoadPane::OnHighLoad, this);
  Bind(wxEVT_TIMER, [this](wxTimerEvent &) { ShowLoad(); });
  m_timer.Start(1000);
}

ProcessorLoadPane::~ProcessorLoadPane() {
  m_timer.Stop();
  m_monitor.reset();  // joins the worker before the flag it writes goes away
}

void ProcessorLoadPane::OnHighLoad(ProcessorMonitor const *, void * param) {
  static_cast<ProcessorLoadPane *>(param)->m_highLoad.store(true);
}

void ProcessorLoadPane::ShowLoad() {
  int const value = m_monitor->GetLastValue();
  // The flag stays until the load falls below the limit again.
  if (value >= 0 && value < kValueLimit) m_highLoad.store(false);
  bool const high = m_highLoad.load();
  wxString text = value < 0 ? Tr("Status bar", "CPU: --") : Tr("Status bar", "CPU: %1%%");
  text.Replace("%1%", wxString::Format("%d", value));
  if (high) text += " " + Tr("Status bar", "(high load)");
  SetForegroundColour(high ? *wxRED : wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  SetLabel(text);
  SetToolTip(Tr("Status bar", "Processor load of the whole machine, sampled once a second"));
}

void AddProcessorLoadPane(VxStatusBar & bar) {
  auto * pane = new ProcessorLoadPane(&bar, std::make_unique<ProcessorMonitor>());
  bar.InsertWindow(pane, pane->GetTextExtent(Tr("Status bar", "CPU: 100% (high load)")).x + 8, 0,
                   ProcessorLoadPane::kPaneId);
}
