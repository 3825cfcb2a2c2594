#pragma once
// A message box whose text scrolls: for texts too long for a message box
// (lists of files, long reports). The type is a message box type (button
// kind in the low four bits, icon in the next four); the result is the id
// of the button pressed: 1 OK, 2 Cancel, 6 Yes, 7 No.

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class ScrollMessageBox : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 16065;
  static constexpr int kTextId = 16026;
  static constexpr int kIconId = 16064;
  // Where Yes goes when Yes, No and Cancel stand in a row.
  static constexpr int kThreeButtonMarkId = 16066;

  // With no icon bits, the kinds OK, OK/Cancel, Yes/No/Cancel and Yes/No
  // take the warning icon.
  ScrollMessageBox(wchar_t const * text, unsigned int type, wchar_t const * caption,
                   wxWindow * parent = nullptr);

  unsigned int GetType() const { return mType; }
  wxString const & GetText() const { return mText; }

protected:
  bool OnInitDialog() override;

private:
  void ShowIcon();
  void LayOutButtons();
  void ShowScrollBarWhenNeeded();
  void OnAnswerButton(wxCommandEvent & event);

  wxString mText;
  unsigned int mType;
  wxString mCaption;
};

int VxScrollMessageBox(wchar_t const * text, unsigned int type, wchar_t const * caption);
// The text from the string table.
int VxScrollMessageBox(unsigned int textId, unsigned int type, wchar_t const * caption);
