#include "dialogs/VxInputDialog.h"

#include <wx/choice.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "dialogs/LimitLineLength.h"
#include "platform/MessageBoxes.h"
#include "utl/KarvinFilterValidator.h"
#include "utl/NumberTakeBack.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

using vx3::Tr;

namespace {

constexpr unsigned kEditTemplate = 13117;
constexpr unsigned kChoicesTemplate = 13380;
constexpr size_t kPromptCharacters = 70;

wxString Text(wchar_t const * text) { return text != nullptr ? wxString(text) : wxString(); }

// Moves every child whose top lies at or below `from` by `dy`.
void MoveControlsBelow(wxWindow & dialog, int from, int dy, wxWindow const * except) {
  for (wxWindow * child : dialog.GetChildren()) {
    if (child == except || child->GetPosition().y < from) continue;
    child->Move(child->GetPosition().x, child->GetPosition().y + dy);
  }
}

}  // namespace

VxInputDialog::VxInputDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * note,
                             wxString & value, int textLimit, KarvinFilterValidator * validator,
                             std::vector<wxString> const * choices)
    : VxInputDialog(nullptr, title, prompt, note, value, textLimit, validator, choices) {}

VxInputDialog::VxInputDialog(wxWindow * parent, wchar_t const * title, wchar_t const * prompt,
                             wchar_t const * note, wxString & value, int textLimit,
                             KarvinFilterValidator * validator,
                             std::vector<wxString> const * choices)
    : VxDialog(choices != nullptr && !choices->empty() ? kChoicesTemplate : kEditTemplate, parent,
               static_cast<unsigned>(-1)),
      mTitle(Text(title)),
      mPrompt(Text(prompt)),
      mNote(Text(note)),
      mValue(value),
      mTextLimit(textLimit),
      mValidator(validator),
      mKind(choices != nullptr && !choices->empty() ? 1 : 0) {
  if (choices != nullptr) mChoices = *choices;
}

VxInputDialog::VxInputDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * note,
                             std::vector<wxString> const & choices, int selection,
                             wxWindow * parent)
    : VxDialog(kEditTemplate, parent, static_cast<unsigned>(-1)),
      mTitle(Text(title)),
      mPrompt(Text(prompt)),
      mNote(Text(note)),
      mValue(mOwnValue),
      mChoices(choices),
      mComboSelection(selection),
      mKind(2) {}

void VxInputDialog::SetNumberOnly(int lowest, int highest) {
  mNumberOnly = true;
  mLowest = lowest;
  mHighest = highest;
}

