#include "dialogs/DetailsDialog.h"

#include <algorithm>
#include <string>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "dialogs/DialogTitle.h"
#include "dialogs/LimitLineLength.h"
#include "frame/AppProfile.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace {

constexpr char kDontShowSection[] = "DontShowAgainMessages";
constexpr int kNothingStored = -1;
constexpr int kClosedGap = 2;  // the closed window ends this far above the details

wxString Text(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

// Each line end a single "\r\n", whether the text came with "\n" or "\r\n".
wxString SingleLineEnds(wxString details) {
  details.Replace(L"\r\n", L"\n");
  details.Replace(L"\n", L"\r\n");
  return details;
}

bool StoredAnswerKeepsAway(wxString const & key) {
  if (key.empty()) return false;
  return AppProfile::GetProfileInt(kDontShowSection, key.utf8_str().data(), kNothingStored) !=
         kNothingStored;
}

// Pango's extents overflow on lines of some hundred thousand pixels and
// come back narrow; a line this long is too wide for any dialog anyway.
bool HasUnmeasurableLine(std::wstring const & text) {
  constexpr size_t kLongestMeasured = 4096;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find(L'\n', start);
    if (end == std::wstring::npos) end = text.size();
    if (end - start > kLongestMeasured) return true;
    start = end + 1;
  }
  return false;
}

void MoveDown(wxWindow * control, int delta) {
  if (control != nullptr) control->Move(control->GetPosition() + wxPoint(0, delta));
}

}  // namespace

MuteDetailsDialog & MuteDetailsDialog::Instance() {
  static MuteDetailsDialog instance;
  return instance;
}

DetailsDialogClass::DetailsDialogClass(wxWindow * parent, wchar_t const * text,
                                       wchar_t const * details, wchar_t const * caption,
                                       unsigned int icon, bool showDetails, wchar_t const * key)
    : VxDialog(key != nullptr ? kTemplateWithCheckBox : kTemplate,
               parent != nullptr ? parent : GetDialogParent()),
      mDetailsClosed(showDetails),  // the toggle at the end of OnInitDialog flips it
      mText(Text(text)),
      mDetails(Text(details)),
      mCaption(Text(caption)),
      mHasCheckBox(key != nullptr),
      mKey(Text(key)),
      mIcon(icon) {
  if (mHasCheckBox && StoredAnswerKeepsAway(mKey)) return;
  mResult = DoModal();
}

bool DetailsDialogClass::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  wxWindow * text = GetDlgItem(kTextId);
  wxWindow * edit = GetDlgItem(kDetailsEditId);
  if (text == nullptr || edit == nullptr || GetDlgItem(kDetailsButtonId) == nullptr) return result;

  // The message wrapped to the control's width in its own font.
  wxClientDC dc(text);
  dc.SetFont(text->GetFont());
  int const width = text->GetClientSize().GetWidth();
  std::wstring const wrapped =
      LimitLineLength::ByPixels(mText.ToStdWstring(), dc, static_cast<size_t>(std::max(width, 1)));
  wxRect const bounds = LimitLineLength::GetBoundsRect(wrapped.c_str(), text->GetFont());
  GrowForText(text, wrapped, bounds.GetHeight() - text->GetSize().GetHeight(),
              bounds.GetWidth() > width || HasUnmeasurableLine(wrapped));

  ShowIcon();
  SetTitle(TitleOrApplicationName(mCaption));

  auto * details = dynamic_cast<wxTextCtrl *>(GetDlgItem(kDetailsEditId));
  if (details != nullptr)
    details->ChangeValue(mDetails.empty() ? vx3::Tr("No further information available.")
                                          : SingleLineEnds(mDetails));
  if (auto * button = dynamic_cast<wxButton *>(GetDlgItem(kDetailsButtonId)))
    button->SetLabel(vx3::Tr("Details button", "&Details >>"));

  AddAnchor(kIconId, TOP_LEFT);
  AddAnchor(kTextId, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kCheckBoxId, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kDetailsButtonId, TOP_LEFT);
  AddAnchor(IDOK, TOP_RIGHT);
  AddAnchor(kDetailsEditId, TOP_LEFT, BOTTOM_RIGHT);

  // Client sizes: the frame's extents are not known before the window shows.
  mOpenSize = GetClientSize();
  mClosedHeight = edit->GetPosition().y - kClosedGap;

  Bind(wxEVT_BUTTON, &DetailsDialogClass::OnDetailsButton, this, kDetailsButtonId);
  Bind(wxEVT_SIZE, &DetailsDialogClass::OnSizeWhileOpen, this);
  ToggleDetails();
  if (wxWindow * ok = GetDlgItem(IDOK)) ok->SetFocus();
  return result;
}

