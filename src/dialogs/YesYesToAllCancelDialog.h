#pragma once
// A question with Yes, Yes to All, Cancel and, when the caller names one, a
// special answer of its own. Template 13119; no help topic.
//
// NewDoModal returns IDOK for Yes and for Yes to All (YesToAllClicked tells
// them apart), 13027 for the special button, IDCANCEL for Cancel, Escape
// and the close box. The special flag is cleared only at construction: a
// dialog object shown again keeps it.

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class YesYesToAllCancelDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13119;
  static constexpr int kTextId = 13072;
  static constexpr int kYesToAllId = 13029;
  static constexpr int kSpecialId = 13027;

  explicit YesYesToAllCancelDialog(wxWindow * parent = nullptr);

  // Clears the yes-to-all flag, stores the texts and runs the dialog. An
  // empty or null `specialText` hides the special button.
  int NewDoModal(wchar_t const * text, wchar_t const * caption, wchar_t const * specialText);

  bool YesToAllClicked() const { return mYesToAllClicked; }
  bool SpecialClicked() const { return mSpecialClicked; }

protected:
  bool OnInitDialog() override;

private:
  wxString mText;
  wxString mSpecialText;
  wxString mCaption;
  bool mYesToAllClicked = false;
  bool mSpecialClicked = false;
};
