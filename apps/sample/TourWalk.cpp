#include "TourWalk.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <typeinfo>

#include <cxxabi.h>

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/statusbr.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include "SampleTour.h"
#include "audit/AuditTrailView.h"
#include "controls/WindowSnapshot.h"
#include "dialogs/NativeChoosers.h"
#include "frame/HandleExceptionPage.h"
#include "help/CHHCtrl.h"
#include "html/VxHtmlView.h"
#include "lists/FilterListCtrlPopupBar.h"
#include "platform/WinUser.h"
#include "printing/PrintDialog.h"

#include <gtk/gtk.h>

namespace {

using Clock = std::chrono::steady_clock;

wxString ClassOf(wxWindow const & window) {
  int status = 0;
  char * const name = abi::__cxa_demangle(typeid(window).name(), nullptr, nullptr, &status);
  wxString const readable = status == 0 ? wxString(name) : wxString(typeid(window).name());
  std::free(name);
  return readable;
}

// Runs the event loop for `ms` milliseconds, or until `done` holds.
template <typename Done>
bool PumpUntil(Done done, int ms) {
  auto const end = Clock::now() + std::chrono::milliseconds(ms);
  while (!done()) {
    if (Clock::now() > end) return false;
    if (wxEventLoopBase * loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_ALL);
    wxMilliSleep(10);
  }
  return true;
}

bool HasPages(wxWindow & window) {
  if (dynamic_cast<VxHtmlView const *>(&window) != nullptr) return true;
  if (dynamic_cast<AuditTrailView const *>(&window) != nullptr) return true;
  if (dynamic_cast<CHHCtrl const *>(&window) != nullptr) return true;
  for (wxWindow * child : window.GetChildren())
    if (!child->IsTopLevel() && HasPages(*child)) return true;
  return false;
}

// Whether the pages of `window`'s HTML views have come up.
bool PagesReady(wxWindow & window) {
  if (auto const * view = dynamic_cast<VxHtmlView const *>(&window))
    return view->GetPageState() == VxHtmlView::PageState::Ready && !view->IsPending();
  if (auto const * help = dynamic_cast<CHHCtrl const *>(&window)) return help->GetReadyState() == 4;
  if (auto const * audit = dynamic_cast<AuditTrailView const *>(&window))
    return !audit->IsBusy() && !audit->IsUpdatePending();
  for (wxWindow * child : window.GetChildren())
    if (!child->IsTopLevel() && !PagesReady(*child)) return false;
  return true;
}

class Walker : public wxModalDialogHook {
public:
  Walker(TourWalkResult & result, wxString const & folder) : mResult(result), mFolder(folder) {
    mSweep.Bind(wxEVT_TIMER, [this](wxTimerEvent &) { Sweep(); });
  }

  void Walk(wxFrame & frame) {
    Register();
    mFormerAssert = wxSetAssertHandler(&Walker::OnAssert);
    sCurrent = this;
    mFormerFiles = SetFileChooserFunction([this](FileChooserRequest const & request) {
      mResult.shots.push_back({mLink, request.open ? "file chooser (open)" : "file chooser (save)",
                               wxString(), wxString()});
      return FileChooserAnswer{};
    });
    mFormerFolders = SetFolderChooserFunction([this](FolderChooserRequest const &) {
      mResult.shots.push_back({mLink, "folder chooser", wxString(), wxString()});
      return FolderChooserAnswer{};
    });
    mFormerPrint = SetPrintDialogFunction([this](PRINTDLGW &) {
      mResult.shots.push_back({mLink, "print dialog", wxString(), wxString()});
      return IDCANCEL;
    });
    mSweep.Start(50);
    for (TourStop const & stop : TourStops()) {
      if (!stop.walked) continue;
      Visit(frame, stop);
    }
    mSweep.Stop();
    SetPrintDialogFunction(mFormerPrint);
    SetFolderChooserFunction(mFormerFolders);
    SetFileChooserFunction(mFormerFiles);
    sCurrent = nullptr;
    wxSetAssertHandler(mFormerAssert);
    Unregister();
  }

protected:
  int Enter(wxDialog * dialog) override {
    if (dynamic_cast<HandleExceptionPage *>(dialog) != nullptr)
      Fail("the internal-error dialog came up");
    mModal.push_back({dialog, Clock::now(), 0});
    return wxID_NONE;  // shown; Sweep pictures and cancels it
  }
  void Exit(wxDialog * dialog) override {
    mModal.erase(std::remove_if(mModal.begin(), mModal.end(),
                                [dialog](Open const & open) { return open.dialog == dialog; }),
                 mModal.end());
  }

private:
  struct Open {
    wxDialog * dialog;
    Clock::time_point since;
    int paintedTicks;
  };

