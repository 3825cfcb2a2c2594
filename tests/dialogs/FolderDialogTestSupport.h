#pragma once
// What the folder dialog tests share: clicks, the typed folder, the
// folder chooser answered by the test, and pictures of the dialogs when
// TALVO_SNAPSHOTS names a folder.

#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>

#include "controls/WindowSnapshot.h"
#include "dialogs/NativeChoosers.h"
#include "harness/GuiTestUtilities.h"
#include "utl/Paths.h"

namespace folder_test {

inline void Click(wxWindow & dialog, int id) {
  wxWindow * button = dialog.FindWindow(id);
  ASSERT_NE(button, nullptr) << id;
  wxCommandEvent click(wxEVT_BUTTON, id);
  click.SetEventObject(button);
  button->ProcessWindowEvent(click);
}

inline void Type(wxDialog & dialog, int id, std::string const & utf8) {
  auto * edit = dynamic_cast<wxTextCtrl *>(dialog.FindWindow(id));
  ASSERT_NE(edit, nullptr) << id;
  edit->SetValue(wxString::FromUTF8(utf8));
}

inline void Snapshot(wxWindow & window, char const * name) {
  char const * folder = std::getenv("TALVO_SNAPSHOTS");
  if (folder == nullptr) return;
  bool painted = false;
  auto onPaint = [&painted](wxPaintEvent & event) {
    painted = true;
    event.Skip();
  };
  window.Bind(wxEVT_PAINT, onPaint);
  window.Refresh();
  gui_test::WaitUntil([&] { return window.IsShownOnScreen() && painted; });
  window.Unbind(wxEVT_PAINT, onPaint);
  gui_test::Flush();
  SaveWindowSnapshot(window, wxString::FromUTF8(VxPathAppend(folder, name)));
}

// Answers the folder chooser with `answers` in turn (an empty path: cancel)
// and keeps what it was asked.
class FakeFolderChooser {
public:
  explicit FakeFolderChooser(std::vector<std::string> answers) : mAnswers(std::move(answers)) {
    mFormer = SetFolderChooserFunction([this](FolderChooserRequest const & request) {
      requests.push_back(request);
      FolderChooserAnswer answer;
      if (mNext < mAnswers.size()) {
        answer.path = wxString::FromUTF8(mAnswers[mNext++]);
        answer.accepted = !answer.path.empty();
      }
      return answer;
    });
  }
  ~FakeFolderChooser() { SetFolderChooserFunction(mFormer); }

  std::vector<FolderChooserRequest> requests;

private:
  std::vector<std::string> mAnswers;
  size_t mNext = 0;
  FolderChooserFunction mFormer;
};

inline std::string TempFolder(std::string const & name) {
  std::string const path = VxPathAppend(std::getenv("TMPDIR"), name);
  VxCreateFolder(path);
  return path;
}

}  // namespace folder_test
