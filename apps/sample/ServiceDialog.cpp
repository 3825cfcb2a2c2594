#include "ServiceDialog.h"

#include <unistd.h>

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <cstdlib>
#include <filesystem>

#include "SampleCommands.h"
#include "service/NTServiceControl.h"
#include "service/ServiceErrorText.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

std::wstring SampleServiceProgram() {
  std::error_code error;
  auto const self = std::filesystem::read_symlink("/proc/self/exe", error);
  return (self.parent_path() / "talvo-sample-service").wstring();
}

}  // namespace

ServiceDialog::ServiceDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, Tr("Dialog title", "Sample Service"), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
  // A user's own services need no administrator.
  if (::geteuid() != 0 && std::getenv("TALVO_SERVICE_MANAGER") == nullptr)
    ::setenv("TALVO_SERVICE_MANAGER", "user", 1);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * nameRow = new wxBoxSizer(wxHORIZONTAL);
  nameRow->Add(new wxStaticText(this, wxID_ANY, Tr("Service &name:")), 0,
               wxALIGN_CENTER_VERTICAL | wxRIGHT, 6);
  mName = new wxTextCtrl(this, wxID_ANY, "talvo-sample-service");
  nameRow->Add(mName, 1);
  sizer->Add(nameRow, 0, wxEXPAND | wxALL, 8);
  auto * buttons = new wxBoxSizer(wxHORIZONTAL);
  struct Item {
    Button id;
    char const * label;
  };
  for (Item const & item :
       {Item{kInstall, "&Install"}, Item{kUninstall, "&Uninstall"}, Item{kStart, "&Start"},
        Item{kStop, "S&top"}, Item{kStatus, "Stat&us"}}) {
    buttons->Add(new wxButton(this, item.id, Tr("Service button", item.label)), 0, wxRIGHT, 4);
    Bind(
        wxEVT_BUTTON, [this, id = item.id](wxCommandEvent &) { Run(id); }, item.id);
  }
  sizer->Add(buttons, 0, wxLEFT | wxRIGHT, 8);
  mLog = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxSize(520, 160),
                        wxTE_MULTILINE | wxTE_READONLY);
  sizer->Add(mLog, 1, wxEXPAND | wxALL, 8);
  sizer->Add(CreateButtonSizer(wxCLOSE), 0, wxEXPAND | wxALL, 8);
  SetEscapeId(wxID_CLOSE);
  SetSizerAndFit(sizer);
}

wxString ServiceDialog::ServiceName() const { return mName->GetValue(); }

wxString ServiceDialog::GetLog() const { return mLog->GetValue(); }

void ServiceDialog::Run(Button button) {
  std::wstring const name = ServiceName().ToStdWstring();
  NTServiceControl control(name.c_str(), nullptr);
  bool ok = false;
  unsigned long state = 0;
  wxString operation;
  switch (button) {
    case kInstall: {
      std::wstring const program = SampleServiceProgram();
      ok = control.Install(program.c_str(), nullptr, true, nullptr, nullptr);
      operation = Tr("Install");
      break;
    }
    case kUninstall:
      ok = control.Uninstall();
      operation = Tr("Uninstall");
      break;
    case kStart:
      ok = control.Start();
      operation = Tr("Start");
      break;
    case kStop:
      ok = control.Stop();
      operation = Tr("Stop");
      break;
    case kStatus:
      ok = control.Status(state);
      operation = Tr("Status");
      break;
  }
  wxString line = operation + ": ";
  if (ok && button == kStatus)
    line += NTServiceControl::CurrentStateToString(state);
  else if (ok)
    line += Tr("done");
  else
    line += wxString::Format("%lu ", control.GetLastError()) +
            wxString::FromUTF8(VxService::GetErrorText(control.GetLastError()));
  mLog->AppendText(line + "\n");
}

void AddServiceCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kServiceCommand, Tr("Menu command", "&Service..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        ServiceDialog dialog(&frame);
        dialog.ShowModal();
      },
      kServiceCommand);
}
