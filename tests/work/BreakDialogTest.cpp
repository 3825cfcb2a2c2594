// The break dialog as Progress drives it, with a main frame of its own: the
// show delay, the question and its answers, the spinner's pace, the faces
// and the paintings. Timers are driven by calling their handlers.
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include "MainFrameTest.h"
#include "harness/GuiTestUtilities.h"
#include "pictures/ArtTestFiles.h"
#include "work/BreakConfirmWindow.h"
#include "work/BreakDialog.h"
#include "work/BreakSpinnerThread.h"
#include "work/Progress.h"
#include "work/ProgressArt.h"
#include "work/Spinner.h"
#include "work/VxGauge.h"

namespace {

// Two painters in archives of the test's own: "Alpha & co" with five
// paintings and "Beta" with three.
void MakeArchives(std::string const & folder) {
  if (VxFileExist(VxPathAppend(folder, "a.vart"))) return;
  VxCreateFolder(folder);
  std::string const source = WriteJpeg("painting.jpg", 40, 30);
  std::string const portrait = WriteJpeg("portrait.jpg", 8, 9);
  CollectionInfo alpha = Painter("Alpha & co", {"A0", "A1", "A2", "A3", "A4"}, "alpha");
  SaveCollection(VxPathAppend(folder, "a.vart"), alpha, source, portrait);
  SaveCollection(VxPathAppend(folder, "b.vart"), Painter("Beta", {"B0", "B1", "B2"}, "beta"),
                 source, portrait);
}

class BreakDialogTest : public MainFrameTest {
protected:
  void SetUp() override {
    MainFrameTest::SetUp();
    std::string const folder = Temp("art");
    MakeArchives(folder);
    ProgressArt::Reload({folder});
    host().RestartPaintings();
  }
  static BreakSpinnerThread & host() { return BreakSpinnerThread::Host(); }
  static BreakDialog & dialog() { return *host().GetDialog(); }

  // A dialog progress as an operation makes it, with a delay no test waits for.
  static std::unique_ptr<Progress> Start(bool spin, bool gauge, wchar_t const * confirm = nullptr) {
    return std::make_unique<Progress>(nullptr, L"Summing the rows", 0.f, 10.f, spin, true, gauge,
                                      confirm, L"Sample", L"Halt", 60000);
  }

