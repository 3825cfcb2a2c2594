#include "AuditTrailMenu.h"

#include <memory>

#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include "SampleCommands.h"
#include "audit/AuditTrailPage.h"
#include "audit/AuditTrailSettingsUI.h"
#include "audit/AuditTrailView.h"
#include "frame/VxApp.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "properties/VxPropertySheet.h"
#include "utl/AuditTrail.h"
#include "utl/Exception.h"
#include "utl/Translation.h"
#include "utl/XercesXMLSection.h"

using vx3::Tr;

namespace {

constexpr int kAuditTrailWindowId = wxID_HIGHEST + 910;

std::unique_ptr<AuditTrail> & Holder() {
  static std::unique_ptr<AuditTrail> trail;
  return trail;
}

void ShowSettings(wxFrame & frame) {
  AuditTrailPage page(&SampleAuditTrail(), false);
  VxPropertySheet sheet(Tr("Window title", "Audit Trail Settings").wc_str(), &frame);
  sheet.AddPage(&page);
  try {
    sheet.DoModal();
  } catch (Exception const & error) {
    // A trail that does not verify cannot be turned on.
    AfxMessageBox(wxString::FromUTF8(error.Why()), MB_OK | MB_ICONEXCLAMATION);
  }
}

void OpenWindow(wxFrame & frame) {
  auto * window = new wxFrame(&frame, kAuditTrailWindowId, Tr("Window title", "Audit Trail"),
                              wxDefaultPosition, wxSize(760, 440));
  auto * view = new AuditTrailView(window, wxID_ANY);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(view, 1, wxEXPAND);
  window->SetSizer(sizer);
  // The pages' "app:AuditTrailSettings" links.
  view->SetCmdMap({{L"AuditTrailSettings", kAuditTrailSettingsCommand}}, &frame);
  view->SetAuditTrail(&SampleAuditTrail());
  window->Show();
}

bool HoldsEvents(wxFrame & frame) {
  AuditTrail & trail = SampleAuditTrail();
  if (trail.mSettings.mLogLevel >= 1 && !trail.IsEmpty()) return true;
  frame.SetStatusText(Tr("The audit trail is off or empty."));
  return false;
}

}  // namespace

AuditTrail & SampleAuditTrail() {
  std::unique_ptr<AuditTrail> & trail = Holder();
  if (!trail) {
    // In the sample's settings file and data folder; a host that is no
    // VxApp (a test) keeps them in memory and the temporary folder.
    VxApp const * app = VxGetApp();
    ConfigurationSection * settings =
        app != nullptr ? app->GetAppSettings("AuditTrail", 0) : nullptr;
    if (settings == nullptr) settings = new XercesXMLSection;
    // On out of the box, so that a first calculation shows in the trail; a
    // level the user chose stays, and the administrator's policy still
    // merges over either.
    int level = 0;
    if (!settings->ReadInt("LogEvents", level)) settings->WriteInt("LogEvents", 1);
    AuditTrailSettingsUI::ApplyAdminSettingsOnUserSettings(settings);
    wxString const folder = app != nullptr ? app->GetAppDataDirectory() : wxFileName::GetTempDir();
    std::string const path = folder.utf8_string() + "/Sample Audit Trail.xml";
    trail = std::make_unique<AuditTrail>(path.c_str(), settings);
    trail->SetProjectName("Sample");
    trail->mSettings.Load();
    try {
      if (trail->mSettings.mLogLevel > 0) {
        trail->PrepareForLogging();
        trail->BeginSessionAndVerifySignature();
      }
    } catch (Exception const & error) {
      AfxMessageBox(wxString::FromUTF8(error.Why()), MB_OK | MB_ICONEXCLAMATION);
    }
  }
  return *trail;
}

void RecordSampleAuditEvent(wxString const & text, wxString const & detail) {
  try {
    SampleAuditTrail().AddEvent(text.utf8_string().c_str(), detail.utf8_string().c_str(), 0);
  } catch (Exception const & error) {
    AfxMessageBox(wxString::FromUTF8(error.Why()), MB_OK | MB_ICONEXCLAMATION);
  }
}

wxMenu * CreateAuditTrailMenu(wxFrame & frame) {
  auto * menu = new wxMenu;
  menu->Append(kAuditTrailSettingsCommand, Tr("Menu command", "&Settings..."));
  menu->Append(kAuditTrailViewCommand, Tr("Menu command", "&View"));
  menu->Append(kAuditTrailClearCommand, Tr("Menu command", "&Clear..."));
  menu->Append(kAuditTrailSaveAsCommand, Tr("Menu command", "Save &As..."));
  menu->Append(kAuditTrailUserInfoCommand, Tr("Menu command", "Edit &User Information..."));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { ShowSettings(frame); }, kAuditTrailSettingsCommand);
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OpenWindow(frame); }, kAuditTrailViewCommand);
  // As in the trail's view: Clear and Save As need a trail that is on and
  // holds events; otherwise the status bar says so.
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        if (HoldsEvents(frame)) AuditTrailSettingsUI::ClearAuditTrail(&SampleAuditTrail());
      },
      kAuditTrailClearCommand);
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        if (HoldsEvents(frame))
          AuditTrailSettingsUI::AuditTrailViewSaveAsDialog(&SampleAuditTrail());
      },
      kAuditTrailSaveAsCommand);
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        bool promptChanged = false;
        AuditTrailSettingsUI::EditExtendedUserInfo(&SampleAuditTrail().mSettings, promptChanged,
                                                   &frame);
      },
      kAuditTrailUserInfoCommand);
  // The trail is saved and closed with the main window.
  frame.Bind(wxEVT_DESTROY, [&frame](wxWindowDestroyEvent & event) {
    event.Skip();
    if (event.GetEventObject() == &frame) Holder().reset();
  });
  return menu;
}
