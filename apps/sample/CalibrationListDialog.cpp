#include "CalibrationListDialog.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <boost/format.hpp>

#include "SampleCommands.h"
#include "platform/commctrl/CustomDraw.h"
#include "utl/Translation.h"

namespace {

std::vector<CalibrationListDialog::Instrument> LabInstruments() {
  return {
      {"HPLC 2", "Chromatograph", "2026-09-14", 412, false, true},
      {"HPLC 10", "Chromatograph", "2026-03-02", 1288, true, true},
      {"Balance A12", "Balance", "2026-11-01", 96, false, true},
      {"Balance A3", "Balance", "2025-12-20", 2301, true, false},
      {"pH meter 7", "pH meter", "2026-10-30", 57, false, true},
      {"Karl Fischer 1", "Titrator", "2026-06-11", 310, false, false},
      {"UV-Vis 4", "Spectrometer", "2026-02-27", 745, true, true},
      {"GC 1", "Chromatograph", "2026-08-08", 188, false, true},
  };
}

}  // namespace

CalibrationListDialog::CalibrationListDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Calibration list"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mInstruments(LabInstruments()) {
  mList = new CListCtrl(this, wxID_ANY, wxDefaultPosition, wxSize(520, 220),
                        LVS_REPORT | LVS_SHOWSELALWAYS);
  mList->SetExtendedStyle(LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  mList->InsertColumn(0, vx3::Tr("Instrument"), LVCFMT_LEFT, 150);
  mList->InsertColumn(1, vx3::Tr("Kind"), LVCFMT_LEFT, 130);
  mList->InsertColumn(2, vx3::Tr("Calibrated"), LVCFMT_LEFT, 110);
  mList->InsertColumn(3, vx3::Tr("Runs"), LVCFMT_RIGHT, 80);
  for (size_t index = 0; index < mInstruments.size(); ++index) {
    Instrument const & instrument = mInstruments[index];
    int const row = mList->InsertItem(static_cast<int>(index), instrument.name);
    mList->SetItemText(row, 1, vx3::Tr(instrument.kind.utf8_str().data()));
    mList->SetItemText(row, 2, instrument.calibrated);
    mList->SetItemText(row, 3, wxString::Format("%d", instrument.runs));
    mList->SetItemData(row, index);
    mList->SetCheck(row, instrument.inUse);
  }
  mSummary = new wxStaticText(this, wxID_ANY, wxString());
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mList, 1, wxEXPAND | wxALL, 8);
  sizer->Add(mSummary, 0, wxLEFT | wxRIGHT, 8);
  sizer->Add(CreateButtonSizer(wxOK), 0, wxEXPAND | wxALL, 8);
  SetSizerAndFit(sizer);
  mSummary->SetLabel(GetSummary());
  Bind(VX_EVT_NOTIFY, &CalibrationListDialog::OnListNotify, this);
}

wxString CalibrationListDialog::GetSummary() const {
  int inUse = 0;
  for (int row = 0; row < mList->GetItemCount(); ++row) inUse += mList->GetCheck(row) ? 1 : 0;
  return wxString::FromUTF8((boost::format(vx3::Tr("%1% of %2% instruments in use").utf8_string()) %
                             inUse % mList->GetItemCount())
                                .str());
}

std::vector<wxString> CalibrationListDialog::ShownNames() const {
  std::vector<wxString> names(static_cast<size_t>(mList->GetItemCount()));
  for (size_t row = 0; row < names.size(); ++row)
    names[row] = mList->GetItemText(static_cast<int>(row), 0);
  return names;
}

void CalibrationListDialog::OnListNotify(NotifyEvent & event) {
  if (event.GetHeader()->hwndFrom != mList) {
    event.Skip();
    return;
  }
  switch (event.GetCode()) {
    case NM_CUSTOMDRAW: {
      auto * draw = event.GetNotification<NMLVCUSTOMDRAW>();
      if (draw->nmcd.dwDrawStage == CDDS_PREPAINT) {
        event.SetResult(CDRF_NOTIFYITEMDRAW);
      } else if (draw->nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
        if (mInstruments[static_cast<size_t>(draw->nmcd.lItemlParam)].overdue)
          draw->clrText = RGB(192, 0, 0);  // calibration overdue
        event.SetResult(CDRF_DODEFAULT);
      }
      break;
    }
    case LVN_ITEMCHANGED:
      if ((event.GetNotification<NMLISTVIEW>()->uChanged & LVIF_STATE) != 0)
        mSummary->SetLabel(GetSummary());
      break;
    case LVN_COLUMNCLICK: SortBy(event.GetNotification<NMLISTVIEW>()->iSubItem); break;
    default: event.Skip(); break;
  }
}

void CalibrationListDialog::SortBy(int column) {
  mAscending = column == mSortColumn ? !mAscending : true;
  CHeaderCtrl * const header = mList->GetHeaderCtrl();
  if (mSortColumn >= 0) {  // the arrow leaves the former column
    HDITEMW item;
    item.mask = HDI_FORMAT;
    header->GetItem(mSortColumn, &item);
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    header->SetItem(mSortColumn, &item);
  }
  mSortColumn = column;
  struct Order {
    CalibrationListDialog * dialog;
    int column;
    bool ascending;
  } order{this, column, mAscending};
  mList->SortItems(
      [](LPARAM a, LPARAM b, LPARAM data) {
        auto const & o = *reinterpret_cast<Order const *>(data);  // NOLINT: the sort's own data
        Instrument const & x = o.dialog->mInstruments[static_cast<size_t>(a)];
        Instrument const & y = o.dialog->mInstruments[static_cast<size_t>(b)];
        int result = 0;
        switch (o.column) {
          case 0: result = x.name.CmpNoCase(y.name); break;
          case 1: result = x.kind.CmpNoCase(y.kind); break;
          case 2: result = x.calibrated.Cmp(y.calibrated); break;
          default: result = x.runs < y.runs ? -1 : x.runs > y.runs ? 1 : 0; break;
        }
        return o.ascending ? result : -result;
      },
      reinterpret_cast<DWORD_PTR>(&order));  // NOLINT: the sort's own data
  HDITEMW item;
  item.mask = HDI_FORMAT;
  header->GetItem(column, &item);
  item.fmt |= mAscending ? HDF_SORTUP : HDF_SORTDOWN;
  header->SetItem(column, &item);
}

void AddCalibrationListCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kCalibrationListCommand, vx3::Tr("Menu command", "&Calibration list..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        CalibrationListDialog dialog(&frame);
        dialog.ShowModal();
      },
      kCalibrationListCommand);
}
