#include "EditsDialog.h"

#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <string>

#include "SampleCommands.h"
#include "controls/VxEdit.h"
#include "controls/VxFindAndSelectEdit.h"
#include "platform/commctrl/CListCtrl.h"
#include "utl/Translation.h"
#include "utl/VxStdString.h"

namespace {

// Run names stay untranslated: they are data.
char const * const kRunNames[] = {
    "Blank 01",    "Standard 01", "Sample 01", "Sample 02", "Control 01",
    "Standard 02", "Sample 03",   "Blank 02",  "Sample 04", "Control 02",
};

wxStaticText * Label(wxWindow * parent, wxString const & text) {
  return new wxStaticText(parent, wxID_ANY, text);
}

}  // namespace

EditsDialog::EditsDialog(wxWindow * parent) : wxDialog(parent, wxID_ANY, vx3::Tr("Edits")) {
  auto * grid = new wxFlexGridSizer(2, wxSize(8, 8));
  grid->AddGrowableCol(1);

  mSearch = new VxEdit(this, wxID_ANY);
  mSearch->SetHintText(vx3::Tr("Search runs").wc_str());
  grid->Add(Label(this, vx3::Tr("Search:")), 0, wxALIGN_CENTER_VERTICAL);
  grid->Add(mSearch, 1, wxEXPAND);

  mKeep = new VxEdit(this, wxID_ANY);
  mKeep->SetNumeric(1, 0);
  grid->Add(Label(this, vx3::Tr("Runs to keep:")), 0, wxALIGN_CENTER_VERTICAL);
  grid->Add(mKeep, 1, wxEXPAND);

  mRuns = new CListCtrl(this, wxID_ANY, wxDefaultPosition, wxSize(260, 160));
  mRuns->InsertColumn(0, vx3::Tr("Run"), LVCFMT_LEFT, 220);
  int row = 0;
  for (char const * name : kRunNames) mRuns->InsertItem(row++, wxString::FromUTF8(name));

  mFind = new VxFindAndSelectEdit(300, mRuns, VxFindAndSelectEdit::FindByPattern);
  mFind->Create(this, wxID_ANY);
  mHow = new wxChoice(this, wxID_ANY);
  // In the order of the HowToFind numbers.
  mHow->Append(vx3::Tr("Wildcards"));
  mHow->Append(vx3::Tr("Contains"));
  mHow->Append(vx3::Tr("By the text"));
  mHow->Append(vx3::Tr("Equals"));
  mHow->SetSelection(VxFindAndSelectEdit::FindByPattern);
  mHow->Bind(wxEVT_CHOICE, [this](wxCommandEvent & event) {
    mFind->SetHowToFind(static_cast<VxFindAndSelectEdit::HowToFind>(event.GetSelection()), true);
  });
  auto * findRow = new wxBoxSizer(wxHORIZONTAL);
  findRow->Add(mFind, 1, wxEXPAND | wxRIGHT, 8);
  findRow->Add(mHow, 0);
  grid->Add(Label(this, vx3::Tr("Select runs:")), 0, wxALIGN_CENTER_VERTICAL);
  grid->Add(findRow, 1, wxEXPAND);
  grid->AddSpacer(0);
  grid->Add(mRuns, 1, wxEXPAND);

  mFilter = new TimedEditBox(300, this);
  mFilter->Create(this, wxID_ANY);
  mFilterResult = Label(this, wxString());
  grid->Add(Label(this, vx3::Tr("Filter:")), 0, wxALIGN_CENTER_VERTICAL);
  grid->Add(mFilter, 1, wxEXPAND);
  grid->AddSpacer(0);
  grid->Add(mFilterResult, 1, wxEXPAND);

  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(grid, 1, wxEXPAND | wxALL, 12);
  sizer->Add(CreateStdDialogButtonSizer(wxOK), 0, wxEXPAND | wxALL, 12);
  SetSizerAndFit(sizer);
}

void EditsDialog::OnTimedEditChanged(TimedEditBox *, wchar_t const * text) {
  std::string const part = wxString(text).utf8_string();
  std::locale const locale;
  int count = 0;
  for (char const * name : kRunNames)
    if (VxStdString::ContainsNoCase(name, part, locale)) ++count;
  wxString result = vx3::Tr("%1% runs match");
  result.Replace("%1%", wxString::Format("%d", count));
  mFilterResult->SetLabel(result);
}

void AddEditsCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kEditsCommand, vx3::Tr("Menu command", "&Edits..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        EditsDialog dialog(&frame);
        dialog.ShowModal();
      },
      kEditsCommand);
}