  void Visit(wxFrame & frame, TourStop const & stop) {
    mLink = stop.link;
    mResult.walked.push_back(mLink);
    mShotsHere = 0;
    std::set<wxWindow *> shownBefore;
    for (wxWindow * window : wxTopLevelWindows)
      if (window->IsShown()) shownBefore.insert(window);
    size_t const shotsBefore = mResult.shots.size();
    wxString const statusBefore = frame.GetStatusBar() ? frame.GetStatusBar()->GetStatusText() : "";
    if (frame.GetStatusBar()) frame.SetStatusText(wxString());

    wxCommandEvent command(wxEVT_MENU, stop.command);
    command.SetEventObject(&frame);
    if (!frame.ProcessWindowEvent(command)) Fail("nobody handles the command");

    // Windows the command left open: pictured once painted, then closed,
    // the newest first (a dialog over its pane).
    auto opened = [&] {
      std::vector<wxWindow *> found;
      for (wxWindow * window : wxTopLevelWindows)
        if (window->IsShown() && shownBefore.count(window) == 0 && !window->IsBeingDeleted())
          found.push_back(window);
      return found;
    };
    bool const anyOpened = PumpUntil([&] { return !opened().empty(); }, 1000);
    if (anyOpened) {
      PumpUntil([&] { return false; }, 300);  // the window manager maps, the first paints come
      std::vector<wxWindow *> windows = opened();
      bool pages = false;
      for (wxWindow * window : windows) {
        pages = pages || HasPages(*window);
        PumpUntil([window] { return PagesReady(*window); }, 10000);
      }
      if (pages) PumpUntil([&] { return false; }, 500);  // the web process paints after the load
      std::reverse(windows.begin(), windows.end());
      for (wxWindow * window : windows) {
        Picture(*window);
        window->Close(true);
      }
      // Gone for good before the next stop, which may look for them.
      auto settled = [&] {
        for (wxWindow * window : windows) {
          bool const listed = std::find(wxTopLevelWindows.begin(), wxTopLevelWindows.end(),
                                        window) != wxTopLevelWindows.end();
          // A destroyed window leaves the list at once but lives on, a
          // child of its owner, until the next idle time.
          if (wxPendingDelete.Member(window)) return false;
          if (listed && (window->IsShown() || window->IsBeingDeleted())) return false;
        }
        return true;
      };
      if (!PumpUntil(settled, 2000))
        for (wxWindow * window : opened()) window->Destroy();
      PumpUntil(settled, 2000);
    }
    bool const statusSaid = frame.GetStatusBar() && !frame.GetStatusBar()->GetStatusText().empty();
    if (mResult.shots.size() == shotsBefore && !statusSaid)
      Fail("the command showed nothing and said nothing");
    if (frame.GetStatusBar() && !statusSaid) frame.SetStatusText(statusBefore);
  }

  // The top modal dialog, once painted a few rounds, is pictured and
  // cancelled; the run picker's popup too.
  void Sweep() {
    if (FilterListCtrlPopupBar * bar = FilterListCtrlPopupBar::GetOpen()) {
      if (bar->IsShownOnScreen() && ++mPopupTicks > 4) {
        mPopupTicks = 0;
        Picture(*bar);
        bar->Cancel();
      }
      return;
    }
    if (mModal.empty()) return;
    Open & top = mModal.back();
    if (gtk_widget_get_mapped(top.dialog->GetHandle()) != 0) ++top.paintedTicks;
    bool const late = Clock::now() - top.since > std::chrono::seconds(10);
    if (top.paintedTicks < 5 && !late) return;
    // The web process paints some time after the page's load.
    if (!PagesReady(*top.dialog) && !late) {
      top.paintedTicks = 0;
      return;
    }
    if (HasPages(*top.dialog) && top.paintedTicks < 15 && !late) return;
    wxDialog * const dialog = top.dialog;
    if (late) Fail(ClassOf(*dialog) + " never painted");
    Picture(*dialog);
    mModal.pop_back();  // Exit may not come before the next tick
    if (dialog->IsModal()) {
      dialog->EndModal(wxID_CANCEL);
    } else if (GTK_IS_DIALOG(dialog->GetHandle())) {
      // The toolkit's own message boxes and choosers run their own loop,
      // which only a response ends.
      gtk_dialog_response(GTK_DIALOG(dialog->GetHandle()), GTK_RESPONSE_CANCEL);
    }
  }

  void Picture(wxWindow & window) {
    window.Update();
    wxString const file =
        wxString::Format("%s/%02zu-%s-%d.png", mFolder, mResult.walked.size(), mLink, ++mShotsHere);
    auto * top = dynamic_cast<wxTopLevelWindow *>(&window);
    wxString const title = top != nullptr ? top->GetTitle() : wxString();
    if (!SaveWindowSnapshot(window, file)) {
      Fail("no picture of " + ClassOf(window));
      mResult.shots.push_back({mLink, ClassOf(window), title, wxString()});
      return;
    }
    mResult.shots.push_back({mLink, ClassOf(window), title, file});
  }

  void Fail(wxString const & what) { mResult.failures.push_back(wxString(mLink) + ": " + what); }

  static void OnAssert(wxString const & file, int line, wxString const & func,
                       wxString const & cond, wxString const & msg) {
    if (sCurrent != nullptr)
      sCurrent->Fail(
          wxString::Format("wx assertion \"%s\" in %s (%s:%d) %s", cond, func, file, line, msg));
  }

  static Walker * sCurrent;
  TourWalkResult & mResult;
  wxString mFolder;
  std::string mLink;
  int mShotsHere = 0;
  int mPopupTicks = 0;
  std::vector<Open> mModal;
  wxTimer mSweep;
  wxAssertHandler_t mFormerAssert = nullptr;
  FileChooserFunction mFormerFiles;
  FolderChooserFunction mFormerFolders;
  PrintDialogFunction mFormerPrint;
};

Walker * Walker::sCurrent = nullptr;

}  // namespace

TourWalkResult WalkTour(wxFrame & frame, wxString const & folder) {
  TourWalkResult result;
  Walker walker(result, folder);
  walker.Walk(frame);
  return result;
}
