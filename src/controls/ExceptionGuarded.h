#pragma once
// Stops exceptions at the edge of a window: a handler of a dialog, sheet or
// page must not let one reach the window system. Every event the window
// processes (its own and those its children pass up) runs inside a try; a
// failure whose class is switched on in the window's mask ends in the
// internal-error dialog (platform/InternalErrorReport.h) and the event counts
// as handled, any other travels on unchanged.
//
//   class VxDialog : public ExceptionGuarded<wxDialog> { ... };

#include <exception>
#include <locale>
#include <string>

#include <wx/event.h>

#include "platform/CException.h"
#include "platform/CExceptionHelper.h"
#include "platform/ExceptionsHandled.h"
#include "platform/InternalErrorReport.h"
#include "utl/Exception.h"

template <class Base>
class ExceptionGuarded : public Base {
public:
  using Base::Base;

  void SetExceptionsHandled(int mask) { mExceptionsHandled = mask; }
  int GetExceptionsHandled() const { return mExceptionsHandled; }

  bool ProcessEvent(wxEvent & event) override {
    bool handled = true;
    RunGuarded([&] { handled = Base::ProcessEvent(event); });
    return handled;
  }

protected:
  // Runs `action` under the same guard as an event (the window's own
  // initialisation, which no event reaches); false when it failed.
  template <class Action>
  bool RunGuarded(Action && action) {
    // Filled before the dialog shows and never cleared, so that the text
    // outlives the dialog whatever it does.
    static std::string text;
    try {
      action();
      return true;
    } catch (Exception & e) {
      if (!Handles(kHandleException)) throw;
      text = e.Why(std::locale());
    } catch (std::exception & e) {
      if (!Handles(kHandleStdException)) throw;
      text = e.what();
    } catch (std::exception const * e) {
      if (!Handles(kHandleStdException)) throw;
      text = e->what();  // not ours to delete
    } catch (CException * e) {
      if (!Handles(kHandleFrameworkException)) throw;
      text = CExceptionHelper::GetErrorMessage(e);
      e->Delete();
    } catch (...) {
      if (!Handles(kHandleOtherExceptions)) throw;
      text = kUnknownExceptionText;
    }
    // Outside the handlers: a failure inside the dialog is a new one.
    ReportInternalError(text);
    return false;
  }

private:
  bool Handles(int bit) const { return (mExceptionsHandled & bit) != 0; }

  int mExceptionsHandled = GetDefaultExceptionsHandled();
};
