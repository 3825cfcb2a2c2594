#pragma once
// Pages of the sheet tests: each records what the sheet asks of it in a
// shared log ("set General", "kill Limits"...), can refuse to apply or fail
// in its apply, and exchanges its edit with `text`.

#include <stdexcept>
#include <string>
#include <vector>

#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include <functional>

#include "harness/GuiTestUtilities.h"

#include "properties/VxPropertyPage.h"
#include "utl/Exception.h"

namespace sheet_test {

constexpr unsigned kGeneral = 4400;
constexpr unsigned kLimits = 4410;
constexpr unsigned kNotes = 4420;
constexpr unsigned kOuter = 4430;
// The edit of a page is its template number + 1.
constexpr int EditOf(unsigned page) { return static_cast<int>(page) + 1; }

class TestPage : public VxPropertyPage {
public:
  enum class Apply { Accept, Refuse, Throw };

  TestPage(unsigned templateId, std::vector<std::string> & log,
           BasePropertyPageHelper * helper = nullptr)
      : VxPropertyPage(templateId, 0, helper), mLog(log) {
    Bind(
        wxEVT_TEXT, [this](wxCommandEvent &) { Changed(); }, EditOf(templateId));
  }

  std::string Name() const { return GetPageTitle().empty() ? "" : GetPageTitle().ToStdString(); }

  bool OnInitDialog() override {
    Record("init");
    return VxPropertyPage::OnInitDialog();
  }
  bool OnSetActive() override {
    Record("set");
    return VxPropertyPage::OnSetActive();
  }
  bool OnKillActive() override {
    Record("kill");
    return VxPropertyPage::OnKillActive();
  }
  void OnOK() override { Record("ok"); }
  bool OnApply() override {
    Record("apply");
    if (apply == Apply::Throw) throw Exception(ExceptionMessage::translate("The limit is wrong."));
    if (apply == Apply::Refuse) return false;
    return VxPropertyPage::OnApply();
  }
  bool DoDataExchange(bool save) override {
    auto * edit = static_cast<wxTextCtrl *>(GetDlgItem(EditOf(GetTemplateID())));
    if (edit == nullptr) return true;
    if (save)
      text = edit->GetValue().ToStdString();
    else
      edit->ChangeValue(text);
    return !(save && refuseKill);
  }

  std::string text;
  Apply apply = Apply::Accept;
  bool refuseKill = false;

private:
  void Record(char const * what) {
    mLog.push_back(std::string(what) + " " + std::to_string(GetTemplateID()));
  }
  std::vector<std::string> & mLog;
};

// Runs `body` on the shown dialog; a dialog it left running (a failed
// assertion returns early) is ended, so that no test hangs.
inline std::function<void(wxDialog &)> Checked(std::function<void(wxDialog &)> const & body) {
  return [body](wxDialog & dialog) {
    body(dialog);
    // A click the body made may still be on its way.
    if (!gui_test::WaitUntil([&] { return !dialog.IsModal(); }, 3000)) dialog.EndModal(-2);
  };
}

// Waits until the window is the active one (keys reach it).
inline bool WaitUntilActive(wxWindow & window) {
  wxTopLevelWindow * top = wxDynamicCast(wxGetTopLevelParent(&window), wxTopLevelWindow);
  return top != nullptr && gui_test::WaitUntil([top] { return top->IsActive(); });
}

}  // namespace sheet_test
