#include "SeriesDialog.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include "SampleCommands.h"
#include "lists/VxTreeListCtrl.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"

namespace {

constexpr COLORREF kFailedColour = 0x000000C0;  // dark red, 0x00BBGGRR

struct Series {
  wchar_t const * name;
  wchar_t const * instrument;
  int runs;
  bool calibration;
};

Series const kSeries[] = {
    {L"Calibration", L"Balance XS205", 3, true},
    {L"Series A: stability", L"HPLC 1260", 12, false},
    {L"Series B: recovery", L"HPLC 1290", 8, false},
    {L"Series C: blanks", L"GC 7890", 5, false},
};

}  // namespace

SeriesDialog::SeriesDialog(wxWindow * parent) : mTreeList(new VxTreeListCtrl) {
  if (!LoadDialogTemplate(*this, parent, kTemplate)) {
    Create(parent, wxID_ANY, vx3::Tr("Series"), wxDefaultPosition, wxSize(640, 400),
           wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER);
  }
  mTreeList->SetSortType(VxTreeListCtrl::SortChildren);
  if (!mTreeList->SubclassDlgItem(kTreeList, this)) {
    mTreeList->Create(this, static_cast<wxWindowID>(kTreeList), wxPoint(8, 8), wxSize(624, 340));
  }
  mTreeList->EnableMultiSelect(true);

  // The tree list takes the room the window gives; Close keeps its corner.
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mTreeList, 1, wxEXPAND | wxALL, 8);
  wxWindow * close = FindWindow(IDCANCEL);
  if (close == nullptr) close = new wxButton(this, IDCANCEL, vx3::Tr("Close"));
  sizer->Add(close, 0, wxALIGN_RIGHT | wxRIGHT | wxBOTTOM, 8);
  SetSizer(sizer);
  SetEscapeId(IDCANCEL);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { EndModal(wxID_CANCEL); }, IDCANCEL);

  Fill();
  Layout();
  mTreeList->EnableColumnAutoSize(true);
}

SeriesDialog::~SeriesDialog() {
  // A tree list that never got its window is not a child to delete.
  if (mTreeList->GetHandle() == nullptr) delete mTreeList;
}

void SeriesDialog::Fill() {
  VxTreeListCtrl & list = *mTreeList;
  list.InsertColumn(0, vx3::Tr("Series / run / sample").wc_str(), 0, 220);
  list.InsertColumn(1, vx3::Tr("Instrument").wc_str(), 0, 140);
  list.InsertColumn(2, vx3::Tr("Started").wc_str(), 0, 150);
  list.InsertColumn(3, vx3::Tr("Duration").wc_str(), 1, 90);
  list.InsertColumn(4, vx3::Tr("Result").wc_str(), 1, 110);
  list.InsertColumn(5, vx3::Tr("Status").wc_str(), 2, 110);

  list.SetRedraw(0);
  int day = 3;
  for (Series const & series : kSeries) {
    HTREEITEM const root = list.InsertItem(series.name);
    list.SetItemText(root, 1, series.instrument);
    list.SetItemBold(root, true, false);
    for (int run = 1; run <= series.runs; ++run) {
      HTREEITEM const item =
          list.InsertItem(wxString::Format(L"Run %d", run).wc_str(), root, TVI_LAST);
      list.SetItemText(item, 1, series.instrument);
      list.SetItemText(
          item, 2,
          wxString::Format(L"2026-11-%02d %02d:%02d", day, 8 + run % 9, run * 7 % 60).wc_str());
      list.SetItemText(item, 3, wxString::Format(L"%d min", 12 + run * 3 % 17).wc_str());
      bool const failed = !series.calibration && run % 5 == 4;
      list.SetItemText(item, 5, failed ? vx3::Tr("Failed").wc_str() : vx3::Tr("Passed").wc_str());
      if (failed) list.SetItemColor(item, kFailedColour, false);
      for (int sample = 1; sample <= 3; ++sample) {
        HTREEITEM const child =
            list.InsertItem(wxString::Format(L"Sample %d", sample).wc_str(), item, TVI_LAST);
        list.SetItemFloat(child, 4, 0.5F * static_cast<float>(run) + 0.125F * sample, L" mg/l");
      }
    }
    if (series.calibration) list.SetItemGroup(root, true, false);
    list.Expand(root, TVE_EXPAND);
    ++day;
  }
  list.SetRedraw(1);
}

void AddSeriesCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kSeriesCommand, vx3::Tr("Menu command", "&Series..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        SeriesDialog dialog(&frame);
        dialog.ShowModal();
      },
      kSeriesCommand);
}
