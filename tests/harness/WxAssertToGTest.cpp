#include "harness/WxAssertToGTest.h"

#include <gtest/gtest.h>
#include <wx/debug.h>
#include <wx/string.h>

namespace {

void FailTest(wxString const & file, int line, wxString const & function,
              wxString const & condition, wxString const & message) {
  ADD_FAILURE_AT(file.utf8_str().data(), line)
      << "wx assertion failed in " << function.utf8_str().data() << ": "
      << condition.utf8_str().data() << (message.empty() ? "" : " - ") << message.utf8_str().data();
}

}  // namespace

void InstallWxAssertHandler() { wxSetAssertHandler(FailTest); }
