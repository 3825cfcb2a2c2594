// Work on a worker thread behind the waiting dialog: the close handshake
// (work done before the dialog is up, keys and the close box dead while it
// runs), the work's exception at the caller in its own class, the cancel
// button, the caption; and the barber pole's shades and stripes.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <atomic>
#include <cstring>
#include <future>
#include <stdexcept>

#include <boost/function.hpp>
#include <boost/locale/encoding_errors.hpp>

#include "controls/IndeterminateProgressCtrl.h"
#include "dialogs/ExecuteWithProgress.h"
#include "dialogs/ProgressDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/SysColor.h"
#include "platform/WinUser.h"
#include "utl/Exception.h"
#include "utl/ExceptionMessage.h"

namespace {

class CalibrationFailed : public Exception {
public:
  using Exception::Exception;
};

TEST(ExecuteWithProgress, WorkDoneBeforeTheDialogIsUpStillEndsIt) {
  ModalDialogScript script;
  script.Act([](wxDialog &) {});  // looks on; the worker ends the dialog
  int runs = 0;
  ExecuteWithProgress([&runs] { ++runs; }, nullptr, nullptr);
  EXPECT_EQ(runs, 1);
  ASSERT_EQ(script.Shown().size(), 1U);
  EXPECT_EQ(script.Shown()[0].title, "Please wait") << "no title: the template's caption";
}

TEST(ExecuteWithProgress, KeysAndTheCloseBoxAreDeadWhileTheWorkRuns) {
  std::promise<void> release;
  std::shared_future<void> const released = release.get_future().share();
  bool stayed = false;
  wxString caption;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    caption = d.GetTitle();
    gui_test::PressKey(d, WXK_ESCAPE);
    gui_test::PressKey(d, WXK_RETURN);
    d.Close();  // the close box
    gui_test::Flush();
    stayed = d.IsModal();
    release.set_value();
  });
  ExecuteWithProgress([released] { released.wait(); }, "Fitting \xC3\xBC runs", nullptr);
  EXPECT_TRUE(stayed);
  EXPECT_EQ(caption, wxString::FromUTF8("Fitting \xC3\xBC runs"));
}

TEST(ExecuteWithProgress, TheWorksExceptionReachesTheCallerInItsOwnClass) {
  ModalDialogScript script;
  script.Act([](wxDialog &) {});
  try {
    ExecuteWithProgress(
        [] {
          throw CalibrationFailed(ExceptionMessage::translate("The reference run is missing."));
        },
        "Fit", nullptr);
    ADD_FAILURE() << "nothing thrown";
  } catch (CalibrationFailed const & failure) {
    EXPECT_EQ(failure.Why(), "The reference run is missing.");
  }
  script.Act([](wxDialog &) {});
  try {
    ExecuteWithProgress(boost::function<void()>(), "Fit", nullptr);
    ADD_FAILURE() << "nothing thrown";
  } catch (boost::bad_function_call const & failure) {
    EXPECT_STREQ(failure.what(), "call to empty boost::function");
  }
  // A title that is no UTF-8 stops before any dialog or thread.
  EXPECT_THROW(ExecuteWithProgress([] {}, "bad \xFF title", nullptr),
               boost::locale::conv::conversion_error);
  EXPECT_EQ(script.Shown().size(), 2U);
}

TEST(ExecuteWithProgress, CancelCallsItsFunctionEachTimeAndTheWorkEndsTheDialog) {
  std::atomic<int> cancels{0};
  int heightWithout = 0;
  int heightWith = 0;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) { heightWithout = d.GetClientSize().y; });
  ExecuteWithProgress([] {}, "Fit", nullptr);
  script.Act([&](wxDialog & d) {
    heightWith = d.GetClientSize().y;
    auto & dialog = dynamic_cast<ProgressDialog &>(d);
    wxWindow * button = dialog.GetDlgItem(ProgressDialog::kCancelButton);
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->IsShown() && button->IsEnabled());
    gui_test::Click(d, ProgressDialog::kCancelButton);
    EXPECT_TRUE(d.IsModal()) << "Cancel only asks the work to stop";
    gui_test::Click(d, ProgressDialog::kCancelButton);
  });
  ExecuteWithProgress(
      [&cancels] {
        while (cancels < 2) std::this_thread::yield();
      },
      [&cancels] { ++cancels; }, "Fit", nullptr);
  EXPECT_EQ(cancels, 2);
  EXPECT_EQ(heightWith, heightWithout + 30) << "taller by the button";
}

