#include "TimeGridDialog.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <boost/format.hpp>

#include "SampleCommands.h"
#include "datetime/RestrictedTimeCtrl.h"
#include "datetime/TimeSpanCtrl.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

constexpr __time64_t kFiveMinutes = 5 * 60;
constexpr __int64 kIntervalStep = 15;
constexpr __int64 kShortestInterval = 30;
constexpr __int64 kLongestInterval = 2 * 3600;
constexpr __int64 kFirstInterval = 15 * 60;

}  // namespace

TimeGridDialog::TimeGridDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, Tr("Dialog title", "Time grid")) {
  auto * grid = new wxFlexGridSizer(2, wxSize(12, 8));
  grid->Add(new wxStaticText(this, wxID_ANY, Tr("Time grid", "Start of the series:")), 0,
            wxALIGN_CENTER_VERTICAL);
  mStart = new RestrictedTimeCtrl(this, wxID_ANY, DTS_TIMEFORMAT | DTS_UPDOWN);
  mStart->SetFormat(L"HH:mm");
  // Grid points at whole five minutes of the local clock.
  mStart->SetTimeResolution(kFiveMinutes, 0);
  __time64_t const now = _time64(nullptr);
  mStart->SetTime(now - now % kFiveMinutes + kFiveMinutes);
  grid->Add(mStart, 0, wxEXPAND);

  grid->Add(new wxStaticText(this, wxID_ANY, Tr("Time grid", "Repeat every:")), 0,
            wxALIGN_CENTER_VERTICAL);
  mInterval = new TimeSpanCtrl(this, wxID_ANY);
  mInterval->SetTimeResolution(kIntervalStep);
  mInterval->SetMinTimeSpan(kShortestInterval);
  mInterval->SetMaxTimeSpan(kLongestInterval);
  mInterval->SetTimeSpan(kFirstInterval);
  grid->Add(mInterval, 0, wxEXPAND);

  mSummary = new wxStaticText(this, wxID_ANY, wxString());
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(grid, 0, wxALL, 12);
  sizer->Add(mSummary, 0, wxLEFT | wxRIGHT | wxBOTTOM | wxEXPAND, 12);
  sizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), 0, wxALL | wxEXPAND, 8);
  SetSizerAndFit(sizer);

  // The pickers have snapped the value when their parent hears of it.
  Bind(VX_EVT_NOTIFY, [this](NotifyEvent & event) {
    if (event.GetCode() == DTN_DATETIMECHANGE) mSummary->SetLabel(Summary());
  });
  mSummary->SetLabel(Summary());
}

wxString TimeGridDialog::Summary() const {
  return wxString::FromUTF8(
      (boost::format(std::string(Tr("Time grid", "Starts at %1%, repeats every %2%.").utf8_str())) %
       std::string(mStart->GetLabel().utf8_str()) % std::string(mInterval->GetLabel().utf8_str()))
          .str());
}

void AddTimeGridCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kTimeGridCommand, Tr("Menu command", "&Time grid..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        TimeGridDialog dialog(&frame);
        if (dialog.ShowModal() == wxID_OK) frame.SetStatusText(dialog.Summary());
      },
      kTimeGridCommand);
}
