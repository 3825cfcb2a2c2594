#include "properties/PropertyInPlaceEditAndBrowse.h"

#include <wx/dcbuffer.h>
#include <wx/weakref.h>

#include "platform/SysColor.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyInPlaceEditAndBrowseEdit.h"
#include "properties/PropertyInPlaceLayout.h"
#include "properties/PropertyInPlaceMessages.h"

namespace {

wxRect ToWxRect(RECT const & r) {
  return wxRect(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

}  // namespace

PropertyInPlaceEditAndBrowse::PropertyInPlaceEditAndBrowse(wxWindow * parent, RECT const & rect,
                                                           wxString const & data)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE), mData(data) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetSize(ToWxRect(rect));
  mEdit = new PropertyInPlaceEditAndBrowseEdit(this, kEditId, mData, ToWxRect(EditPlace()));
  Bind(wxEVT_PAINT, &PropertyInPlaceEditAndBrowse::OnPaint, this);
  Bind(wxEVT_SIZE, &PropertyInPlaceEditAndBrowse::OnSize, this);
  Bind(wxEVT_LEFT_DOWN, &PropertyInPlaceEditAndBrowse::OnLeftDown, this);
  // A double click the list passes on means nothing here; on the button it
  // is a second click.
  Bind(wxEVT_LEFT_DCLICK, &PropertyInPlaceEditAndBrowse::OnLeftDown, this);
  Bind(wxEVT_LEFT_UP, &PropertyInPlaceEditAndBrowse::OnLeftUp, this);
}

wxRect PropertyInPlaceEditAndBrowse::GetButtonRect() const {
  wxSize const size = GetClientSize();
  return wxRect(size.x - kButtonWidth, 0, kButtonWidth, size.y);
}

void PropertyInPlaceEditAndBrowse::SetData(wxString const & data) {
  mData = data;
  mEdit->ShowText(mData);
}

void PropertyInPlaceEditAndBrowse::MoveControl(RECT const & rect) {
  SetSize(ToWxRect(rect));
  LayoutChildren();
}

bool PropertyInPlaceEditAndBrowse::Commit() {
  if (!mEdit->IsChanged()) return false;
  mData = mEdit->GetValue();
  mEdit->ShowText(mData);
  SendDataChanged();
  return true;
}

void PropertyInPlaceEditAndBrowse::Browse() {
  wxWeakRef<PropertyInPlaceEditAndBrowse> const alive(this);
  Commit();  // the button took the focus; this covers a window without focus events
  if (!alive || !OnBrowse() || !alive) return;
  mEdit->ShowText(mData);
  SendDataChanged();
}

void PropertyInPlaceEditAndBrowse::SendDataChanged() {
  SendWindowMessage(mOwner != nullptr ? mOwner : GetParent(), kInPlaceDataChanged, 0, 0);
}

void PropertyInPlaceEditAndBrowse::OnPaint(wxPaintEvent &) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.Clear();
  // The button: flat, a frame line of the shadow colour, "..." centred,
  // darker and a pixel lower while pressed.
  wxRect const button = GetButtonRect();
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNSHADOW)));
  dc.SetBrush(wxBrush(GetSysColour(mPressed ? COLOR_BTNSHADOW : COLOR_BTNFACE)));
  dc.DrawRectangle(button);
  dc.SetFont(GetFont());
  dc.SetTextForeground(GetSysColour(COLOR_BTNTEXT));
  wxRect label = button;
  if (mPressed) label.Offset(1, 1);
  dc.DrawLabel("...", label, wxALIGN_CENTER);
}

void PropertyInPlaceEditAndBrowse::OnLeftDown(wxMouseEvent & event) {
  if (!GetButtonRect().Contains(event.GetPosition())) return;
  SetFocus();  // the edit's kill-focus commits what was typed
  mPressed = true;
  if (!HasCapture()) CaptureMouse();
  Refresh(false);
}

void PropertyInPlaceEditAndBrowse::OnLeftUp(wxMouseEvent & event) {
  if (!mPressed) return;
  mPressed = false;
  if (HasCapture()) ReleaseMouse();
  Refresh(false);
  if (GetButtonRect().Contains(event.GetPosition())) Browse();
}

void PropertyInPlaceEditAndBrowse::OnSize(wxSizeEvent & event) {
  LayoutChildren();
  event.Skip();
}

void PropertyInPlaceEditAndBrowse::LayoutChildren() {
  if (mEdit == nullptr) return;
  Refresh(false);
  mEdit->SetSize(ToWxRect(EditPlace()));
}

RECT PropertyInPlaceEditAndBrowse::EditPlace() const {
  wxSize const size = GetClientSize();
  RECT const cell{0, 0, size.x, size.y};
  return PropertyInPlaceLayout::EditRect(cell, PropertyInPlaceLayout::TextHeight(*this),
                                         kButtonWidth);
}
