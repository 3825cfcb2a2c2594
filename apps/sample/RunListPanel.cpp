#include "RunListPanel.h"

#include <algorithm>
#include <locale>

#include <wx/frame.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>
#include <boost/format.hpp>

#include "RunList.h"
#include "utl/FilterMatcher.h"
#include "utl/Translation.h"
#include "utl/VxStdString.h"

namespace {

std::vector<std::string> SampleRuns() {
  std::vector<std::string> runs;
  for (int i : {1, 2, 3, 9, 10, 11, 20, 100}) runs.push_back("Run " + std::to_string(i));
  for (int i : {1, 7, 12}) runs.push_back("Calibration " + std::to_string(i));
  for (char const * name :
       {"Blank 007", "Blank 7b", "pH buffer 4.01", "pH buffer 10.00", "pH buffer 7.00",
        "\xc3\x96lprobe 2", "\xc3\x89talon 1", "etalon 2", "Sample-A12", "sample-a3",
        "QC high 2026-11-20", "QC low 2026-11-20", "QC high 2026-11-03"})
    runs.push_back(name);
  return runs;
}

}  // namespace

RunListPanel::RunListPanel(wxWindow * parent) : wxPanel(parent), mRuns(SampleRuns()) {
  std::locale const locale;
  std::sort(mRuns.begin(), mRuns.end(), [&](std::string const & a, std::string const & b) {
    return VxStdString::CompareNumber(a, b, locale) < 0;
  });

  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * label = new wxStaticText(this, wxID_ANY, vx3::Tr("Measurement runs"));
  sizer->Add(label, 0, wxLEFT | wxRIGHT | wxTOP, 8);
  mFilter = new wxSearchCtrl(this, wxID_ANY);
  mFilter->SetDescriptiveText(vx3::Tr("Filter: words, \"phrases\", -exclude, a*|b?"));
  mFilter->ShowCancelButton(true);
  sizer->Add(mFilter, 0, wxEXPAND | wxALL, 8);
  mList = new RunList(this);
  sizer->Add(mList, 1, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, 8);
  SetSizer(sizer);

  mFilter->Bind(wxEVT_TEXT, [this](wxCommandEvent &) { ApplyFilter(); });
  mFilter->Bind(wxEVT_SEARCHCTRL_CANCEL_BTN, [this](wxCommandEvent &) { SetFilter(""); });
  ApplyFilter();
}

void RunListPanel::SetFilter(wxString const & filter) {
  mFilter->ChangeValue(filter);
  ApplyFilter();
}

void RunListPanel::ApplyFilter() {
  FilterMatcher const matcher(mFilter->GetValue().utf8_string());
  mShown.clear();
  for (auto const & run : mRuns)
    if (matcher.MatchString(run)) mShown.push_back(run);
  mList->ShowRuns(mShown);
  if (auto * frame = dynamic_cast<wxFrame *>(wxGetTopLevelParent(this))) {
    if (frame->GetStatusBar() != nullptr) frame->SetStatusText(Summary());
  }
}

wxString RunListPanel::Summary() const {
  return wxString::FromUTF8(
      (boost::format(vx3::TranslateText("Showing %1% of %2% runs.", std::locale())) %
       mShown.size() % mRuns.size())
          .str());
}

wxString RunListPanel::CopyRuns() {
  std::vector<int> rows;
  mList->GetCheckedIndexes(rows);
  if (rows.empty()) {
    for (int row = 0; row < mList->GetItemCount(); ++row) rows.push_back(row);
  }
  mList->AddToClipboard(rows);
  return wxString::FromUTF8(
      (boost::format(vx3::TranslateText("%1% runs copied to the clipboard.", std::locale())) %
       rows.size())
          .str());
}
