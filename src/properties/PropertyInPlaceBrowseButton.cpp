#include "properties/PropertyInPlaceBrowseButton.h"

#include <wx/dcbuffer.h>

#include "platform/SysColor.h"
#include "properties/PropertyInPlaceEditAndBrowse.h"

PropertyInPlaceBrowseButton::PropertyInPlaceBrowseButton(PropertyInPlaceEditAndBrowse * frame)
    : wxWindow(frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE), mFrame(frame) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetLabel("...");
  Bind(wxEVT_PAINT, &PropertyInPlaceBrowseButton::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, &PropertyInPlaceBrowseButton::OnLeftDown, this);
  Bind(wxEVT_LEFT_DCLICK, &PropertyInPlaceBrowseButton::OnLeftDown, this);
  Bind(wxEVT_LEFT_UP, &PropertyInPlaceBrowseButton::OnLeftUp, this);
}

void PropertyInPlaceBrowseButton::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  wxSize const size = GetClientSize();
  dc.SetBackground(wxBrush(GetSysColour(mPressed ? COLOR_BTNSHADOW : COLOR_BTNFACE)));
  dc.Clear();
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(0, 0, size.x, size.y);
  dc.SetFont(GetFont());
  dc.SetTextForeground(GetSysColour(COLOR_BTNTEXT));
  int const shift = mPressed ? 1 : 0;
  dc.DrawLabel("...", wxRect(shift, shift, size.x, size.y), wxALIGN_CENTER);
}

void PropertyInPlaceBrowseButton::OnLeftDown(wxMouseEvent &) {
  SetFocus();  // the edit's kill-focus commits what was typed
  mPressed = true;
  CaptureMouse();
  Refresh(false);
}

void PropertyInPlaceBrowseButton::OnLeftUp(wxMouseEvent & event) {
  if (!mPressed) return;
  mPressed = false;
  if (HasCapture()) ReleaseMouse();
  Refresh(false);
  if (GetClientRect().Contains(event.GetPosition())) mFrame->Browse();
}
