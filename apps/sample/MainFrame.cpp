#include "MainFrame.h"

#include <wx/app.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include "AddCommandMenu.h"
#include "AuditTrailMenu.h"
#include "BackgroundCommands.h"
#include "BatchCommand.h"
#include "CalibrationListDialog.h"
#include "CrashCommands.h"
#include "DateFormatCommand.h"
#include "EditsDialog.h"
#include "FavouritesCommand.h"
#include "FavouritesPane.h"
#include "FeedbackCommand.h"
#include "FileCommands.h"
#include "HelpPane.h"
#include "InstrumentsDialog.h"
#include "MessagesMenu.h"
#include "NotesDialog.h"
#include "PictureCommands.h"
#include "PrintCommands.h"
#include "PrintPageWindow.h"
#include "ProcessorLoadPane.h"
#include "ProjectTreeWindow.h"
#include "PropertiesCommand.h"
#include "PropertyEditorsDialog.h"
#include "PropertyListDialog.h"
#include "ReleaseNotesDialog.h"
#include "ReportCommand.h"
#include "RunList.h"
#include "RunListPanel.h"
#include "RunPicker.h"
#include "RunSettingsSheet.h"
#include "SampleCalculation.h"
#include "SampleCommands.h"
#include "SampleHelp.h"
#include "SampleMenuResource.h"
#include "SampleSplash.h"
#include "SampleTour.h"
#include "SeriesDialog.h"
#include "ServiceDialog.h"
#include "TimeGridDialog.h"
#include "TreeViewWindow.h"

#include "controls/WrapToWidth.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"
#include "work/VxStatusBar.h"

using vx3::Tr;

MainFrame::MainFrame()
    : wxFrame(nullptr, wxID_ANY, wxString::FromUTF8(VxSystemInfo::GetApplicationName()),
              wxDefaultPosition, wxSize(720, 480)) {
  BuildMenus();
  BuildPage();
  auto * statusBar = new VxStatusBar(this);
  SetStatusBar(statusBar);
  AddProcessorLoadPane(*statusBar);
  auto * view = new wxMenu;
  AddPropertiesCommand(*view, *this, mRuns->List());
  GetMenuBar()->Insert(1, view, Tr("Menu", "&View"));
  SetStatusText(mRuns->Summary());
}

void MainFrame::BuildMenus() {
  auto * file = new wxMenu;
  AddFileCommands(*this, *file, [this] { return mRuns->Shown(); });
  AddOpenPictureCommand(*file, *this);
  AddPrintPageCommand(
      *file, *this, [this] { return mRuns->Shown(); }, &RunList::IsRetired);
  AddPrintCommands(*this, *file, [this] { return mRuns->Shown(); });
  file->Append(wxID_EXIT, Tr("Menu command", "E&xit"));
  auto * tools = new wxMenu;
  tools->Append(kRunCalculationCommand, Tr("Menu command", "&Run calculation"));
  AddBatchCommand(*tools, *this);
  AddDateFormatCommand(*tools, *this);
  AddTimeGridCommand(*tools, *this);
  AddPickRunCommand(*tools, *this);
  AddInstrumentsCommand(*tools, *this);
  AddReportCommand(*tools, *this);
  AddProjectTreeCommand(*tools, *this);
  AddTreeViewCommand(*tools, *this);
  AddCalibrationListCommand(*tools, *this);
  AddServiceCommand(*tools, *this);
  AddSeriesCommand(*tools, *this);
  tools->Append(kCopyRunsCommand, Tr("Menu command", "&Copy runs"));
  AddOpenFavouritesCommand(*tools, *this);
  AddFavouritesPaneCommand(*tools, *this);
  AddEditsCommand(*tools, *this);
  AddNotesCommand(*tools, *this);
  AddPropertyEditorsCommand(*tools, *this);
  AddRunSettingsCommands(*tools, *this);
  AddPropertyListCommand(*tools, *this);
  AddSaveWindowPictureCommand(*tools, *this);
  AddBackgroundCommands(*tools, *this);
  auto * help = new wxMenu;
  AddTourCommand(*help, *this);
  AddHelpCommands(*help, *this);
  AddReleaseNotesCommand(*help, *this);
  AddSplashCommand(*help, *this);
  AddHelpPaneCommand(*help, *this);
  AddSendFeedbackCommand(*help, *this);
  AddCrashCommands(*help, *this);
  help->Append(wxID_ABOUT, Tr("Menu command", "&About..."));
  auto * bar = new wxMenuBar;
  bar->Append(file, Tr("Menu", "&File"));
  bar->Append(tools, Tr("Menu", "&Tools"));
  auto * favourites = new wxMenu;
  AddAddCommandCommand(*favourites, *this);
  bar->Append(favourites, Tr("Menu", "Fa&vourites"));
  bar->Append(CreateMessagesMenu(*this), Tr("Menu", "&Messages"));
  bar->Append(CreateAuditTrailMenu(*this), Tr("Menu", "&Audit Trail"));
  bar->Append(help, Tr("Menu", "&Help"));
  SetMenuBar(bar);
  BindSampleMenuAliases(*this);
  AddSampleToolBar(*this);
  Bind(wxEVT_MENU, &MainFrame::OnExit, this, wxID_EXIT);
  Bind(wxEVT_MENU, &MainFrame::OnRunCalculation, this, kRunCalculationCommand);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent &) { SetStatusText(mRuns->CopyRuns()); }, kCopyRunsCommand);
  // wx menus take ids below 0x7fff only, so the item is the toolkit's about
  // item, and its command and update go on to the application as the
  // family's about command, which VxApp handles.
  Bind(
      wxEVT_MENU,
      [](wxCommandEvent &) {
        wxCommandEvent about(wxEVT_MENU, kAboutCommand);
        wxTheApp->ProcessEvent(about);
      },
      wxID_ABOUT);
  Bind(
      wxEVT_UPDATE_UI,
      [](wxUpdateUIEvent & event) {
        wxUpdateUIEvent update(kAboutCommand);
        if (!wxTheApp->ProcessEvent(update)) return;
        if (update.GetSetEnabled()) event.Enable(update.GetEnabled());
        if (update.GetSetText()) event.SetText(update.GetText());
      },
      wxID_ABOUT);
}

void MainFrame::BuildPage() {
  auto * page = new wxPanel(this);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * intro = new wxStaticText(page, wxID_ANY, wxString());
  intro->SetLabel(WrapToWidth(
      Tr("This application shows the manner of working that every application of the family "
         "shares: settings, questions and messages, progress, lists, favourites, pictures and "
         "help. Use the menus to try what is there."),
      intro->GetFont(), 640));
  // The window title names the application; a heading in another font
  // face would cost the start-up a font load (several milliseconds).
  sizer->Add(intro, 0, wxLEFT | wxRIGHT | wxTOP, 16);
  mRuns = new RunListPanel(page);
  sizer->Add(mRuns, 1, wxEXPAND | wxALL, 8);
  page->SetSizer(sizer);
}

void MainFrame::OnExit(wxCommandEvent &) { Close(); }

void MainFrame::OnRunCalculation(wxCommandEvent &) {
  // The progress puts the idle text back when it ends; the outcome comes
  // after that.
  CalculationOutcome const outcome = RunSampleCalculation(this, mCalculation);
  SetStatusText(DescribeOutcome(outcome) + "  " + DescribeDuration(outcome));
  RecordSampleAuditEvent("Calculation run.", DescribeOutcome(outcome));
}
