// The exception guard on a real window: each class of failure stops at the
// window's edge in the internal-error box when its bit is set, and travels on
// unchanged when it is clear.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/frame.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/ExceptionGuarded.h"
#include "frame/HandleExceptionPage.h"
#include "frame/VxSystemException.h"
#include "harness/ModalDialogScript.h"
#include "platform/ExceptionsHandled.h"
#include "platform/InternalErrorReport.h"
#include "utl/Exception.h"

namespace {

using GuardedFrame = ExceptionGuarded<wxFrame>;

std::runtime_error const kPointee("thrown by pointer");

struct FailureCase {
  char const * name;
  int bit;
  std::function<void()> raise;
  std::string expectedText;
  // True when what arrives beyond a clear guard is the very failure raised.
  std::function<bool(std::exception_ptr)> isOriginal;
};

template <class T>
bool Holds(std::exception_ptr const & p) {
  try {
    std::rethrow_exception(p);
  } catch (T) {
    return true;
  } catch (...) {
    return false;
  }
}

std::vector<FailureCase> Cases() {
  return {
      {"Exception", kHandleException,
       [] { throw Exception(ExceptionMessage::translate("The file is locked.")); },
       "The file is locked.", Holds<Exception const &>},
      {"VxSystemException", kHandleException, [] { VxSETranslator(0xC0000005, nullptr); },
       "A system exception occurred: Memory access violation.", Holds<VxSystemException const &>},
      {"std::exception", kHandleStdException, [] { throw std::out_of_range("index 7"); }, "index 7",
       Holds<std::out_of_range const &>},
      {"std::exception const *", kHandleStdException, [] { throw &kPointee; }, "thrown by pointer",
       Holds<std::exception const *>},
      {"int", kHandleOtherExceptions, [] { throw 42; }, kUnknownExceptionText, Holds<int>},
  };
}

// A frame whose button handler raises `raise`, and the button's click as
// the child sends it up to the frame.
struct Fixture {
  explicit Fixture(std::function<void()> raise) {
    frame = new GuardedFrame(nullptr, wxID_ANY, "Guarded");
    button = new wxButton(frame, wxID_OK, "Go");
    frame->Bind(
        wxEVT_BUTTON, [raise = std::move(raise)](wxCommandEvent &) { raise(); }, wxID_OK);
  }
  ~Fixture() { frame->Destroy(); }
  bool Click() {
    wxCommandEvent click(wxEVT_BUTTON, wxID_OK);
    click.SetEventObject(button);
    return button->ProcessWindowEvent(click);
  }
  GuardedFrame * frame;
  wxButton * button;
};

// Clicks, and answers the internal-error dialog with Ignore; returns the
// detail text it was given.
std::string ClickAndIgnore(Fixture & f) {
  ModalDialogScript script;
  std::string detail = "(no dialog)";
  script.Act([&](wxDialog & d) {
    detail = dynamic_cast<HandleExceptionPage &>(d).GetDetailText();
    d.EndModal(HandleExceptionPage::kIgnoreId);
  });
  EXPECT_TRUE(f.Click());  // handled: the event goes no further
  return detail;
}

TEST(ExceptionGuard, StopsEachClassWhoseBitIsSetAndLetsItTravelOnWhenClear) {
  for (FailureCase const & c : Cases()) {
    SCOPED_TRACE(c.name);
    Fixture f(c.raise);
    EXPECT_EQ(ClickAndIgnore(f), c.expectedText);
    f.frame->SetExceptionsHandled(kHandleAllExceptions & ~c.bit);
    ModalDialogScript script;  // any box shown fails the test
    std::exception_ptr escaped;
    try {
      f.Click();
    } catch (...) {
      escaped = std::current_exception();
    }
    ASSERT_TRUE(escaped);
    EXPECT_TRUE(c.isOriginal(escaped));
  }
}

TEST(ExceptionGuard, WindowKeepsTheDefaultOfItsConstruction) {
  SetDefaultExceptionsHandled(kHandleAllExceptions & ~kHandleException);
  Fixture f([] { throw Exception(ExceptionMessage::translate("late")); });
  SetDefaultExceptionsHandled(kHandleAllExceptions);
  {
    ModalDialogScript script;  // no box: the failure leaves the window
    EXPECT_THROW(f.Click(), Exception);
  }
  // A window built now takes the restored default.
  Fixture g([] { throw Exception(ExceptionMessage::translate("stopped")); });
  EXPECT_EQ(ClickAndIgnore(g), "stopped");
}

}  // namespace
