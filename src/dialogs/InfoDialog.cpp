#include "dialogs/InfoDialog.h"

#include <gtk/gtk.h>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "controls/VxRichEdit.h"
#include "dialogs/ScrollingText.h"
#include "frame/AppProfile.h"
#include "html/VxHtmlCtrl.h"
#include "platform/ResourceModule.h"
#include "platform/ResourceModuleData.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"

namespace {

constexpr char kDontShowSection[] = "DontShowAgainMessages";
constexpr int kLeftMargin = 4;  // what margins 0x80004 set: left 4, right 8
constexpr int kRightMargin = 8;
constexpr int kButtonGap = 6;

// The button id a remembered bit stands for; 0 when the value is no answer.
int AnswerOfBit(int stored) {
  switch (stored) {
    case InfoDialog::Close:
    case InfoDialog::Cancel: return IDCANCEL;
    case InfoDialog::OK: return IDOK;
    case InfoDialog::Yes: return IDYES;
    case InfoDialog::No: return IDNO;
    default: return 0;
  }
}

int StoredBit(wxString const & key) {
  if (key.empty()) return 0;
  return AppProfile::GetProfileInt(kDontShowSection, key.utf8_str().data(), 0);
}

wxString TitleFromString(unsigned int titleId) {
  return titleId == static_cast<unsigned int>(-1) ? wxString() : LoadResourceString(titleId);
}

double ScaleOf(InfoDialog::EDialogSize size) {
  switch (size) {
    case InfoDialog::Small: return 0.8;
    case InfoDialog::Large: return 1.4;
    case InfoDialog::Huge: return 2.0;
    default: return 1.0;
  }
}

}  // namespace

InfoDialog::InfoDialog(wchar_t const * title, wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)),
      mTitle(title != nullptr ? title : L"") {}

InfoDialog::InfoDialog(unsigned int titleId, wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)),
      mTitle(TitleFromString(titleId)) {}

InfoDialog::InfoDialog(unsigned int titleId, unsigned int resourceId, ETextFormat format,
                       wxWindow * parent)
    : InfoDialog(titleId, parent) {
  SetResource(resourceId, format);
}

InfoDialog::InfoDialog(wchar_t const * title, unsigned int resourceId, ETextFormat format,
                       wxWindow * parent)
    : InfoDialog(title, parent) {
  SetResource(resourceId, format);
}

void InfoDialog::SetResource(unsigned int resourceId, ETextFormat format) {
  mResourceId = resourceId;
  mFormat = format;
}

void InfoDialog::SetText(wchar_t const * text, ETextFormat format) {
  mText = text != nullptr ? text : L"";
  mResourceId = kNoResource;
  mFormat = format;
}

void InfoDialog::SetURL(wchar_t const * url) {
  mUrl = url != nullptr ? url : L"";
  if (mHtml != nullptr && !mUrl.empty()) mHtml->LoadURL(mUrl);
}

void InfoDialog::EnableDontShowAgain(wchar_t const * key) { mKey = key != nullptr ? key : L""; }

void InfoDialog::SetButtons(int mask, Buttons defaultButton) {
  mButtons = mask;
  mDefaultButton = defaultButton;
}

bool InfoDialog::WillShow(wchar_t const * key) {
  if (key == nullptr || *key == L'\0') return true;
  return AnswerOfBit(StoredBit(key)) == 0;
}

int InfoDialog::DoModal() {
  if (int const answer = AnswerOfBit(StoredBit(mKey)); answer != 0) return answer;
  mHtml = nullptr;
  mRich = nullptr;
  mPlain = nullptr;
  mButtonObjects.clear();
  int const result = VxDialog::DoModal();
  mHtml = nullptr;  // the controls went with the window
  mRich = nullptr;
  mPlain = nullptr;
  mButtonObjects.clear();
  return result;
}

bool InfoDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  if (!mTitle.empty()) SetTitle(mTitle);
  if (mKey.empty())
    if (wxWindow * box = GetDlgItem(kDontShowId)) box->Hide();
  ShowText();
  LayOutButtons();
  AddAnchor(kTextPlaceId, TOP_LEFT, BOTTOM_RIGHT);
  AddAnchor(kDontShowId, BOTTOM_LEFT);
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
  for (wxButton * button : mButtonObjects) AddAnchor(button, BOTTOM_RIGHT);
  ApplySize();
  return result;
}

bool InfoDialog::ShowText() {
  if (mFormat == Html) {
    mHtml = new VxHtmlCtrl();
    if (mHtml->CreateFromStatic(kTextPlaceId, this) == 0) {
      delete mHtml;
      mHtml = nullptr;
      return false;
    }
    if (!mUrl.empty() && mHtml->LoadURL(mUrl)) return true;
    if (mResourceId != kNoResource)
      mHtml->SetHTML(mResourceId, kStyleSheet);
    else
      mHtml->SetHTML(mText.wc_str(), kStyleSheet);
    return true;
  }
  if (mFormat == RichText) {
    ShowRichText();
    return mRich != nullptr;
  }
  ShowPlainText();
  return mPlain != nullptr;
}

