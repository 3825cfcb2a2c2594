#pragma once
// The scrollable box for a fatal message too long for a message box, and,
// with `informationOnly`, for a long information (the fatal icon hidden).
// Template 13003; no help topic.

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class FatalErrorDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13003;
  static constexpr int kIconId = 13000;
  static constexpr int kTextId = 13001;

  FatalErrorDialog(wchar_t const * text, wchar_t const * caption, wxWindow * parent,
                   bool informationOnly);

  // With "\r\n" line ends, as the control gets it.
  wxString const & GetText() const { return mText; }

protected:
  bool OnInitDialog() override;
  bool DoDataExchange(bool saveAndValidate) override;

private:
  wxString mText;
  wxString mCaption;
  bool mInformationOnly;
};
