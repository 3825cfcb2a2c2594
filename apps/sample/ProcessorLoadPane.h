#pragma once
// A status-bar pane of the sample that shows the machine's processor load
// once a second, and flags it when the monitor reports a load that stayed
// high (90 % or more for five samples).

#include <wx/stattext.h>
#include <wx/timer.h>

#include <atomic>
#include <memory>

class ProcessorMonitor;
class VxStatusBar;

class ProcessorLoadPane : public wxStaticText {
public:
  static constexpr unsigned int kPaneId = 1100;
  static constexpr int kValueLimit = 90;
  static constexpr int kHitLimit = 5;

  // Takes a monitor that is not yet started (tests give one on their own
  // samples) and starts it.
  ProcessorLoadPane(wxWindow * parent, std::unique_ptr<ProcessorMonitor> monitor);
  ~ProcessorLoadPane() override;

  // Shows the last sample and whether the load stayed high; the timer calls
  // it once a second.
  void ShowLoad();

private:
  // Runs on the monitor's thread: only sets the flag.
  static void OnHighLoad(ProcessorMonitor const * monitor, void * param);

  std::unique_ptr<ProcessorMonitor> m_monitor;
  std::atomic<bool> m_highLoad{false};
  wxTimer m_timer;
};

// Puts the pane into the main window's status bar.
void AddProcessorLoadPane(VxStatusBar & bar);