// A message taller than its control makes the dialog taller, up to the work
// area; beyond that (or with a line wider than the control) the message
// shows in a read-only text that scrolls.
void DetailsDialogClass::GrowForText(wxWindow * text, wxString const & wrapped, int extra,
                                     bool tooWide) {
  wxRect const place = text->GetRect();
  if (extra <= 0 && !tooWide) {
    // Centred vertically in the control's place.
    auto * label = dynamic_cast<wxStaticText *>(text);
    if (label != nullptr) label->SetLabelText(wrapped);
    int const height = place.GetHeight() + extra;
    text->SetSize(place.x, place.y - extra / 2, place.GetWidth(), height);
    return;
  }
  wxWindow * shownOver = GetParent() != nullptr ? GetParent() : this;
  int const display = std::max(wxDisplay::GetFromWindow(shownOver), 0);
  wxRect const workArea = wxDisplay(static_cast<unsigned int>(display)).GetClientArea();
  int const room = std::max(0, workArea.GetHeight() - GetSize().GetHeight());
  int const delta = std::clamp(extra, 0, room);
  wxRect grown = place;
  grown.height += delta;
  bool const scrolls = delta < extra || tooWide;
  if (scrolls) {
    text->SetId(wxID_ANY);
    text->Destroy();
    auto * scrolling = new wxTextCtrl(this, kTextId, wrapped, grown.GetPosition(), grown.GetSize(),
                                      wxTE_MULTILINE | wxTE_READONLY | wxHSCROLL | wxBORDER_NONE);
    scrolling->SetBackgroundColour(GetBackgroundColour());
  } else {
    if (auto * label = dynamic_cast<wxStaticText *>(text)) label->SetLabelText(wrapped);
    text->SetSize(grown);
  }
  // OK stands beside the details button and moves with it.
  for (int id : {kCheckBoxId, kDetailsButtonId, kDetailsEditId, static_cast<int>(IDOK)})
    MoveDown(GetDlgItem(id), delta);
  SetClientSize(GetClientSize() + wxSize(0, delta));
}

void DetailsDialogClass::ShowIcon() {
  auto * icon = dynamic_cast<wxStaticBitmap *>(GetDlgItem(kIconId));
  if (icon == nullptr) return;
  wxSize const size = icon->GetSize();
  wxBitmap bitmap;
  if (mIcon == kIconHand)
    bitmap = wxArtProvider::GetBitmap(wxART_ERROR, wxART_MESSAGE_BOX, size);
  else if (mIcon == kIconAsterisk)
    bitmap = wxArtProvider::GetBitmap(wxART_INFORMATION, wxART_MESSAGE_BOX, size);
  else if (mIcon != kIconExclamation)
    bitmap = LoadResourceBitmap(mIcon);
  if (!bitmap.IsOk()) bitmap = wxArtProvider::GetBitmap(wxART_WARNING, wxART_MESSAGE_BOX, size);
  icon->SetBitmap(bitmap);
  icon->SetSize(size);
}

void DetailsDialogClass::ToggleDetails() {
  wxWindow * edit = GetDlgItem(kDetailsEditId);
  mDetailsClosed = !mDetailsClosed;
  if (mDetailsClosed) {
    // Only the width can change while the panel is closed.
    SetMinClientSize(wxSize(-1, mClosedHeight));
    SetMaxClientSize(wxSize(-1, mClosedHeight));
    SetClientSize(GetClientSize().GetWidth(), mClosedHeight);
    if (edit != nullptr) edit->Hide();
  } else {
    SetMaxClientSize(wxDefaultSize);
    SetMinClientSize(wxSize(-1, mClosedHeight));
    SetClientSize(GetClientSize().GetWidth(), mOpenSize.GetHeight());
    if (edit != nullptr) edit->Show();
  }
  if (auto * button = dynamic_cast<wxButton *>(GetDlgItem(kDetailsButtonId)))
    button->SetLabel(vx3::Tr("Details button", "&Details >>"));
}

void DetailsDialogClass::OnDetailsButton(wxCommandEvent & /*event*/) { ToggleDetails(); }

void DetailsDialogClass::OnSizeWhileOpen(wxSizeEvent & event) {
  if (!mDetailsClosed) mOpenSize = GetClientSize();
  event.Skip();  // the anchors move the controls
}

void DetailsDialogClass::OnOK() {
  if (mHasCheckBox && !mKey.empty()) {
    auto * box = dynamic_cast<wxCheckBox *>(GetDlgItem(kCheckBoxId));
    if (box != nullptr && box->IsChecked())
      AppProfile::WriteProfileInt(kDontShowSection, mKey.utf8_str().data(), 1);
  }
  VxDialog::OnOK();
}

void DetailsDialog(wchar_t const * text, wchar_t const * details, unsigned int icon,
                   bool showDetails) {
  MuteDetailsDialog & mute = MuteDetailsDialog::Instance();
  if (mute.IsMuted()) {
    mute(text, details, nullptr);
    return;
  }
  DetailsDialogClass const shown(nullptr, text, details, nullptr, icon, showDetails);
}

void DetailsDialog(wchar_t const * text, wchar_t const * details, wchar_t const * caption,
                   unsigned int icon, bool showDetails) {
  DetailsDialog(nullptr, text, details, caption, icon, showDetails);
}

void DetailsDialog(wxWindow * parent, wchar_t const * text, wchar_t const * details,
                   wchar_t const * caption, unsigned int icon, bool showDetails) {
  MuteDetailsDialog & mute = MuteDetailsDialog::Instance();
  if (mute.IsMuted()) {
    mute(text, details, caption);
    return;
  }
  DetailsDialogClass const shown(parent, text, details, caption, icon, showDetails);
}

void DetailsDialogDontShowAgain(wchar_t const * text, wchar_t const * details,
                                wchar_t const * caption, wchar_t const * key, unsigned int icon,
                                bool showDetails) {
  MuteDetailsDialog & mute = MuteDetailsDialog::Instance();
  if (mute.IsMuted()) {
    mute(text, details, caption);
    return;
  }
  DetailsDialogClass const shown(nullptr, text, details, caption, icon, showDetails,
                                 key != nullptr ? key : L"");
}
