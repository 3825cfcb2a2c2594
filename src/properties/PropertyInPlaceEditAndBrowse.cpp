#include "properties/PropertyInPlaceEditAndBrowse.h"

#include <wx/dcclient.h>
#include <wx/weakref.h>

#include "platform/SysColor.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyInPlaceBrowseButton.h"
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
  mButton = new PropertyInPlaceBrowseButton(this);
  mEdit = new PropertyInPlaceEditAndBrowseEdit(this, kEditId, mData, ToWxRect(EditPlace()));
  LayoutChildren();
  Bind(wxEVT_PAINT, &PropertyInPlaceEditAndBrowse::OnPaint, this);
  Bind(wxEVT_SIZE, &PropertyInPlaceEditAndBrowse::OnSize, this);
  // A double click the list passes on means nothing here.
  Bind(wxEVT_LEFT_DCLICK, [](wxMouseEvent &) {});
}

wxWindow * PropertyInPlaceEditAndBrowse::GetButton() const { return mButton; }

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
  wxPaintDC dc(this);
  dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.Clear();
}

void PropertyInPlaceEditAndBrowse::OnSize(wxSizeEvent & event) {
  LayoutChildren();
  event.Skip();
}

void PropertyInPlaceEditAndBrowse::LayoutChildren() {
  if (mEdit == nullptr || mButton == nullptr) return;
  wxSize const size = GetClientSize();
  mButton->SetSize(size.x - kButtonWidth, 0, kButtonWidth, size.y);
  mEdit->SetSize(ToWxRect(EditPlace()));
}

RECT PropertyInPlaceEditAndBrowse::EditPlace() const {
  wxSize const size = GetClientSize();
  RECT const cell{0, 0, size.x, size.y};
  return PropertyInPlaceLayout::EditRect(cell, PropertyInPlaceLayout::TextHeight(*this),
                                         kButtonWidth);
}
