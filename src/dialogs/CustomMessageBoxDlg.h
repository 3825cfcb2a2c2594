#pragma once
// The library's own message box (template 13099): it looks like a message
// box but sizes itself to its text, can relabel its buttons, can carry a
// check box ("don't show this message again"), and obeys the application's
// mute switch. The front ends are VxMessageBox, VxDontShowAgainMessageBox and
// CheckBoxMessageBox; use this class directly for anything they do not say.
//
//   CustomMessageBoxDlg box(MB_YESNO | MB_ICONQUESTION);
//   box.SetText(L"Replace the file?");
//   box.SetButtonText(IDYES, L"&Replace");
//   if (box.DoModal() == IDYES) ...
//
// Results are Windows ids: IDOK, IDCANCEL, IDYES, IDNO; 0 for a muted
// OK-only box. Escape and the close box cancel, except in a Yes/No box,
// which can only be answered.

#include <utility>
#include <vector>

#include <wx/string.h>

#include "dialogs/VxDialog.h"
#include "platform/WinUser.h"

class CustomMessageBoxDlg : public VxDialog {
public:
  static constexpr unsigned int kTemplateId = 13099;
  // Controls of the template besides the buttons (IDOK, IDCANCEL, IDYES,
  // IDNO, IDHELP).
  static constexpr int kCheckBoxId = 13038;
  static constexpr int kIconId = 13074;
  static constexpr int kTextId = 13080;
  static constexpr int kRowMarkerId = 13351;

  // The kind (low 4 bits of `type`) chooses the buttons, the next 4 bits the
  // icon. A help topic other than 0 shows the Help button. A null parent
  // means the safe owner of the main window.
  explicit CustomMessageBoxDlg(unsigned int type = 0, unsigned int helpTopic = 0,
                               wxWindow * parent = nullptr);

  // Shows the box; an OK-only box under the application's mute switch
  // returns 0 without showing anything.
  int DoModal() override;

  void SetText(wxString const & text) { mText = text; }
  wxString const & GetText() const { return mText; }
  // The window title; the application's name unless set.
  void SetCaption(wxString const & caption) { mCaption = caption; }
  wxString const & GetCaption() const { return mCaption; }
  void SetCheckText(wxString const & text) { mCheckText = text; }
  wxString const & GetCheckText() const { return mCheckText; }
  void ShowCheckBox(bool show) { mShowCheckBox = show ? 1 : 0; }
  bool IsCheckBoxShown() const { return mShowCheckBox != 0; }
  // The check box's state: set before the box runs, read after it; OK, Yes
  // and No read it from the box, Cancel leaves it as it was.
  void SetCheckState(int state) { mCheckState = state; }
  int GetCheckState() const { return mCheckState; }
  // Replaces the label of button `id` (IDOK, IDCANCEL, IDYES, IDNO, IDHELP);
  // the button widens when the label needs it.
  void SetButtonText(unsigned int id, wxString const & text);
  unsigned int GetType() const { return mType; }

protected:
  bool OnInitDialog() override;
  void OnCancel() override;
  bool DoDataExchange(bool saveAndValidate) override;
  bool PreTranslateMessage(wxKeyEvent & event) override;

private:
  unsigned int Kind() const { return mType & 0x0F; }
  // The buttons of the kind, left to right, Help last when there is a topic.
  std::vector<int> ButtonsInUse() const;
  void RelabelButtons(wxFont const & textFont);
  void ShowIcon();
  // Sizes the text control for `shown`, or puts a scrolling view in its
  // place when the text would not fit in `workArea`; returns its size.
  wxSize SizeText(wxString const & shown, wxFont const & font, wxRect const & workArea);
  // Centres the window on its parent, or on `workArea`, and keeps it there.
  void CentreIn(wxRect const & workArea);
  void PlaceButtons(int rowWidth, int clientWidth, int rowY);
  void OnAnswer(wxCommandEvent & event);

  // In the order the dialog has always kept them.
  wxString mText;
  int mCheckState = 0;
  wxString mCaption;
  wxString mCheckText;
  unsigned int mType = 0;
  unsigned int mHelpTopic = 0;
  int mShowCheckBox = 0;
  std::vector<std::pair<unsigned int, wxString>> mButtonTexts;
  int mGapX = -1;
  int mMarginX = 0;
  int mMarginY = -1;
};
