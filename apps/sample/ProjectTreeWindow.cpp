#include "ProjectTreeWindow.h"

#include <cmath>
#include <functional>
#include <sstream>
#include <vector>

#include <wx/dcmemory.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>

#include "SampleCommands.h"
#include "dialogs/NativeChoosers.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Translation.h"
#include "utl/WholeFile.h"

using vx3::Tr;

namespace {

constexpr size_t kMaxTreeFileBytes = size_t{64} << 20;
wchar_t const * const kTreeFilter = L"Tree texts (*.txt)|*.txt|All files (*.*)|*.*";

struct Status {
  wchar_t const * word;
  COLORREF color;
};
// The status words a run's text ends with, in brackets, and their colours.
Status const kStatuses[] = {{L"[planned]", RGB(0x70, 0x70, 0x70)},
                            {L"[running]", RGB(0x10, 0x50, 0xC0)},
                            {L"[passed]", RGB(0x10, 0x80, 0x30)},
                            {L"[failed]", RGB(0xC0, 0x20, 0x20)}};

// The tree of the window: tells the window when the selection changed, by
// a click of its own or by a caret moved from outside.
class RunTree : public VxTreeCtrl {
public:
  RunTree(wxWindow * parent, DWORD style) : VxTreeCtrl(parent, wxID_ANY, style) {
    Bind(VX_EVT_NOTIFY_REFLECT, [this](NotifyEvent & event) {
      if (event.GetCode() == TVN_SELCHANGEDW) OnSelectionChanged();
      event.Skip();
    });
  }
  std::function<void()> selectionChanged;
  void OnSelectionChanged() override {
    if (selectionChanged) selectionChanged();
  }
};

// A faint lattice that the tree tiles behind its rows.
wxBitmap BackgroundTile() {
  wxBitmap tile(48, 48);
  wxMemoryDC dc(tile);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  dc.SetPen(wxPen(wxColour(0xE4, 0xEC, 0xF4)));
  dc.DrawLine(0, 47, 47, 0);
  dc.DrawLine(0, 0, 47, 47);
  dc.SelectObject(wxNullBitmap);
  return tile;
}

wxString VolumeText(DWORD_PTR microlitres) {
  return wxString::FromCDouble(static_cast<double>(microlitres) / 1000.0, 3);
}

}  // namespace

void AddProjectTreeCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kRunsByProjectCommand, Tr("Menu command", "Runs by &project..."));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { (new ProjectTreeWindow(&frame))->Show(); },
      kRunsByProjectCommand);
}

ProjectTreeWindow::ProjectTreeWindow(wxWindow * parent)
    : wxFrame(parent, wxID_ANY, Tr("Runs by project"), wxDefaultPosition, wxSize(460, 520)) {
  auto * page = new wxPanel(this);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * tree = new RunTree(
      page, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_CHECKBOXES | TVS_SHOWSELALWAYS);
  tree->selectionChanged = [this] { ShowSelectedVolume(); };
  mTree = tree;
  mTree->SetSelectionState(VxTreeCtrl::MultipleSelection);
  mTree->SetBkImage(BackgroundTile());
  sizer->Add(mTree, 1, wxEXPAND | wxALL, 6);
  auto * row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(new wxStaticText(page, wxID_ANY, Tr("Volume of the selected runs (ml):")), 0,
           wxALIGN_CENTER_VERTICAL | wxRIGHT, 6);
  mVolume = new wxTextCtrl(page, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                           wxTE_PROCESS_ENTER);
  row->Add(mVolume, 1);
  sizer->Add(row, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 6);
  page->SetSizer(sizer);
  CreateStatusBar();
  BuildMenus();
  FillSampleProjects();

  mVolume->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent &) { AcceptVolume(); });
  mVolume->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent & event) {
    AcceptVolume();
    event.Skip();
  });
  // The tip is fed the tree's pointer and key events and asks this window
  // for its text.
  mRowTip.Create(this, true);
  auto const relay = [this](wxEvent & event) {
    if (auto const * mouse = dynamic_cast<wxMouseEvent *>(&event))
      mTipPoint = POINT{mouse->GetX(), mouse->GetY()};
    mRowTip.RelayEvent(event);
    event.Skip();
  };
  for (wxEventTypeTag<wxMouseEvent> const & type :
       {wxEVT_MOTION, wxEVT_LEAVE_WINDOW, wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MOUSEWHEEL})
    mTree->Bind(type, relay);
  mTree->Bind(wxEVT_KEY_DOWN, relay);
  Bind(VX_EVT_NOTIFY, &ProjectTreeWindow::OnTipNotify, this);
}

