#include "datetime/SpecifyDateFormat.h"

#include <wx/combobox.h>
#include <wx/dcclient.h>
#include <wx/textctrl.h>
#include <boost/format.hpp>

#include "datetime/RecentDateFormats.h"
#include "dialogs/LimitLineLength.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"
#include "utl/Utf.h"
#include "utl/VxTimeUtl.h"

namespace {

wxString FromUtf8(std::string const & text) { return {vx3::Utf8ToWide(text)}; }

std::string ToUtf8(wxString const & text) { return vx3::WideToUtf8(text.ToStdWstring()); }

// The user's regional date and time, in the format language.
wxString RegionalFormat() {
  using namespace VxTimeUtl;
  return FromUtf8((boost::format("%1% %2%") % GetUserLocaleDate(false, UserLocale) %
                   GetUserLocaleTime(UserLocale))
                      .str());
}

// "\r\n" stays, a lone "\n" becomes "\r\n".
wxString WithCrLf(wxString text) {
  text.Replace("\r\n", "\n");
  text.Replace("\n", "\r\n");
  return text;
}

}  // namespace

SpecifyDateFormat::SpecifyDateFormat(std::string const & heading, std::string const & sample,
                                     std::string const & format, wxWindow * parent)
    : SpecifyDateFormat(vx3::Utf8ToWide(heading), vx3::Utf8ToWide(sample), vx3::Utf8ToWide(format),
                        parent) {}

SpecifyDateFormat::SpecifyDateFormat(std::wstring const & heading, std::wstring const & sample,
                                     std::wstring const & format, wxWindow * parent)
    : VxDialog(kTemplate, parent), mHeading(heading), mSample(sample), mFormat(format) {
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { DetailsButton(); }, kDetailsButtonId);
  Bind(wxEVT_UPDATE_UI, &SpecifyDateFormat::OnUpdateOkButton, this, IDOK);
}

void SpecifyDateFormat::SetNoDate() {
  mSample.clear();
  for (int id : {kSampleLabelId, kSampleId})
    if (wxWindow * control = GetDlgItem(id)) control->SetLabel(wxString());
}

wxString SpecifyDateFormat::GetFormatDetails() {
  // The item at each line's start is the format language itself: the
  // contexts tell translators to keep it.
  using vx3::Tr;
  return Tr("yyyy not translated", "yyyy - year using four digits (ex. 2005)\n") +
         Tr("yy not translated", "yy - year using two digits (ex. 05)\n") +
         Tr("MMM not translated", "MMM - month using three letters (ex. Aug)\n") +
         Tr("MM not translated", "MM - month using two digits (ex. 08)\n") +
         Tr("M not translated", "M - month without leading 0 (ex. 8)\n") +
         Tr("ddd not translated", "ddd - day of week using three letters (ex. Mon)\n") +
         Tr("dd not translated", "dd - day in month using two digits (ex. 05)\n") +
         Tr("d not translated", "d - day in month without leading 0 (ex. 5)\n") +
         Tr("HH not translated", "HH - hour representing 24 hour day\n") +
         Tr("H not translated", "H - hour representing 24 hour day, no leading 0\n") +
         Tr("hh not translated", "hh - hour representing 12 hour day\n") +
         Tr("h not translated", "h - hour representing 12 hour day, no leading 0\n") +
         Tr("mm not translated", "mm - minutes using 2 digits\n") +
         Tr("ss not translated", "ss - seconds using 2 digits\n") +
         Tr("fff not translated", "fff - fractional seconds using 3 digits (milliseconds)\n") +
         Tr("tt not translated", "tt - AM or PM\n");
}

