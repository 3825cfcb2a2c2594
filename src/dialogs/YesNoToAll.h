#pragma once
// A Yes/No question for one of many items, with "Yes to All" or "No to All"
// beside it. Template 13119 (shared with YesYesToAllCancelDialog, whose
// Cancel button stays hidden here); no help topic.
//
// The buttons stand in the order Yes, Yes to All, No, or, with `yesFirst`
// false, No, No to All, Yes. NewDoModal answers by meaning, whatever the
// order: kYes, kYesToAll, kNo, kNoToAll; IDCANCEL when the dialog is closed
// by Escape or the close box.

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class YesNoToAll : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13119;
  static constexpr int kTextId = 13072;
  static constexpr int kFirstId = 1;
  static constexpr int kToAllId = 13029;
  static constexpr int kLastId = 13027;

  static constexpr int kYes = 101;
  static constexpr int kYesToAll = 102;
  static constexpr int kNo = 103;
  static constexpr int kNoToAll = 104;

  explicit YesNoToAll(wxWindow * parent = nullptr, bool yesFirst = true);

  // Stores both texts and runs the dialog.
  int NewDoModal(wchar_t const * text, wchar_t const * caption);

protected:
  bool OnInitDialog() override;
  void OnOK() override;

private:
  void Answer(int clickedId);

  wxString mText;
  wxString mCaption;
  bool mYesFirst;
};