void ProjectTreeWindow::BuildMenus() {
  auto * file = new wxMenu;
  file->Append(kLoadTreeCommand, Tr("Menu command", "&Load..."));
  file->Append(kSaveTreeCommand, Tr("Menu command", "&Save..."));
  file->AppendSeparator();
  file->Append(wxID_CLOSE, Tr("Menu command", "&Close"));
  auto * edit = new wxMenu;
  edit->Append(wxID_FIND, Tr("Menu command", "&Find...\tCtrl+F"));
  edit->Append(kFindNextRunCommand, Tr("Menu command", "Find &next\tF3"));
  edit->Append(kDeleteRunsCommand, Tr("Menu command", "&Delete"));
  auto * bar = new wxMenuBar;
  bar->Append(file, Tr("Menu", "&File"));
  bar->Append(edit, Tr("Menu", "&Edit"));
  SetMenuBar(bar);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent &) { OnLoad(); }, kLoadTreeCommand);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent &) { OnSave(); }, kSaveTreeCommand);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent &) { Close(); }, wxID_CLOSE);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent &) { OnFind(); }, wxID_FIND);
  Bind(
      wxEVT_MENU,
      [this](wxCommandEvent &) {
        if (mLastFind.empty())
          OnFind();
        else
          FindNext(mLastFind);
      },
      kFindNextRunCommand);
  Bind(
      wxEVT_MENU, [this](wxCommandEvent &) { mTree->DeleteSelectedItems(true); },
      kDeleteRunsCommand);
}

void ProjectTreeWindow::FillSampleProjects() {
  struct Project {
    wchar_t const * name;
    std::vector<wchar_t const *> runs;
  };
  std::vector<Project> const projects = {
      {L"Stability study B-12",
       {L"Run 1 pH 7.0 [passed]", L"Run 2 pH 7.4 [passed]", L"Run 3 pH 8.1 [failed]",
        L"Run 4 pH 7.4 [running]"}},
      {L"Calibration line 2", {L"Run 10 blank [passed]", L"Run 11 standard [planned]"}},
      {L"Solvent screening",
       {L"Run 20 ethanol [passed]", L"Run 21 acetone [failed]", L"Run 22 hexane [planned]"}},
  };
  DWORD_PTR volume = 2500;
  for (Project const & project : projects) {
    HTREEITEM const parent = mTree->InsertItem(project.name);
    for (wchar_t const * run : project.runs) {
      HTREEITEM const item = mTree->InsertItem(run, parent);
      mTree->SetItemData(item, volume);
      volume += 1250;
    }
    mTree->SetItemBold(parent, TRUE);
  }
  mTree->ExpandAll(TVE_EXPAND);
  // One project wholly checked, one in part.
  mTree->SetCheck(mTree->GetRootItem(), VxTreeCtrl::Check);
  mTree->SetCheck(mTree->GetLastItem(TVI_NULL), VxTreeCtrl::Check);
  ColourByStatus();
}

void ProjectTreeWindow::ColourByStatus() {
  for (HTREEITEM item = mTree->GetRootItem(); item; item = mTree->GetNextItem(item)) {
    std::wstring const text = mTree->GetItemText(item).ToStdWstring();
    for (Status const & status : kStatuses) {
      if (text.find(status.word) != std::wstring::npos) mTree->SetItemColor(item, status.color);
    }
  }
}

std::wstring ProjectTreeWindow::RowTipText(POINT client) const {
  UINT flags = 0;
  HTREEITEM const item = mTree->HitTest(client, &flags);
  if (!item || (flags & TVHT_ONITEM) == 0) return {};
  std::wstring tip = mTree->GetItemText(item).ToStdWstring() + L"\r";
  if (mTree->ItemHasChildren(item)) {
    tip += Tr("Runs: ").ToStdWstring() + std::to_wstring(mTree->GetNumChildren(item));
    return tip;
  }
  wxString status = Tr("no status");
  for (Status const & known : kStatuses) {
    if (tip.find(known.word) != std::wstring::npos)
      status = wxString(known.word).Mid(1).BeforeLast(']');
  }
  tip += (Tr("Status: ") + status + "\n" + Tr("Volume: ") + VolumeText(mTree->GetItemData(item)) +
          " ml")
             .ToStdWstring();
  return tip;
}

void ProjectTreeWindow::OnTipNotify(NotifyEvent & event) {
  if (event.GetCode() != TTN_GETDISPINFOW) {
    event.Skip();
    return;
  }
  mTipText = RowTipText(mTipPoint);
  event.GetNotification<NMTTDISPINFOW>()->lpszText = mTipText.c_str();
}

