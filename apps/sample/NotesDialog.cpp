#include "NotesDialog.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/filedlg.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/tglbtn.h>

#include <array>

#include "SampleCommands.h"
#include "controls/VxRichEdit.h"
#include "utl/Translation.h"

namespace {

struct NamedColour {
  char const * name;
  COLORREF colour;
};
// The pad's colours, the first the text's own.
std::array<NamedColour, 4> const kColours = {{
    {"Black", RGB(0, 0, 0)},
    {"Red", RGB(192, 0, 0)},
    {"Green", RGB(0, 128, 0)},
    {"Blue", RGB(0, 0, 192)},
}};
std::array<int, 4> const kSizes = {10, 12, 16, 24};
// In the order of VxRichEdit::Font; face names are data, never translated.
std::array<char const *, 3> const kFaces = {"Arial", "Times New Roman", "Courier New"};

}  // namespace

NotesDialog::NotesDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Notes"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
  auto * tools = new wxBoxSizer(wxHORIZONTAL);
  mBold = new wxToggleButton(this, wxID_ANY, vx3::Tr("Format button", "Bold"));
  mUnderline = new wxToggleButton(this, wxID_ANY, vx3::Tr("Format button", "Underline"));
  mColour = new wxChoice(this, wxID_ANY);
  for (NamedColour const & c : kColours) mColour->Append(vx3::Tr("Colour", c.name));
  mColour->SetSelection(0);
  mSize = new wxChoice(this, wxID_ANY);
  for (int points : kSizes) mSize->Append(wxString::Format("%d", points));
  mSize->SetSelection(0);
  mFace = new wxChoice(this, wxID_ANY);
  for (char const * face : kFaces) mFace->Append(face);
  mFace->SetSelection(0);
  auto * open = new wxButton(this, wxID_OPEN, vx3::Tr("Open RTF..."));
  auto * save = new wxButton(this, wxID_SAVE, vx3::Tr("Save RTF..."));
  for (wxWindow * tool :
       std::initializer_list<wxWindow *>{mBold, mUnderline, mColour, mSize, mFace, open, save})
    tools->Add(tool, 0, wxRIGHT, 4);

  mPad = new VxRichEdit(this, wxID_ANY, wxDefaultPosition, wxSize(520, 300));
  mStatus = new wxStaticText(this, wxID_ANY, wxString());

  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(tools, 0, wxALL, 8);
  sizer->Add(mPad, 1, wxEXPAND | wxLEFT | wxRIGHT, 8);
  sizer->Add(mStatus, 0, wxEXPAND | wxALL, 8);
  sizer->Add(CreateStdDialogButtonSizer(wxOK), 0, wxEXPAND | wxALL, 8);
  SetSizerAndFit(sizer);

  mBold->Bind(wxEVT_TOGGLEBUTTON, [this](wxCommandEvent &) { ApplyFormat(); });
  mUnderline->Bind(wxEVT_TOGGLEBUTTON, [this](wxCommandEvent &) { ApplyFormat(); });
  for (wxChoice * choice : {mColour, mSize, mFace})
    choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent &) { ApplyFormat(); });
  open->Bind(wxEVT_BUTTON, &NotesDialog::OnOpen, this);
  save->Bind(wxEVT_BUTTON, &NotesDialog::OnSave, this);
  ApplyFormat();
}

void NotesDialog::ApplyFormat() {
  auto const colour = kColours[static_cast<size_t>(mColour->GetSelection())].colour;
  int const points = kSizes[static_cast<size_t>(mSize->GetSelection())];
  int const face = mFace->GetSelection();
  // The format of the next insert, as the family's rich edit keeps it.
  mPad->SetBold(mBold->GetValue());
  mPad->SetUnderline(mUnderline->GetValue());
  mPad->SetTextColor(colour);
  mPad->SetFontSize(points);
  mPad->SetFont(static_cast<VxRichEdit::Font>(face));
  // And of the selection and of what is typed next.
  wxRichTextAttr attr;
  attr.SetFontWeight(mBold->GetValue() ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
  attr.SetFontUnderlined(mUnderline->GetValue());
  attr.SetTextColour(wxColour(GetRValue(colour), GetGValue(colour), GetBValue(colour)));
  attr.SetFontSize(points);
  attr.SetFontFaceName(kFaces[static_cast<size_t>(face)]);
  if (mPad->HasSelection()) mPad->SetStyle(mPad->GetSelectionRange(), attr);
  mPad->SetDefaultStyle(attr);
}

bool NotesDialog::OpenFile(wxString const & path) {
  bool const read = mPad->Read(path.wc_str());
  wxString status = read ? vx3::Tr("Opened %1%") : vx3::Tr("Could not read all of %1%");
  status.Replace("%1%", path);
  mStatus->SetLabel(status);
  return read;
}

bool NotesDialog::SaveFile(wxString const & path) {
  bool const saved = mPad->Save(path.wc_str());
  wxString status = saved ? vx3::Tr("Saved %1%") : vx3::Tr("Could not save %1%");
  status.Replace("%1%", path);
  mStatus->SetLabel(status);
  return saved;
}

void NotesDialog::OnOpen(wxCommandEvent &) {
  wxFileDialog dialog(this, vx3::Tr("Open notes"), wxString(), wxString(),
                      vx3::Tr("Rich text (*.rtf)|*.rtf"), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() == wxID_OK) OpenFile(dialog.GetPath());
}

void NotesDialog::OnSave(wxCommandEvent &) {
  wxFileDialog dialog(this, vx3::Tr("Save notes"), wxString(), "notes.rtf",
                      vx3::Tr("Rich text (*.rtf)|*.rtf"), wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
  if (dialog.ShowModal() == wxID_OK) SaveFile(dialog.GetPath());
}

void AddNotesCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kNotesCommand, vx3::Tr("Menu command", "&Notes"));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        NotesDialog dialog(&frame);
        dialog.ShowModal();
      },
      kNotesCommand);
}
