#include "dialogs/VxDialog.h"

#include <cwchar>
#include <cwctype>
#include <string>

#include <wx/toplevel.h>

#include "html/VxHtmlHelp.h"
#include "platform/ResourceModule.h"
#include "platform/RunningApplication.h"
#include "platform/WinUser.h"
#include "utl/Log.h"

namespace {

unsigned int TemplateNumber(wchar_t const * name) {
  if (name == nullptr) return 0;
  if (*name == L'#') ++name;
  if (!std::iswdigit(*name)) return 0;
  unsigned long const number = std::wcstoul(name, nullptr, 10);
  return number <= 0xFFFF ? static_cast<unsigned int>(number) : 0;
}

}  // namespace

VxDialog::VxDialog() { BindCommands(); }

VxDialog::VxDialog(unsigned int templateId, wxWindow * parent, unsigned int helpTopicId)
    : mTemplateId(templateId),
      mHelpTopicId(helpTopicId),
      mParent(parent != nullptr ? parent : GetDialogParent()) {
  BindCommands();
}

VxDialog::VxDialog(wchar_t const * templateName, wxWindow * parent, unsigned int helpTopicId)
    : VxDialog(TemplateNumber(templateName), parent, helpTopicId) {}

VxDialog::~VxDialog() = default;

void VxDialog::BindCommands() {
  Bind(wxEVT_BUTTON, &VxDialog::OnButton, this);
  Bind(wxEVT_CHAR_HOOK, &VxDialog::OnCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, &VxDialog::OnClose, this);
  Bind(
      wxEVT_UPDATE_UI, [this](wxUpdateUIEvent & event) { OnUpdateHelp(event); }, IDHELP);
  // Escape and Enter are the dialog's own business (OnCharHook, the default
  // button), not wx's standard-button emulation.
  SetEscapeId(wxID_NONE);
}

wxWindow * VxDialog::GetDialogParent() {
  // The newest dialog running modally owns what opens now, as the main
  // window's last active pop-up did.
  for (auto it = wxTopLevelWindows.rbegin(); it != wxTopLevelWindows.rend(); ++it) {
    auto * dialog = wxDynamicCast(*it, wxDialog);
    if (dialog != nullptr && dialog->IsModal() && dialog->IsShown()) return dialog;
  }
  // wx names any top-level window the main one when the application set
  // none; a hidden one (a dialog between runs) owns nothing.
  wxWindow * main = AppMainWindow();
  if (main == nullptr || !main->IsShown()) return nullptr;
  return wxGetTopLevelParent(main);
}

bool VxDialog::CreateFromTemplate() {
  wxWindow * parent = mParent ? mParent.get() : GetDialogParent();
  // A window left from an earlier run is the parent's child for this run only.
  if (GetHandle() != nullptr && parent != nullptr) parent->AddChild(this);
  if (mTemplateId == 0 || !LoadDialogTemplate(*this, parent, mTemplateId, mExtraStyle)) {
    Log::WriteMessage("VxDialog", "DoModal",
                      "Dialog template " + std::to_string(mTemplateId) + " cannot be built",
                      Log::Error, false);
    return false;
  }
  return true;
}

int VxDialog::DoModal() {
  if (!CreateFromTemplate()) return -1;
  mEndedEarly = false;
  mInitialising = true;
  RunGuarded([this] { OnInitDialog(); });
  mInitialising = false;
  UpdateWindowUI(wxUPDATE_UI_RECURSE);  // the controls' state at the first paint
  int const result = mEndedEarly ? mEarlyResult : ShowModal();
  // The window stays (hidden) for the next run; its controls go.
  if (IsShown()) Hide();
  RemoveAllAnchors();
  ResetMinMax();
  DestroyChildren();
  // Between runs the window belongs to no one: a parent destroyed meanwhile
  // must not delete this object, which its owner keeps.
  if (wxWindow * parent = GetParent()) parent->RemoveChild(this);
  return result;
}

void VxDialog::EndDialog(int result) {
  if (IsModal()) {
    EndModal(result);
  } else if (mInitialising) {
    mEndedEarly = true;
    mEarlyResult = result;
  } else {
    Hide();  // a dialog shown without DoModal
  }
}

bool VxDialog::UpdateData(bool saveAndValidate) { return DoDataExchange(saveAndValidate); }

bool VxDialog::DoDataExchange(bool) { return true; }

wxWindow * VxDialog::GetDlgItem(int id) const {
  // Among the controls only: a template may give a control the dialog's own
  // number, and FindWindow would answer with the dialog.
  for (wxWindow * child : GetChildren())
    if (wxWindow * found = child->FindWindow(id)) return found;
  return nullptr;
}

int VxDialog::FromDlgX(int units) const { return FromDlgY(units); }

int VxDialog::FromDlgY(int units) const {
  int const height = ConvertDialogToPixels(wxSize(1000, 1000)).y;
  return static_cast<int>(static_cast<long long>(height) * units / 1000);
}

void VxDialog::ShowMaximiseButton() {
  mExtraStyle |= wxMAXIMIZE_BOX;
  if (GetHandle() != nullptr) SetWindowStyleFlag(GetWindowStyleFlag() | wxMAXIMIZE_BOX);
}

bool VxDialog::OnInitDialog() { return UpdateData(false); }

void VxDialog::OnOK() {
  if (UpdateData(true)) EndDialog(IDOK);
}

void VxDialog::OnCancel() { EndDialog(IDCANCEL); }

void VxDialog::OnHelp() {
  if (mHelpTopicId == 0 || mHelpTopicId == static_cast<unsigned int>(-1)) return;
  VxHtmlHelp::Instance()->DisplayTopic(static_cast<int>(mHelpTopicId));
}

void VxDialog::OnUpdateHelp(wxUpdateUIEvent & event) {
  bool const topic = mHelpTopicId != 0 && mHelpTopicId != static_cast<unsigned int>(-1);
  event.Enable(topic && VxHtmlHelp::Instance()->IsAvailable());
}

bool VxDialog::PreTranslateMessage(wxKeyEvent &) { return false; }

void VxDialog::SendCommand(int id) {
  wxCommandEvent command(wxEVT_BUTTON, id);
  command.SetEventObject(this);
  ProcessWindowEvent(command);
}

void VxDialog::OnButton(wxCommandEvent & event) {
  switch (event.GetId()) {
    case IDOK: OnOK(); break;
    case IDCANCEL: OnCancel(); break;
    case IDHELP: OnHelp(); break;
    default: event.Skip(); break;
  }
}

void VxDialog::OnCharHook(wxKeyEvent & event) {
  if (PreTranslateMessage(event)) return;
  if (event.GetKeyCode() == WXK_ESCAPE && event.GetModifiers() == wxMOD_NONE) {
    SendCommand(IDCANCEL);
    return;
  }
  event.Skip();
}

void VxDialog::OnClose(wxCloseEvent &) {
  // Not skipped: the window stays unless OnCancel ends the dialog.
  SendCommand(IDCANCEL);
}