void ProjectTreeWindow::ShowSelectedVolume() {
  HTREEITEM const first = mTree->GetFirstSelectedItem();
  mVolume->ChangeValue(
      first && !mTree->ItemHasChildren(first) ? VolumeText(mTree->GetItemData(first)) : wxString());
}

bool ProjectTreeWindow::AcceptVolume() {
  wxString const text = mVolume->GetValue().Strip(wxString::both);
  if (text.empty()) return true;
  double volume = 0;
  if (!text.ToCDouble(&volume) || !std::isfinite(volume) || volume < 0 || volume > kMaxVolumeMl) {
    wxPoint const below = mVolume->ClientToScreen(wxPoint(0, mVolume->GetSize().y));
    wxString const message = wxString::Format(
        Tr("\"%s\" is not a volume. Enter a number from 0 to %g ml."), text, kMaxVolumeMl);
    InfoTipMessageBox(this, &below, message.wc_str(), 4000, Tr("Volume").wc_str(),
                      MB_ICONEXCLAMATION);
    ShowSelectedVolume();
    return false;
  }
  auto const microlitres = static_cast<DWORD_PTR>(std::lround(volume * 1000.0));
  for (HTREEITEM item = mTree->GetFirstSelectedItem(); item;
       item = mTree->GetNextSelectedItem(item)) {
    if (!mTree->ItemHasChildren(item)) mTree->SetItemData(item, microlitres);
  }
  return true;
}

bool ProjectTreeWindow::FindNext(wxString const & text) {
  mLastFind = text;
  HTREEITEM const start =
      mTree->GetSelectedItem() ? mTree->GetSelectedItem() : mTree->GetRootItem();
  HTREEITEM const found = mTree->FindItem(text.wc_str(), false, true, true, start);
  if (!found) {
    SetStatusText(wxString::Format(Tr("\"%s\" was not found."), text));
    return false;
  }
  mTree->ClearSelection();
  mTree->SelectItem(found);
  mTree->EnsureVisible(found);
  SetStatusText(mTree->GetItemText(found));
  return true;
}

void ProjectTreeWindow::OnFind() {
  wxTextEntryDialog dialog(this, Tr("Find the run holding the word:"), Tr("Find"), mLastFind);
  if (dialog.ShowModal() == wxID_OK && !dialog.GetValue().empty()) FindNext(dialog.GetValue());
}

bool ProjectTreeWindow::SaveTo(wxString const & path) {
  try {
    std::ostringstream out;
    mTree->Serialize(out);
    vx3::WriteFileAtomically(path.utf8_string(), out.str());
  } catch (Exception const & failure) {
    AfxMessageBox(wxString::FromUTF8(failure.Why()), MB_ICONHAND);
    return false;
  }
  SetStatusText(Tr("Saved ") + path);
  return true;
}

bool ProjectTreeWindow::LoadFrom(wxString const & path) {
  std::vector<HTREEITEM> former;
  for (HTREEITEM item = mTree->GetRootItem(); item; item = mTree->GetNextSiblingItem(item))
    former.push_back(item);
  try {
    std::string bytes;
    if (!vx3::ReadWholeFile(path.utf8_string(), kMaxTreeFileBytes, bytes))
      throw Exception(ExceptionMessage::translate("The file {1} does not exist.") %
                      path.utf8_string());
    std::istringstream in(bytes);
    // The text is checked whole before an item is made: on failure the
    // tree keeps what it had.
    mTree->Serialize(in);
  } catch (Exception const & failure) {
    AfxMessageBox(wxString::FromUTF8(failure.Why()), MB_ICONHAND);
    return false;
  }
  for (HTREEITEM item : former) mTree->DeleteItem(item);
  ColourByStatus();
  SetStatusText(Tr("Loaded ") + path);
  return true;
}

void ProjectTreeWindow::OnSave() {
  FileChooserRequest request;
  request.open = false;
  request.parent = this;
  request.fileName = "projects.txt";
  request.wildcard = kTreeFilter;
  request.overwritePrompt = true;
  FileChooserAnswer const answer = RunFileChooser(request);
  if (answer.accepted && !answer.paths.empty()) SaveTo(answer.paths.front());
}

void ProjectTreeWindow::OnLoad() {
  FileChooserRequest request;
  request.parent = this;
  request.wildcard = kTreeFilter;
  request.fileMustExist = true;
  FileChooserAnswer const answer = RunFileChooser(request);
  if (answer.accepted && !answer.paths.empty()) LoadFrom(answer.paths.front());
}
