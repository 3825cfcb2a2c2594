#pragma once
// A small modal dialog that asks for one value: a text or a whole number in
// an edit (kind 0), an edit with a list of choices beside it (kind 1), or a
// choice alone (kind 2). Templates 13117 (kinds 0 and 2) and 13380 (kind 1).

#include <wx/string.h>

#include <vector>

#include "dialogs/VxDialog.h"

class KarvinFilterValidator;
class wxChoice;
class wxTextCtrl;

class VxInputDialog : public VxDialog {
public:
  enum Control : int {
    kPrompt = 13370,
    kNote = 13369,
    kEdit = 13371,
    kChoicesLabel = 13368,
    kChoices = 13367,
  };
  static constexpr int kNoLowest = static_cast<int>(0x80000000U);
  static constexpr int kNoHighest = 0x7FFFFFFF;

  // Kinds 0 and 1: `value` is the start value and receives the result.
  // `textLimit` above 0 limits the edit to that many characters. The
  // validator is not owned; `choices` may be null.
  VxInputDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * note,
                wxString & value, int textLimit = 0, KarvinFilterValidator * validator = nullptr,
                std::vector<wxString> const * choices = nullptr);
  VxInputDialog(wxWindow * parent, wchar_t const * title, wchar_t const * prompt,
                wchar_t const * note, wxString & value, int textLimit = 0,
                KarvinFilterValidator * validator = nullptr,
                std::vector<wxString> const * choices = nullptr);
  // Kind 2: one of `choices`, starting at `selection`.
  VxInputDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * note,
                std::vector<wxString> const & choices, int selection, wxWindow * parent);

  // Accepts whole numbers only, within the limits (kNoLowest, kNoHighest:
  // none). Typing refuses anything but digits; pasted text is judged at OK.
  void SetNumberOnly(int lowest, int highest);
  int GetComboCurSel() const { return mComboSelection; }
  int GetKind() const { return mKind; }

protected:
  bool OnInitDialog() override;
  void OnOK() override;

private:
  void ResizeDialogAndControls();
  // The text of the number test's message, or empty when `text` passes.
  wxString NumberProblem(wxString const & text) const;
  void RefocusEdit();

  wxString mTitle;
  wxString mPrompt;
  wxString mNote;
  wxString mOwnValue;  // the value of kind 2, which has no caller's string
  wxString & mValue;
  int mTextLimit = 0;
  std::vector<wxString> mChoices;
  KarvinFilterValidator * mValidator = nullptr;
  wxTextCtrl * mEdit = nullptr;
  wxChoice * mCombo = nullptr;
  bool mNumberOnly = false;
  int mLowest = kNoLowest;
  int mHighest = kNoHighest;
  int mComboSelection = 0;
  int mKind = 0;
};