// Rich text from the resource, else the text read as rich text. Damaged
// rich text shows as far as it could be read; a text that is no rich text
// shows as plain text.
void InfoDialog::ShowRichText() {
  mRich = new VxRichEdit();
  if (mRich->CreateFromStatic(kTextPlaceId, this) == 0) {
    delete mRich;
    mRich = nullptr;
    return;
  }
  if (mResourceId != kNoResource) {
    mRich->SetRichEditResource(mResourceId);
  } else {
    // Words that are no rich text at all would read as nothing.
    bool const rich = mText.StartsWith(L"{\\rtf");
    mRich->InsertText(mText.wc_str(), rich ? VxRichEdit::RichText : VxRichEdit::PlainText);
    mRich->GetCommandProcessor()->ClearCommands();  // nothing for the reader to undo
  }
  mRich->SetInsertionPoint(0);
  mRich->ShowPosition(0);
}

// A read-only multi-line edit in the static's place, a little room on both
// sides of the text.
void InfoDialog::ShowPlainText() {
  auto * place = dynamic_cast<wxStaticText *>(GetDlgItem(kTextPlaceId));
  if (place == nullptr) return;
  wxRect const rect = place->GetRect();
  place->SetId(wxID_ANY);
  place->Destroy();
  wxString text = mText;
  if (mResourceId != kNoResource)
    text = wxString::FromUTF8(LoadResourceBytes(mResourceId, RT_HTML).c_str());
  mPlain = new wxTextCtrl(this, kTextPlaceId, wxEmptyString, rect.GetPosition(), rect.GetSize(),
                          wxTE_MULTILINE | wxTE_READONLY | wxVSCROLL);
  mPlain->SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  ShowScrollingText(mPlain, WithCrLfLineEnds(text.wc_str()));
  // wx sets no margins of a multi-line edit on GTK, and the scrolling text
  // leaves the same room on both sides; this text has more on the right.
  GtkWidget * view = mPlain->GetConnectWidget();
  if (view != nullptr && GTK_IS_TEXT_VIEW(view)) {
    gtk_text_view_set_left_margin(GTK_TEXT_VIEW(view), kLeftMargin);
    gtk_text_view_set_right_margin(GTK_TEXT_VIEW(view), kRightMargin);
  }
}

// Right to left from the template's Close button: Close or Cancel keeps its
// place, then OK, No and Yes with its width; without Close and Cancel the
// first new button takes that place.
void InfoDialog::LayOutButtons() {
  auto * reference = dynamic_cast<wxButton *>(GetDlgItem(IDCANCEL));
  if (reference == nullptr) return;
  wxWindow * focus = reference;
  if (mButtons != Close) {
    wxRect const place = reference->GetRect();
    int x = place.x;
    if ((mButtons & (Close | Cancel)) != 0) {
      if ((mButtons & Cancel) != 0) reference->SetLabel(vx3::Tr("Cancel button", "Cancel"));
      x -= place.width + kButtonGap;
    } else {
      reference->Hide();
    }
    struct Made {
      Buttons bit;
      int id;
      char const * context;
      char const * label;
    };
    Made const made[] = {{OK, IDOK, "OK button", "OK"},
                         {No, IDNO, "No button", "No"},
                         {Yes, IDYES, "Yes button", "Yes"}};
    for (Made const & m : made) {
      if ((mButtons & m.bit) == 0) continue;
      auto * button = new wxButton(this, m.id, vx3::Tr(m.context, m.label), wxPoint(x, place.y),
                                   place.GetSize());
      button->SetFont(reference->GetFont());
      button->MoveBeforeInTabOrder(reference);
      if (m.id != IDOK) Bind(wxEVT_BUTTON, &InfoDialog::OnAnswerButton, this, m.id);
      if (m.bit == mDefaultButton) focus = button;
      mButtonObjects.push_back(button);
      x -= place.width + kButtonGap;
    }
    if ((mDefaultButton == Close || mDefaultButton == Cancel) &&
        (mButtons & (Close | Cancel)) == 0 && !mButtonObjects.empty())
      focus = mButtonObjects.front();  // a default the row lacks: its rightmost
  }
  if (auto * button = dynamic_cast<wxButton *>(focus)) button->SetDefault();
  focus->SetFocus();
}

void InfoDialog::ApplySize() {
  double const scale = ScaleOf(mSize);
  if (scale == 1.0) return;
  wxSize const size = GetSize();
  SetSize(wxSize(static_cast<int>(size.GetWidth() * scale),
                 static_cast<int>(size.GetHeight() * scale)));
}

void InfoDialog::CloseWith(int bit, int result) {
  if (!mKey.empty()) {
    auto * box = dynamic_cast<wxCheckBox *>(GetDlgItem(kDontShowId));
    bool const ticked = box != nullptr && box->IsChecked();
    AppProfile::WriteProfileInt(kDontShowSection, mKey.utf8_str().data(), ticked ? bit : 0);
  }
  EndDialog(result);
}

void InfoDialog::OnOK() { CloseWith(OK, IDOK); }

void InfoDialog::OnCancel() { CloseWith((mButtons & Cancel) != 0 ? Cancel : Close, IDCANCEL); }

void InfoDialog::OnAnswerButton(wxCommandEvent & event) {
  if (event.GetId() == IDYES)
    CloseWith(Yes, IDYES);
  else
    CloseWith(No, IDNO);
}