TEST(IndeterminateProgressCtrl, ShadesStepBy51AndStripesLeanRightEvery25Pixels) {
  EXPECT_EQ(IndeterminateProgressCtrl::Shift(wxColour(40, 128, 250), 51), wxColour(91, 179, 255));
  EXPECT_EQ(IndeterminateProgressCtrl::Shift(wxColour(40, 128, 250), -51), wxColour(0, 77, 199));

  wxFrame frame(nullptr, wxID_ANY, "bar");
  auto * bar = new IndeterminateProgressCtrl(&frame, wxID_ANY, wxPoint(0, 0), wxSize(300, 20));
  wxBitmap bitmap(300, 20, 24);
  auto draw = [&] {
    wxMemoryDC dc(bitmap);
    bar->Draw(dc, wxSize(300, 20));
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
  };
  wxColour const base = GetSysColour(COLOR_HIGHLIGHT);
  auto shade = [&base](int steps) {
    wxColour colour = base;
    for (int i = 0; i < std::abs(steps); ++i)
      colour = IndeterminateProgressCtrl::Shift(colour, steps < 0 ? -51 : 51);
    return colour;
  };
  wxImage image = draw();
  auto at = [&image](int x, int y) {
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
  };
  // Position 0: the second stripe starts at x 9 on the top row.
  int const expected[] = {-2, -1, 0, 1, 2, 3, 2, 1, 0, -1};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(at(1 + i, 0), shade(expected[i])) << "x " << 1 + i;
  EXPECT_EQ(at(11, 0), shade(3)) << "between stripes: the background";
  EXPECT_EQ(at(1 + 25, 0), shade(-2)) << "the next stripe";
  EXPECT_EQ(at(1 + 5, 5), shade(-2)) << "leaning right: one pixel a row";

  for (int step = 0; step < 26; ++step) bar->Step();
  EXPECT_EQ(bar->GetPosition(), 1) << "25 steps go round";
  image = draw();
  EXPECT_EQ(at(2, 0), shade(-2));

  // Narrower than a period: still two stripes.
  wxBitmap narrow(20, 10, 24);
  {
    wxMemoryDC dc(narrow);
    bar->Draw(dc, wxSize(20, 10));
  }
  image = narrow.ConvertToImage();
  int darkest = 0;
  for (int x = 0; x < 20; ++x) darkest += at(x, 0) == shade(-2) ? 1 : 0;
  EXPECT_GE(darkest, 1);
}

// The bar's pictures, made once for each position, against the lines drawn
// one by one as the bar's algorithm states them: sizes narrower than a
// period, taller than a stripe is wide, and widths that end mid-stripe.
TEST(IndeterminateProgressCtrl, FramesMatchTheLinesDrawnOneByOne) {
  wxFrame frame(nullptr, wxID_ANY, "bar");
  auto * bar = new IndeterminateProgressCtrl(&frame, wxID_ANY, wxPoint(0, 0), wxSize(300, 20));
  wxColour const base = GetSysColour(COLOR_HIGHLIGHT);
  wxColour const dark1 = IndeterminateProgressCtrl::Shift(base, -51);
  wxColour const light1 = IndeterminateProgressCtrl::Shift(base, 51);
  wxColour const light2 = IndeterminateProgressCtrl::Shift(light1, 51);
  wxColour const background = IndeterminateProgressCtrl::Shift(light2, 51);
  struct Line {
    int offset;
    wxColour colour;
  } const lines[] = {{-8, IndeterminateProgressCtrl::Shift(dark1, -51)},
                     {-7, dark1},
                     {-6, base},
                     {-5, light1},
                     {-4, light2},
                     {-2, light2},
                     {-1, light1},
                     {0, base},
                     {1, dark1}};
  auto reference = [&](wxSize size, int position) {
    wxImage image(size);
    image.SetRGB(wxRect(size), background.Red(), background.Green(), background.Blue());
    int const h = size.y + 1;
    int const x0 = position - 25 + h + 9;
    for (int i = 0; i < size.x / 25 + 2; ++i) {
      int const d = x0 + 25 * i - h;
      for (Line const & line : lines)
        for (int y = 0; y < size.y; ++y)  // (d + o, 0) to (d + o + h - 1, bottom), end excluded
          if (int const x = d + line.offset + y; x >= 0 && x < size.x)
            image.SetRGB(x, y, line.colour.Red(), line.colour.Green(), line.colour.Blue());
    }
    return image;
  };
  for (wxSize const size : {wxSize(300, 20), wxSize(20, 10), wxSize(324, 41), wxSize(1, 1)}) {
    for (int step = 0; step < 25; ++step) {
      SCOPED_TRACE(testing::Message() << size.x << " x " << size.y << " at " << bar->GetPosition());
      wxBitmap bitmap(size, 24);
      {
        wxMemoryDC dc(bitmap);
        bar->Draw(dc, size);
      }
      wxImage const drawn = bitmap.ConvertToImage();
      wxImage const expected = reference(size, bar->GetPosition());
      ASSERT_EQ(std::memcmp(drawn.GetData(), expected.GetData(),
                            static_cast<size_t>(size.x) * static_cast<size_t>(size.y) * 3),
                0);
      bar->Step();
    }
  }
}

}  // namespace
