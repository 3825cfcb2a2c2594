#pragma once
// What the folder dialog tests share: clicks, the typed folder, the
// folder chooser answered by the test, and pictures of the dialogs when
// TALVO_SNAPSHOTS names a folder.

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>

#include "controls/WindowSnapshot.h"
#include "dialogs/NativeChoosers.h"
#include "harness/GuiTestUtilities.h"
#include "utl/Paths.h"

namespace folder_test {

using gui_test::Click;
using gui_test::Snapshot;

inline void Type(wxDialog & dialog, int id, std::string const & utf8) {
  auto * edit = dynamic_cast<wxTextCtrl *>(dialog.FindWindow(id));
  ASSERT_NE(edit, nullptr) << id;
  edit->SetValue(wxString::FromUTF8(utf8));
}

// Answers the folder chooser with `answers` in turn (an empty path: cancel)
// and keeps what it was asked.
struct FakeFolderChooser {
  explicit FakeFolderChooser(std::vector<std::string> answers) {
    former = SetFolderChooserFunction(
        [this, answers = std::move(answers)](FolderChooserRequest const & request) {
          requests.push_back(request);
          FolderChooserAnswer answer;
          if (requests.size() <= answers.size())
            answer.path = wxString::FromUTF8(answers[requests.size() - 1]);
          answer.accepted = !answer.path.empty();
          return answer;
        });
  }
  ~FakeFolderChooser() { SetFolderChooserFunction(former); }

  std::vector<FolderChooserRequest> requests;
  FolderChooserFunction former;
};

inline std::string TempFolder(std::string const & name) {
  std::string path = VxPathAppend(std::getenv("TMPDIR"), name);
  VxCreateFolder(path);
  return path;
}

}  // namespace folder_test
