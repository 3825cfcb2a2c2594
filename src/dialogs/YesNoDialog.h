#pragma once
// A Yes/No question whose text is too long for a message box: a header
// above a scrollable text. Template 13004; no help topic. Yes is the
// dialog's OK (IDOK), No its Cancel (IDCANCEL): Escape and the close box
// answer No.

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class YesNoDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13004;
  static constexpr int kTextId = 13001;
  static constexpr int kHeaderId = 13002;

  // `defaultAnswer` is kept for the caller; the template's default button
  // (Yes) stands whatever it is.
  YesNoDialog(wchar_t const * header, wchar_t const * text, wchar_t const * caption,
              int defaultAnswer, wxWindow * parent = nullptr);

  wxString const & GetHeader() const { return mHeader; }
  // With "\r\n" line ends, as the control gets it.
  wxString const & GetText() const { return mText; }
  int GetDefaultAnswer() const { return mDefaultAnswer; }

protected:
  bool OnInitDialog() override;
  bool DoDataExchange(bool saveAndValidate) override;

private:
  wxString mText;
  wxString mHeader;
  wxString mCaption;
  int mDefaultAnswer;
};
