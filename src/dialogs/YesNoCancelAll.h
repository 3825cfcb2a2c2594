#pragma once
// A question with up to five answers (Yes, Yes to all, No, No to all,
// Cancel) over a header and a scrollable text: what a long run over many
// items asks once per item. Template 13118; no help topic.
//
// The constructor's flags say which buttons stand; the default button gets
// the focus and reacts to Enter. The result is the button pressed; Cancel,
// Escape and the close box give Cancel, also when the Cancel button is
// hidden.

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class YesNoCancelAll : public VxDialog {
public:
  enum ButtonPressed {
    Yes = 0,
    No = 1,
    YesToAll = 2,
    NoToAll = 3,
    Cancel = 4,
    None = 5,  // as the default button: the template's focus stays
  };

  static constexpr unsigned int kTemplate = 13118;
  static constexpr int kHeaderId = 13094;
  static constexpr int kTextId = 13091;
  static constexpr int kYesId = 13095;
  static constexpr int kNoId = 13092;
  static constexpr int kYesToAllId = 13096;
  static constexpr int kNoToAllId = 13093;
  static constexpr int kCancelId = 2;

  // The control of `button`; 0 for None or a value outside the enumeration.
  static int ControlId(ButtonPressed button);

  YesNoCancelAll(wchar_t const * header = nullptr, wchar_t const * text = nullptr,
                 wchar_t const * caption = nullptr, ButtonPressed defaultButton = None,
                 wxWindow * parent = nullptr, bool yes = true, bool yesToAll = true, bool no = true,
                 bool noToAll = true, bool cancel = true);

  // Non-null texts replace the stored ones, a default button other than None
  // replaces the stored one; the result starts as Cancel. Returns what the
  // base's DoModal returns (IDOK for a button, IDCANCEL for Cancel).
  virtual int DoModal(wchar_t const * header, wchar_t const * text, wchar_t const * caption,
                      ButtonPressed defaultButton);
  int DoModal() override { return DoModal(nullptr, nullptr, nullptr, None); }

  ButtonPressed GetResult() const { return mResult; }

  void SetYesButton(bool show) { mShowYes = show; }
  void SetYesToAllButton(bool show) { mShowYesToAll = show; }
  void SetNoButton(bool show) { mShowNo = show; }
  void SetNoToAllButton(bool show) { mShowNoToAll = show; }
  void SetCancelButton(bool show) { mShowCancel = show; }

  // The texts as the controls get them ("\r\n" line ends).
  wxString const & GetHeader() const { return mHeader; }
  wxString const & GetText() const { return mText; }
  wxString const & GetCaption() const { return mCaption; }
  ButtonPressed GetDefaultButton() const { return mDefaultButton; }

protected:
  bool OnInitDialog() override;
  void OnCancel() override;
  bool DoDataExchange(bool saveAndValidate) override;

private:
  void Press(ButtonPressed button);

  wxString mHeader;
  wxString mText;
  wxString mCaption;
  ButtonPressed mDefaultButton;
  ButtonPressed mResult = Cancel;
  bool mShowYes;
  bool mShowYesToAll;
  bool mShowNo;
  bool mShowNoToAll;
  bool mShowCancel;
};
