#include "properties/PropertyInPlaceComboBox.h"

#include <algorithm>

#include <wx/dcclient.h>

#include "platform/SystemMetrics.h"
#include "platform/WindowMessage.h"
#include "platform/commctrl/VirtualKeys.h"
#include "properties/PropertyInPlaceComboBoxButton.h"
#include "properties/PropertyInPlaceComboBoxEdit.h"
#include "properties/PropertyInPlaceComboBoxListBox.h"
#include "properties/PropertyInPlaceLayout.h"
#include "properties/PropertyInPlaceMessages.h"

namespace {

wxRect ToWxRect(RECT const & r) {
  return wxRect(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

}  // namespace

PropertyInPlaceComboBox::PropertyInPlaceComboBox(wxWindow * parent, RECT const & rect)
    : wxWindow(parent, kFrameId, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  mButton = new PropertyInPlaceComboBoxButton(this, kButtonId);
  mEdit = new PropertyInPlaceComboBoxEdit(this, kEditId);
  SetSize(ToWxRect(rect));
  LayoutChildren();
  ResetListBoxHeight();
  // The children cover the frame; it paints nothing itself.
  Bind(wxEVT_PAINT, [this](wxPaintEvent &) { wxPaintDC dc(this); });
  Bind(wxEVT_SIZE, &PropertyInPlaceComboBox::OnSize, this);
  Bind(VX_EVT_WINDOW_MESSAGE, &PropertyInPlaceComboBox::OnWindowMessage, this);
}

PropertyInPlaceComboBox::~PropertyInPlaceComboBox() {
  // The popup is a top-level window: it goes with the frame, now.
  if (mList != nullptr) {
    mList->CloseUp();
    delete mList;
    mList = nullptr;
  }
}

PropertyInPlaceComboBox * PropertyInPlaceComboBox::CreateInPlaceControl(wxWindow * parent,
                                                                        RECT rect) {
  return new PropertyInPlaceComboBox(parent, rect);
}

int PropertyInPlaceComboBox::AddString(wchar_t const * text, unsigned long data) {
  mEntries.emplace_back(text == nullptr ? L"" : text, data);
  if (mList != nullptr && mList->IsShown()) mList->Refresh(false);
  return GetCount() - 1;
}

int PropertyInPlaceComboBox::GetCount() const { return static_cast<int>(mEntries.size()); }

wxString PropertyInPlaceComboBox::GetString(int index) const {
  return index >= 0 && index < GetCount() ? mEntries[size_t(index)].first : wxString();
}

unsigned long PropertyInPlaceComboBox::GetItemData(int index) const {
  return index >= 0 && index < GetCount() ? mEntries[size_t(index)].second : 0;
}

PropertyInPlaceComboBoxListBox * PropertyInPlaceComboBox::GetList() const {
  if (mList == nullptr)
    mList =
        new PropertyInPlaceComboBoxListBox(const_cast<PropertyInPlaceComboBox *>(this), kListId);
  return mList;
}

int PropertyInPlaceComboBox::GetItemHeight() const {
  return PropertyInPlaceLayout::TextHeight(*this) + 2;
}

int PropertyInPlaceComboBox::GetCurSel() const { return mChosen; }

int PropertyInPlaceComboBox::SetCurSel(int index, bool notify) {
  if (index < 0 || index >= GetCount()) return -1;
  mChosen = index;
  if (mList != nullptr) mList->SetSelection(index);
  mEdit->SetText(GetString(index));
  if (notify) Notify();
  return index;
}

void PropertyInPlaceComboBox::ResetContent() {
  mEntries.clear();
  if (mList != nullptr) mList->Reset();
  mChosen = -1;
  mEdit->SetText(wxString());
}

int PropertyInPlaceComboBox::DropListHeight() const {
  return PropertyInPlaceLayout::DropListHeight(GetCount(), GetItemHeight());
}

void PropertyInPlaceComboBox::ResetListBoxHeight() {
  if (mList == nullptr) return;  // a drop gives it its height
  wxRect place = mList->GetRect();
  if (place.width <= 0) place.width = GetSize().x;
  place.height = DropListHeight();
  mList->SetSize(place);
}

void PropertyInPlaceComboBox::MoveControl(RECT const & rect) {
  SetSize(ToWxRect(rect));
  LayoutChildren();
  if (IsDropped()) {
    mList->CloseUp();
    OnBnClicked();
  }
}

bool PropertyInPlaceComboBox::IsDropped() const { return mList != nullptr && mList->IsDropped(); }

void PropertyInPlaceComboBox::OnBnClicked() {
  if (IsDropped()) {
    HideList();
    return;
  }
  wxSize const size = GetSize();
  wxPoint const below = ClientToScreen(wxPoint(0, size.y));
  // The list takes the mouse, the edit the keys, which it hands to the list.
  mEdit->SetFocus();
  GetList()->SetSelection(mChosen);
  mList->Drop(wxRect(below.x, below.y, size.x, DropListHeight()));
  mButton->Refresh(false);
}

void PropertyInPlaceComboBox::HideList() {
  if (!IsDropped()) return;
  mList->CloseUp();
  mButton->Refresh(false);
}

void PropertyInPlaceComboBox::Notify() {
  SendWindowMessage(mOwner != nullptr ? mOwner : GetParent(), kInPlaceDataChanged, 0, 0);
}

void PropertyInPlaceComboBox::OnWindowMessage(WindowMessageEvent & event) {
  int const count = GetCount();
  int const current = GetCurSel();
  switch (event.GetMessage()) {
    case kInPlaceListChoose: {
      HideList();
      int const index = static_cast<int>(static_cast<std::intptr_t>(event.GetWParam()));
      SetCurSel(index, index != current);
      break;
    }
    case kInPlaceListHide: HideList(); break;
    case kInPlaceListStep: {
      int const next = PropertyInPlaceLayout::StepIndex(current, count, event.GetWParam() == VK_UP);
      if (next != current) SetCurSel(next, true);
      break;
    }
    case kInPlaceDoubleClick: {
      int const next = PropertyInPlaceLayout::CycleIndex(current, count);
      if (next != current) SetCurSel(next, true);
      break;
    }
    default: event.Skip(); return;
  }
  event.SetResult(1);
}

void PropertyInPlaceComboBox::OnSize(wxSizeEvent & event) {
  LayoutChildren();
  event.Skip();
}

void PropertyInPlaceComboBox::LayoutChildren() {
  if (mEdit == nullptr || mButton == nullptr) return;
  wxSize const size = GetClientSize();
  int const buttonWidth = std::min(size.x, GetSystemMetrics(SM_CXVSCROLL));
  mButton->SetSize(size.x - buttonWidth, 0, buttonWidth, size.y);
  mEdit->SetSize(0, 0, size.x - buttonWidth, size.y);
}
