#include "controls/VxTimedEdit.h"

#include <algorithm>

#include <wx/utils.h>

VxTimedEdit::VxTimedEdit(int delay, int timerId)
    : mTimer(this, timerId), mDelay(std::max(delay, 100)) {
  Bind(wxEVT_TEXT, &VxTimedEdit::OnText, this);
  Bind(wxEVT_TIMER, &VxTimedEdit::OnTimer, this, timerId);
}

VxTimedEdit::~VxTimedEdit() { mTimer.Stop(); }

bool VxTimedEdit::Create(wxWindow * parent, wxWindowID id, wxString const & value,
                         wxPoint const & position, wxSize const & size, long style) {
  return wxTextCtrl::Create(parent, id, value, position, size, style);
}

void VxTimedEdit::StartTimer() {
  mTimer.Stop();
  mTimer.StartOnce(mDelay);
}

void VxTimedEdit::OnText(wxCommandEvent & event) {
  StartTimer();
  event.Skip();
}

void VxTimedEdit::OnTimer(wxTimerEvent & event) {
  if (event.GetId() != mTimer.GetId()) {
    event.Skip();
    return;
  }
  mTimer.Stop();
  wxBusyCursor const wait;
  wxString const text = GetValue();
  EditTriggered(text.wc_str());
}

TimedEditBox::TimedEditBox(int delay, TimedEditParent * parent)
    : VxTimedEdit(delay, kTimerId), mParent(parent) {}

void TimedEditBox::SetText(wchar_t const * text) {
  mSuppress = true;
  SetValue(text != nullptr ? text : L"");
  mSuppress = false;
}

void TimedEditBox::StartTimer() {
  if (!mSuppress) VxTimedEdit::StartTimer();
}

void TimedEditBox::EditTriggered(wchar_t const * text) {
  if (mParent != nullptr) mParent->OnTimedEditChanged(this, text);
}