  // The painting on show, by its title.
  static wxString Shown() { return dialog().GetPaintingText().GetLabelText(); }
};

TEST_F(BreakDialogTest, ShowsOnlyAfterTheDelay) {
  EXPECT_EQ(host().GetDialog(), nullptr);  // nothing before the first operation
  wxWeakRef<BreakDialog> shortLived;
  {
    auto progress = Start(false, true);
    ASSERT_NE(host().GetDialog(), nullptr);
    shortLived = &dialog();
    EXPECT_EQ(dialog().GetProgress(), progress.get());
    EXPECT_TRUE(dialog().IsShowDelayRunning());
    EXPECT_FALSE(dialog().IsShown());
    EXPECT_EQ(dialog().GetTitle(), "Summing the rows");
    EXPECT_EQ(dialog().GetStopButton().GetLabel(), "Halt");
  }
  // A short operation ends before the delay: nothing was shown, and the
  // dialog goes with the operation.
  EXPECT_EQ(host().GetDialog(), nullptr);
  ASSERT_TRUE(shortLived);
  EXPECT_FALSE(shortLived->IsShown());
  EXPECT_FALSE(shortLived->IsShowDelayRunning());
  EXPECT_EQ(shortLived->GetProgress(), nullptr);
  gui_test::Flush();
  EXPECT_FALSE(shortLived);

  auto progress = Start(false, true);
  Progress::Show();  // before the delay: at once, and the delay is over
  EXPECT_TRUE(dialog().IsShown());
  EXPECT_FALSE(dialog().IsShowDelayRunning());
  progress->SetInfoStr(L"Summing the columns");
  EXPECT_EQ(dialog().GetTitle(), "Summing the columns");
  progress->Set(4);
  EXPECT_FLOAT_EQ(dialog().GetGauge().GetValue(), 4);
  EXPECT_FLOAT_EQ(dialog().GetGauge().GetHigh(), 10);
  Progress::Hide();
  EXPECT_FALSE(dialog().IsShown());
  EXPECT_EQ(Progress::GetBreakWindow(), &dialog());  // shows it again
  EXPECT_TRUE(dialog().IsShown());
  BreakDialog & ending = dialog();
  progress.reset();
  EXPECT_FALSE(ending.IsShown());
  ending.AskToStop();  // nothing is served now: the stop button asks nothing
  EXPECT_FALSE(ending.IsConfirmShown());
}

TEST_F(BreakDialogTest, AnswersToTheQuestion) {
  for (bool const yes : {false, true}) {
    SCOPED_TRACE(yes ? "Yes" : "No");
    auto progress = Start(false, true, L"Stop summing?");
    dialog().OnShowDelayElapsed();
    dialog().AskToStop();
    BreakConfirmWindow * const confirm = dialog().GetConfirmWindow();
    ASSERT_NE(confirm, nullptr);
    EXPECT_TRUE(confirm->IsShown());
    EXPECT_TRUE(dialog().IsConfirming());
    EXPECT_EQ(confirm->GetQuestion(), "Stop summing?");
    EXPECT_EQ(confirm->GetTitle(), "Sample");
    // The operation goes on while the user thinks.
    EXPECT_TRUE(progress->Set(5));
    dialog().AskToStop();  // a second press only raises the question
    EXPECT_TRUE(dialog().IsConfirming());

    confirm->Answer(yes);
    EXPECT_FALSE(confirm->IsShown());
    EXPECT_FALSE(dialog().IsConfirming());
    EXPECT_EQ(progress->Set(6), !yes);
    EXPECT_EQ(progress->IsBreakPressed(), yes);
    EXPECT_EQ(dialog().GetStopButton().IsEnabled(), !yes);
    EXPECT_EQ(dialog().GetGauge().GetCaption(), yes ? "Breaking..." : "");
  }
  // The next operation starts afresh.
  auto progress = Start(false, true);
  EXPECT_TRUE(dialog().GetStopButton().IsEnabled());
  EXPECT_EQ(dialog().GetGauge().GetCaption(), "");
  EXPECT_TRUE(progress->Set(1));
}

TEST_F(BreakDialogTest, CloseBoxAsksAndTheApplicationsCloseEndsTheDialog) {
  auto progress = Start(false, false);
  dialog().OnShowDelayElapsed();
  EXPECT_FALSE(dialog().Close());
  EXPECT_TRUE(dialog().IsConfirming());
  dialog().GetConfirmWindow()->Answer(false);
  EXPECT_TRUE(progress->Set(1));
  // The application closes all windows: the operation goes on without.
  EXPECT_TRUE(dialog().Close(true));
  EXPECT_EQ(host().GetDialog(), nullptr);
  EXPECT_TRUE(progress->Set(2));
  progress.reset();
  progress = Start(false, false);
  ASSERT_NE(host().GetDialog(), nullptr);
  EXPECT_EQ(dialog().GetProgress(), progress.get());
}

TEST_F(BreakDialogTest, FacesFollowTheOperationAndTheArt) {
  struct Case {
    bool spin, gauge;
    int preferred;
    BreakDialogFace face;
  };
  for (Case const & c :
       {Case{true, true, 0, BreakDialogFace::kSpinner},  // art never with a spinner
        Case{false, true, 0, BreakDialogFace::kArt}, Case{false, false, 1, BreakDialogFace::kArt},
        Case{false, true, -1, BreakDialogFace::kPlain}}) {
    ProgressArt::SetPreferedArtist(c.preferred);
    auto progress = Start(c.spin, c.gauge);
    dialog().OnShowDelayElapsed();
    gui_test::Flush();
    EXPECT_EQ(dialog().GetFace(), c.face) << c.spin << c.gauge << c.preferred;
    EXPECT_EQ(dialog().GetGauge().IsShown(), c.gauge);
    EXPECT_EQ(dialog().GetSpinner().IsShown(), c.face == BreakDialogFace::kSpinner);
    EXPECT_EQ(dialog().GetArtistText().IsShown(), c.face == BreakDialogFace::kArt);
    EXPECT_EQ(dialog().IsArtTimerRunning(), c.face == BreakDialogFace::kArt);
    // Every control inside the dialog.
    wxRect const client(dialog().GetClientSize());
    for (wxWindow * child : dialog().GetChildren())
      if (child->IsShown()) {
        EXPECT_TRUE(client.Contains(child->GetRect())) << child->GetId();
      }
  }
}

TEST_F(BreakDialogTest, PaintingsComeInShuffledOrderAndContinueAcrossOperations) {
  // Each draw takes the last place left: the order stays 0, 1, 2, ...
  host().RestartPaintings(ProgressArtShow([](uint32_t bound) { return bound - 1; }));
  ProgressArt::SetPreferedArtist(0);
  std::vector<wxString> seen;
  {
    auto progress = Start(false, true);
    dialog().OnShowDelayElapsed();
    seen.push_back(Shown());
    EXPECT_EQ(dialog().GetArtistText().GetLabelText(), "Alpha & co\nAlpha & co lived");
    dialog().OnNextPictureTime();
    seen.push_back(Shown());
  }
  {
    // The same artist: the next operation goes on where the last one stood.
    auto progress = Start(false, true);
    EXPECT_EQ(Shown(), seen.back());
    for (int i = 0; i < 3; ++i) {
      dialog().OnNextPictureTime();
      seen.push_back(Shown());
    }
    dialog().OnNextPictureTime();  // round the order: the first again
    EXPECT_EQ(Shown(), seen.front());
  }
  EXPECT_EQ(seen, (std::vector<wxString>{"A0", "A1", "A2", "A3", "A4"}));

  // Another artist: its own paintings in an order of its own.
  ProgressArt::SetPreferedArtist(1);
  auto progress = Start(false, true);
  std::set<wxString> other;
  for (int i = 0; i < 3; ++i) {
    other.insert(Shown());
    dialog().OnNextPictureTime();
  }
  EXPECT_EQ(other, (std::set<wxString>{"B0", "B1", "B2"}));
  EXPECT_EQ(dialog().GetArtistText().GetLabelText(), "Beta\nBeta lived");
}

TEST_F(BreakDialogTest, SpinnerStepsAtMostOnceIn251Milliseconds) {
  auto progress = Start(true, false);
  Spinner & spinner = dialog().GetSpinner();
  std::uint32_t now = 0xFFFFFF00u;  // the clock wraps on the way
  spinner.SetClock([&now] { return now; });
  spinner.Rest();
  EXPECT_EQ(spinner.GetFrame(), Spinner::kRestFrame);
  std::vector<int> frames;
  for (int i = 0; i < 8; ++i) {
    now += 250;
    progress->NextSpin();  // too early: no turn
    EXPECT_EQ(spinner.GetFrame(), frames.empty() ? Spinner::kRestFrame : frames.back());
    now += 1;
    progress->NextSpin();
    frames.push_back(spinner.GetFrame());
  }
  EXPECT_EQ(frames, (std::vector<int>{0, 1, 2, 3, 4, 5, 0, 1}));
  progress->SpinDone();
  EXPECT_EQ(spinner.GetFrame(), Spinner::kRestFrame);
  now += 251;
  progress->NextSpin();
  EXPECT_EQ(spinner.GetFrame(), 0);  // from rest to the first frame
}

}  // namespace
