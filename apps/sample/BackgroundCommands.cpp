#include "BackgroundCommands.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include <atomic>
#include <memory>
#include <thread>

#include "SampleCommands.h"
#include "dialogs/ExecuteWithProgress.h"
#include "platform/WindowMessage.h"
#include "utl/Exception.h"
#include "utl/ExceptionMessage.h"
#include "utl/Translation.h"
#include "utl/UserComm.h"
#include "work/InThread.h"

using vx3::Tr;

namespace {

// The sum of 1/k^2 for k up to kTerms, which tends to pi^2/6: long enough
// (some tens of milliseconds) to be worth a thread, checking the stop flag
// between blocks of terms.
constexpr int kTerms = 20'000'000;
constexpr int kTermsBetweenChecks = 100'000;

float SumOfInverseSquares(bool const & stop) {
  double sum = 0;
  for (int k = kTerms; k >= 1; --k) {  // smallest terms first: less rounding
    if (k % kTermsBetweenChecks == 0 && stop) return 0;
    double const term = 1.0 / k;
    sum += term * term;
  }
  return static_cast<float>(sum);
}

void FailingWork() {
  // Some work first, so that the dialog is seen.
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  throw Exception(ExceptionMessage::translate("The reference run {1} is missing.") % "R-017");
}

// The result's thread and the window it reports to, alive as long as the
// frame's handlers.
class BackgroundResult {
public:
  explicit BackgroundResult(wxFrame & frame)
      : mFrame(frame), mThread(&SumOfInverseSquares, &frame, kBackgroundResultMessage) {}

  void Start() {
    mFrame.SetStatusText(Tr("Computing in the background..."));
    mThread.Start();  // a run still under way is stopped first
  }
  void OnMessage(WindowMessageEvent & event) {
    if (event.GetMessage() != kBackgroundResultMessage) {
      event.Skip();
      return;
    }
    mFrame.SetStatusText(DescribeBackgroundResult(mThread.get()));
  }

private:
  wxFrame & mFrame;
  InThread mThread;
};

}  // namespace

wxString RunInBackground(wxWindow * parent, BackgroundPlan const & plan) {
  std::atomic<bool> cancelled{false};
  std::atomic<int> done{0};
  ExecuteWithProgress(
      [&] {
        while (done < plan.slices && !cancelled) {
          std::this_thread::sleep_for(plan.slice);  // stands for a slice of the fit
          ++done;
        }
      },
      [&cancelled] { cancelled = true; }, "Fitting runs", parent);
  wxString text;
  if (done < plan.slices)
    text.Printf(Tr("Background run cancelled after %d of %d slices."), done.load(), plan.slices);
  else
    text.Printf(Tr("Background run finished: %d slices."), plan.slices);
  return text;
}

wxString DescribeBackgroundResult(float result) {
  return wxString::Format(Tr("Background result: %g"), static_cast<double>(result));
}

void AddBackgroundCommands(wxMenu & menu, wxFrame & frame) {
  menu.Append(kRunInBackgroundCommand, Tr("Menu command", "Run in &background"));
  menu.Append(kFailingBackgroundRunCommand, Tr("Menu command", "&Failing background run"));
  menu.Append(kBackgroundResultCommand, Tr("Menu command", "Background res&ult"));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { frame.SetStatusText(RunInBackground(&frame, {})); },
      kRunInBackgroundCommand);
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        try {
          ExecuteWithProgress(&FailingWork, "Checking runs", &frame);
          frame.SetStatusText(Tr("Background run finished."));
        } catch (Exception const & failure) {
          // Back on the main thread, in its own class.
          frame.SetStatusText(Tr("Background run failed."));
          UserComm::GetUserComm()->InformUser(failure.Messages(),
                                              ExceptionMessage::translate("Background run"), 0);
        }
      },
      kFailingBackgroundRunCommand);
  // Owned by the handlers: it goes (and stops its thread) with the frame.
  auto const result = std::make_shared<BackgroundResult>(frame);
  frame.Bind(
      wxEVT_MENU, [result](wxCommandEvent &) { result->Start(); }, kBackgroundResultCommand);
  frame.Bind(VX_EVT_WINDOW_MESSAGE,
             [result](WindowMessageEvent & event) { result->OnMessage(event); });
}