bool SpecifyDateFormat::OnInitDialog() {
  if (!mHeading.empty()) GetDlgItem(kHeadingId)->SetLabel(mHeading);
  GetDlgItem(kSampleId)->SetLabel(mSample);
  if (mFormat.empty()) mFormat = RegionalFormat();
  FillFormats();
  if (mSample.empty()) GetDlgItem(kSampleLabelId)->SetLabel(wxString());
  FitSampleToHint();
  auto * details = wxStaticCast(GetDlgItem(kDetailsId), wxTextCtrl);
  details->ChangeValue(WithCrLf(GetFormatDetails()));

  mFullClient = GetClientSize();
  mShortClient = wxSize(mFullClient.x, details->GetPosition().y - kShortGap);

  bool const result = VxDialog::OnInitDialog();
  for (int id : {kSampleLabelId, kSampleId, kFormatLabelId, kFormatComboId})
    AddAnchor(id, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kDetailsButtonId, TOP_LEFT);
  AddAnchor(IDOK, TOP_RIGHT);
  AddAnchor(IDCANCEL, TOP_RIGHT);
  AddAnchor(kDetailsId, TOP_LEFT, BOTTOM_RIGHT);

  mDetailsHidden = false;
  DetailsButton();  // starts closed
  return result;
}

void SpecifyDateFormat::FillFormats() {
  auto * combo = wxStaticCast(GetDlgItem(kFormatComboId), wxComboBox);
  combo->Append(mFormat);
  for (std::string const & recent : VxTimeUtl::ReadRecentDateFormats()) {
    wxString const format = FromUtf8(recent);
    if (format != mFormat) combo->Append(format);
  }
  combo->SetSelection(0);
}

void SpecifyDateFormat::FitSampleToHint() {
  // The static is made as tall as the hint needs at its width, so that a
  // long sample has the room of a wrapped sentence; the controls below it,
  // the dialog and its minimum grow by the difference.
  wxWindow * sample = GetDlgItem(kSampleId);
  wxClientDC dc(sample);
  dc.SetFont(sample->GetFont());
  std::wstring const hint =
      vx3::Tr("The date could not be parsed automatically. Specify the format to use.")
          .ToStdWstring();
  std::wstring const wrapped =
      LimitLineLength::ByPixels(hint, dc, static_cast<size_t>(sample->GetClientSize().x));
  int const height = LimitLineLength::GetBoundsRect(wrapped.c_str(), sample->GetFont()).height;
  wxRect const place = sample->GetRect();
  int const growth = height - place.height;
  sample->SetSize(place.x, place.y, place.width, height);
  for (wxWindow * child : GetChildren())
    if (child != sample && child->GetPosition().y >= place.GetBottom())
      child->Move(child->GetPosition().x, child->GetPosition().y + growth);
  SetMinTrackSize(GetSize() + wxSize(0, growth));
  SetClientSize(GetClientSize() + wxSize(0, growth));
}

void SpecifyDateFormat::DetailsButton() {
  wxWindow * button = GetDlgItem(kDetailsButtonId);
  wxWindow * details = GetDlgItem(kDetailsId);
  if (button == nullptr || details == nullptr) return;
  wxSize const frame = GetSize() - GetClientSize();
  if (mDetailsHidden) {
    mDetailsHidden = false;
    button->SetLabel(vx3::Tr("Hide details <<"));
    SetMinTrackSize(mFullClient + frame);
    SetClientSize(GetClientSize().x, mFullClient.y);
    details->Show();
  } else {
    mDetailsHidden = true;
    button->SetLabel(vx3::Tr("Show details >>"));
    SetMinTrackSize(mShortClient + frame);
    SetClientSize(GetClientSize().x, mShortClient.y);
    details->Hide();
  }
}

void SpecifyDateFormat::OnOK() {
  auto * combo = wxStaticCast(GetDlgItem(kFormatComboId), wxComboBox);
  if (combo->GetValue().empty()) return;  // OK is disabled then; Enter must not pass
  mFormat = combo->GetValue();
  std::vector<std::string> recent = VxTimeUtl::ReadRecentDateFormats();
  if (VxTimeUtl::MoveToFront(recent, ToUtf8(mFormat))) VxTimeUtl::WriteRecentDateFormats(recent);
  VxDialog::OnOK();
}

void SpecifyDateFormat::OnUpdateOkButton(wxUpdateUIEvent & event) {
  wxWindow * combo = GetDlgItem(kFormatComboId);
  event.Enable(combo != nullptr && !static_cast<wxComboBox *>(combo)->GetValue().empty());
}
