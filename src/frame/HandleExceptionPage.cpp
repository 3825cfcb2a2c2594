#include "frame/HandleExceptionPage.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/font.h>
#include <wx/hyperlink.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "platform/MessageBoxes.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

wxString WithApplicationName(wxString text) {
  text.Replace("%1%", wxString::FromUTF8(VxSystemInfo::GetApplicationName()));
  return text;
}

}  // namespace

HandleExceptionPage::HandleExceptionPage(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, wxString::FromUTF8(VxSystemInfo::GetApplicationName())) {
  auto * title = new wxStaticText(this, wxID_ANY, vx3::Tr("Unknown error occurred."));
  title->SetFont(title->GetFont().Bold());
  auto * subtitle = new wxStaticText(
      this, wxID_ANY,
      WithApplicationName(vx3::Tr("%1% has encountered a problem and needs\nto close. We are "
                                  "sorry for the inconvenience.")));
  mRestart = new wxCheckBox(this, kRestartBoxId, WithApplicationName(vx3::Tr("&Restart %1%")));
  mRestart->SetValue(true);
  auto * details = new wxStaticText(
      this, kDetailsId,
      WithApplicationName(vx3::Tr("If the problem persists, tell us what %1% was doing.")));
  auto * moreInformation = new wxButton(this, kMoreInformationId, vx3::Tr("&More information..."));
  auto * link = new wxHyperlinkCtrl(this, kSupportLinkId, vx3::Tr("Support page"),
                                    wxString::FromUTF8(VxSystemInfo::GetSupportPage()));
  mFinish = new wxButton(this, kFinishId, wxString());
  auto * ignore = new wxButton(this, kIgnoreId, vx3::Tr("Ignore button", "&Ignore"));

  auto * buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(mFinish, 0, wxRIGHT, FromDIP(8));
  buttons->Add(ignore);
  auto * column = new wxBoxSizer(wxVERTICAL);
  int const gap = FromDIP(10);
  column->Add(title, 0, wxALL, gap);
  column->Add(subtitle, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(mRestart, 0, wxALL, gap);
  column->Add(details, 0, wxLEFT | wxRIGHT, gap);
  column->Add(moreInformation, 0, wxALL, gap);
  column->Add(link, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(buttons, 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(column);
  UpdateFinishLabel();
  // The finish button is the wider of its two labels, so it does not jump.
  mFinish->SetMinSize(mFinish->GetBestSize() + wxSize(FromDIP(80), 0));
  Layout();
  Fit();
  SetEscapeId(kIgnoreId);
  SetAffirmativeId(kFinishId);

  mRestart->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent &) { UpdateFinishLabel(); });
  moreInformation->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { OnMoreInformation(); });
  mFinish->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { EndModal(kFinishId); });
  ignore->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { EndModal(kIgnoreId); });
}

bool HandleExceptionPage::GetRestart() const { return mRestart->GetValue(); }

void HandleExceptionPage::UpdateFinishLabel() {
  mFinish->SetLabel(GetRestart() ? vx3::Tr("Restart button", "R&estart")
                                 : vx3::Tr("Exit button", "&Exit"));
}

void HandleExceptionPage::OnMoreInformation() {
  wxString text;
  if (mDetailText.empty()) {
    text = vx3::Tr("There were no more information about this problem.");
  } else {
    text = vx3::Tr("Error reported by the exception handler:\n\n%1%");
    text.Replace("%1%", wxString::FromUTF8(mDetailText));
  }
  MessageBoxW(this, text.wc_str(), GetTitle().wc_str(), MB_OK | MB_ICONINFORMATION);
}