bool VxInputDialog::OnInitDialog() {
  SetTitle(mTitle.empty() ? wxString::FromUTF8(VxSystemInfo::GetApplicationName()) : mTitle);
  if (auto * prompt = wxDynamicCast(GetDlgItem(kPrompt), wxStaticText)) prompt->SetLabel(mPrompt);
  if (auto * note = wxDynamicCast(GetDlgItem(kNote), wxStaticText)) note->SetLabel(mNote);
  mEdit = wxDynamicCast(GetDlgItem(kEdit), wxTextCtrl);
  if (mKind == 1) mCombo = wxDynamicCast(GetDlgItem(kChoices), wxChoice);
  if (mEdit == nullptr) return false;

  if (mKind != 2) {
    mEdit->ChangeValue(mValue);
    if (mTextLimit > 0) mEdit->SetMaxLength(static_cast<unsigned long>(mTextLimit));
    if (mNumberOnly) {
      // As a number-only edit: typing takes digits only, not even a sign.
      mEdit->Bind(wxEVT_CHAR, [](wxKeyEvent & event) {
        wxChar const key = event.GetUnicodeKey();
        if (key >= 32 && key != 127 && (key < '0' || key > '9')) return;
        event.Skip();
      });
    }
    mEdit->SelectAll();
    mEdit->SetFocus();
  } else {
    // The choice takes the edit's place, with the edit's number.
    wxRect const rect = mEdit->GetRect();
    mEdit->Destroy();
    mEdit = nullptr;
    mCombo = new wxChoice(this, kEdit, rect.GetPosition(), wxSize(rect.width, -1));
    mCombo->SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  }
  if (mCombo != nullptr && !mChoices.empty()) {
    for (wxString const & choice : mChoices) mCombo->Append(choice);
    mCombo->SetSelection(mComboSelection >= 0 && mComboSelection < static_cast<int>(mChoices.size())
                             ? mComboSelection
                             : wxNOT_FOUND);
    mCombo->SetFocus();
  }
  // Sized before the anchors take over, so that nothing moves twice.
  ResizeDialogAndControls();
  AddAnchor(kPrompt, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kEdit, TOP_LEFT, TOP_RIGHT);
  AddAnchor(kNote, BOTTOM_LEFT, BOTTOM_RIGHT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  AddAnchor(IDCANCEL, BOTTOM_RIGHT);
  if (mKind == 1) {
    AddAnchor(kChoicesLabel, TOP_LEFT, TOP_RIGHT);
    AddAnchor(kChoices, TOP_LEFT, TOP_RIGHT);
  }
  return true;
}

void VxInputDialog::ResizeDialogAndControls() {
  int grown = 0;
  if (wxWindow * prompt = GetDlgItem(kPrompt)) {
    std::wstring const wrapped =
        LimitLineLength::ByCharacters(mPrompt.ToStdWstring(), kPromptCharacters);
    static_cast<wxStaticText *>(prompt)->SetLabel(wrapped);
    wxRect const bounds = LimitLineLength::GetBoundsRect(wrapped.c_str(), prompt->GetFont());
    int const margin = FromDlgY(4);
    wxRect const rect = prompt->GetRect();
    if (bounds.height > rect.height - margin) {
      int const dy = bounds.height + margin - rect.height;
      MoveControlsBelow(*this, rect.GetBottom() + 1, dy, prompt);
      prompt->SetSize(rect.width, rect.height + dy);
      grown += dy;
    }
  }
  if (wxWindow * note = GetDlgItem(kNote)) {
    wxRect const rect = note->GetRect();
    int dy = 0;
    if (mNote.empty()) {
      // The gap closes: what lies below comes up to where the note began.
      note->Hide();
      int nextTop = GetClientSize().y;
      for (wxWindow * child : GetChildren())
        if (child != note && child->IsShown() && child->GetPosition().y > rect.y)
          nextTop = std::min(nextTop, child->GetPosition().y);
      dy = rect.y - nextTop;
    } else {
      wxRect const bounds = LimitLineLength::GetBoundsRect(mNote.wc_str(), note->GetFont());
      note->SetSize(rect.width, bounds.height);
      dy = bounds.height - rect.height;
    }
    MoveControlsBelow(*this, rect.GetBottom() + 1, dy, note);
    grown += dy;
  }
  if (grown != 0) {
    wxSize const client = GetClientSize();
    SetClientSize(client.x, client.y + grown);
  }
}

wxString VxInputDialog::NumberProblem(wxString const & text) const {
  bool const hasLowest = mLowest != kNoLowest;
  bool const hasHighest = mHighest != kNoHighest;
  if (!mNumberOnly || (!hasLowest && !hasHighest)) return {};
  int const number = TakeBackNumber(text.wc_str());
  wxString message;
  if (hasLowest && hasHighest) {
    if (number >= mLowest && number <= mHighest) return {};
    message = Tr("Please enter a number between %1% and %2%.");
    message.Replace("%1%", wxString::Format("%d", mLowest));
    message.Replace("%2%", wxString::Format("%d", mHighest));
  } else if (hasHighest) {
    if (number <= mHighest) return {};
    message = Tr("Please enter a number less than %1%.");
    message.Replace("%1%", wxString::Format("%d", mHighest));
  } else {
    if (number >= mLowest) return {};
    message = Tr("Please enter a number greater than %1%.");
    message.Replace("%1%", wxString::Format("%d", mLowest));
  }
  return message;
}

void VxInputDialog::RefocusEdit() {
  if (mEdit == nullptr) return;
  mEdit->SetFocus();
  mEdit->SelectAll();
}

void VxInputDialog::OnOK() {
  if (mCombo != nullptr && !mChoices.empty()) mComboSelection = mCombo->GetSelection();
  wxString text = mValue;
  if (mKind != 2 && mEdit != nullptr) text = mEdit->GetValue();
  if (mKind != 2) {
    wxString const problem = NumberProblem(text);
    if (!problem.empty()) {
      AfxMessageBox(problem, MB_OK);
      RefocusEdit();
      return;
    }
    if (mValidator != nullptr && !mValidator->IsValid(text.utf8_str())) {
      mValidator->Error(this);
      RefocusEdit();
      return;
    }
  }
  mValue = text;
  EndDialog(IDOK);
}
