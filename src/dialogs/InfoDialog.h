#pragma once
// A text for the user to read (release notes, a licence, a hint) in plain
// text, HTML or rich text, with the buttons the caller chooses and an answer
// the user may ask to be remembered: once remembered, DoModal gives it back
// without showing anything.

#include <memory>
#include <vector>

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class wxButton;
class wxTextCtrl;
class VxHtmlCtrl;
class VxRichEdit;

class InfoDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 16236;
  static constexpr int kTextPlaceId = 16042;
  static constexpr int kDontShowId = 16237;
  static constexpr unsigned int kStyleSheet = 16234;
  static constexpr unsigned int kNoResource = static_cast<unsigned int>(-1);

  enum ETextFormat { PlainText = 0, Html = 1, RichText = 2 };
  // Template: as the template has it; the others scale it in place.
  enum EDialogSize { Template = 0, Small = 1, Large = 2, Huge = 3 };
  // A bit mask; Close is the template's own button (id 2).
  enum Buttons { Close = 1, OK = 2, Cancel = 4, Yes = 8, No = 16 };

  explicit InfoDialog(wchar_t const * title = nullptr, wxWindow * parent = nullptr);
  // A title id of -1 leaves the title empty.
  explicit InfoDialog(unsigned int titleId, wxWindow * parent = nullptr);
  InfoDialog(unsigned int titleId, unsigned int resourceId, ETextFormat format,
             wxWindow * parent = nullptr);
  InfoDialog(wchar_t const * title, unsigned int resourceId, ETextFormat format,
             wxWindow * parent = nullptr);

  void SetResource(unsigned int resourceId, ETextFormat format);
  void SetText(wchar_t const * text, ETextFormat format);
  // The HTML view goes to `url` instead of showing the text.
  void SetURL(wchar_t const * url);
  void EnableDontShowAgain(wchar_t const * key);
  void SetButtons(int mask, Buttons defaultButton);
  void SetDefaultSize(EDialogSize size) { mSize = size; }

  // A remembered answer (1 → 2, 2 → 1, 4 → 2, 8 → 6, 16 → 7) without
  // showing; otherwise the dialog's result: the id of the button pressed.
  int DoModal() override;
  // False only when an answer is remembered under `key`.
  static bool WillShow(wchar_t const * key);

  ETextFormat GetFormat() const { return mFormat; }

protected:
  bool OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

private:
  bool ShowText();
  void ShowPlainText();
  void ShowRichText();
  void LayOutButtons();
  void ApplySize();
  void CloseWith(int bit, int result);
  void OnAnswerButton(wxCommandEvent & event);

  wxString mKey;
  wxString mTitle;
  wxString mText;
  unsigned int mResourceId = kNoResource;
  ETextFormat mFormat = Html;
  wxString mUrl;
  VxRichEdit * mRich = nullptr;
  VxHtmlCtrl * mHtml = nullptr;
  wxTextCtrl * mPlain = nullptr;
  EDialogSize mSize = Template;
  int mButtons = Close;
  Buttons mDefaultButton = Close;
  std::vector<wxButton *> mButtonObjects;  // children of the window, made at run time
};
