#include "ReleaseNotesDialog.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include "SampleCommands.h"
#include "controls/VxRichEdit.h"
#include "utl/Translation.h"

ReleaseNotesDialog::ReleaseNotesDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Release notes"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
  mNotes = new VxRichEdit(this, wxID_ANY, wxDefaultPosition, wxSize(560, 360),
                          wxRE_MULTILINE | wxRE_READONLY | wxVSCROLL);
  mNotes->SetRichEditResource(kReleaseNotesResource);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mNotes, 1, wxEXPAND | wxALL, 8);
  sizer->Add(CreateStdDialogButtonSizer(wxOK), 0, wxEXPAND | wxALL, 8);
  SetSizerAndFit(sizer);
}

void AddReleaseNotesCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kReleaseNotesCommand, vx3::Tr("Menu command", "&Release notes"));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        ReleaseNotesDialog dialog(&frame);
        dialog.ShowModal();
      },
      kReleaseNotesCommand);
}
