#include "favourites/FavouriteImportFailedDialog.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/collpane.h>
#include <wx/font.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <boost/format.hpp>

#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {
constexpr int kGap = 10;
constexpr int kDetailsWidth = 420;
constexpr int kDetailsHeight = 120;
}  // namespace

FavouriteImportFailedDialog::FavouriteImportFailedDialog(wxWindow * parent,
                                                         wxString const & fileName,
                                                         wxString const & why)
    : wxDialog(parent, wxID_ANY, wxString::FromUTF8(VxSystemInfo::GetApplicationName()),
               wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mInstruction(vx3::Tr("Could not import favorites")),
      mContent(wxString::FromUTF8(
          (boost::format(vx3::Tr("%1% is not a valid favorites file.").utf8_string()) %
           fileName.utf8_string())
              .str())),
      mDetails(why) {
  auto * const top = new wxBoxSizer(wxVERTICAL);
  auto * const head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(
      new wxStaticBitmap(this, wxID_ANY, wxArtProvider::GetBitmap(wxART_ERROR, wxART_MESSAGE_BOX)),
      0, wxALL, kGap);
  auto * const texts = new wxBoxSizer(wxVERTICAL);
  auto * const instruction = new wxStaticText(this, wxID_ANY, mInstruction);
  wxFont bold = instruction->GetFont();
  bold.SetWeight(wxFONTWEIGHT_BOLD);
  bold.SetFractionalPointSize(bold.GetFractionalPointSize() * 1.2);
  instruction->SetFont(bold);
  texts->Add(instruction, 0, wxBOTTOM, kGap);
  texts->Add(new wxStaticText(this, wxID_ANY, mContent), 0);
  head->Add(texts, 1, wxTOP | wxRIGHT, kGap);
  top->Add(head, 0, wxEXPAND);

  mPane = new wxCollapsiblePane(this, wxID_ANY, vx3::Tr("Hide details"));
  auto * const details =
      new wxTextCtrl(mPane->GetPane(), wxID_ANY, mDetails, wxDefaultPosition,
                     wxSize(kDetailsWidth, kDetailsHeight), wxTE_MULTILINE | wxTE_READONLY);
  auto * const paneSizer = new wxBoxSizer(wxVERTICAL);
  paneSizer->Add(details, 1, wxEXPAND);
  mPane->GetPane()->SetSizer(paneSizer);
  mPane->Expand();
  UpdateExpanderLabel();
  top->Add(mPane, 1, wxEXPAND | wxLEFT | wxRIGHT, kGap);

  auto * const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  auto * const ok = new wxButton(this, wxID_OK, vx3::Tr("OK"));
  ok->SetDefault();
  buttons->Add(ok, 0, wxALL, kGap);
  top->Add(buttons, 0, wxEXPAND);
  SetSizerAndFit(top);
  SetEscapeId(wxID_OK);
  Bind(wxEVT_COLLAPSIBLEPANE_CHANGED, &FavouriteImportFailedDialog::OnPaneChanged, this);
  ok->SetFocus();
}

wxString FavouriteImportFailedDialog::GetInstruction() const { return mInstruction; }

wxString FavouriteImportFailedDialog::GetContent() const { return mContent; }

wxString FavouriteImportFailedDialog::GetDetails() const { return mDetails; }

bool FavouriteImportFailedDialog::IsExpanded() const { return mPane->IsExpanded(); }

wxString FavouriteImportFailedDialog::GetExpanderLabel() const { return mExpanderLabel; }

void FavouriteImportFailedDialog::SetExpanded(bool expanded) {
  mPane->Collapse(!expanded);
  UpdateExpanderLabel();
}

void FavouriteImportFailedDialog::OnPaneChanged(wxCollapsiblePaneEvent & event) {
  UpdateExpanderLabel();
  Layout();
  event.Skip();
}

void FavouriteImportFailedDialog::UpdateExpanderLabel() {
  mExpanderLabel = mPane->IsExpanded() ? vx3::Tr("Hide details") : vx3::Tr("Show details");
  mPane->SetLabel(mExpanderLabel);
}

void ShowFavouriteImportFailure(wxWindow * parent, wxString const & fileName,
                                wxString const & why) {
  FavouriteImportFailedDialog dialog(parent, fileName, why);
  dialog.ShowModal();
}
