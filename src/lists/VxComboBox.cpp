#include "lists/VxComboBox.h"

#include <wx/display.h>

#include <algorithm>
#include <cstdlib>

#include "lists/VxComboPopup.h"
#include "platform/SystemMetrics.h"

VxComboBox::VxComboBox(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                       long style) {
  Create(parent, id, pos, size, style);
}

bool VxComboBox::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
                        long style, VxComboPopup * popup) {
  if (!wxOwnerDrawnComboBox::Create(parent, id, wxString(), pos, size, 0, nullptr, style)) {
    delete popup;
    return false;
  }
  SetPopupControl(popup != nullptr ? popup : new VxComboPopup);
  EnsurePopupControl();  // the list is there from the start, so rows can be measured
  Bind(wxEVT_TEXT, &VxComboBox::OnTextChanged, this);
  return true;
}

int VxComboBox::AddStringEx(wxString const & text, uint64_t data) {
  int const index = Append(text);
  if (index >= 0) SetItemData64(index, data);
  return index;
}

uint64_t VxComboBox::GetItemData64(int index) const {
  if (index < 0 || static_cast<unsigned>(index) >= GetCount()) return kNoData;
  return reinterpret_cast<uintptr_t>(GetClientData(static_cast<unsigned>(index)));
}

void VxComboBox::SetItemData64(int index, uint64_t data) {
  static_assert(sizeof(uintptr_t) >= sizeof(uint64_t), "item data is kept in a pointer");
  if (index < 0 || static_cast<unsigned>(index) >= GetCount()) return;
  SetClientData(static_cast<unsigned>(index), reinterpret_cast<void *>(uintptr_t{data}));
}

int VxComboBox::SetCurSelEx(uint64_t data) {
  for (unsigned i = 0; i < GetCount(); ++i) {
    if (GetItemData64(static_cast<int>(i)) == data) {
      SetSelection(static_cast<int>(i));
      return static_cast<int>(i);
    }
  }
  SetSelection(wxNOT_FOUND);
  return -1;
}

int VxComboBox::FindNearest(std::vector<uint64_t> const & items, uint64_t data) {
  auto const exact = std::find(items.begin(), items.end(), data);
  if (exact != items.end()) return static_cast<int>(exact - items.begin());
  // Values are compared as the 32-bit numbers they were written as; the
  // difference is taken in 64 bits so that far values cannot wrap.
  auto distance = [data](uint64_t value) {
    return std::llabs(static_cast<long long>(static_cast<int32_t>(value)) -
                      static_cast<long long>(static_cast<int32_t>(data)));
  };
  int nearest = -1;
  long long best = 0;
  for (size_t i = 0; i < items.size(); ++i) {
    long long const d = distance(items[i]);
    if (nearest < 0 || d < best) {
      nearest = static_cast<int>(i);
      best = d;
    }
  }
  return nearest;
}

int VxComboBox::SetCurSelEx2(uint64_t & data) {
  std::vector<uint64_t> items(GetCount());
  for (size_t i = 0; i < items.size(); ++i) items[i] = GetItemData64(static_cast<int>(i));
  int const index = FindNearest(items, data);
  if (index < 0) return -1;
  SetSelection(index);
  data = items[static_cast<size_t>(index)];
  return index;
}

uint64_t VxComboBox::GetCurItemData() const { return GetItemData64(GetSelection()); }

VxComboBox::DropDown VxComboBox::ComputeDropDown(int count, int itemHeight, int monitorHeight) {
  int rows = std::max(count, 2);
  int height = (rows + 2) * itemHeight;
  int const third = monitorHeight / 3;
  if (itemHeight > 0 && height > third) {
    rows = third / itemHeight;
    height = rows * itemHeight;
  }
  return {rows, height};
}

VxComboBox::DropDown VxComboBox::MeasureDropDown(int rowHeight) const {
  int const index = wxDisplay::GetFromWindow(this);
  wxDisplay const display(index == wxNOT_FOUND ? 0U : static_cast<unsigned>(index));
  DropDown drop =
      ComputeDropDown(static_cast<int>(GetCount()), rowHeight, display.GetGeometry().height);
  if (mRecalcDropWidth) {
    int const scrollBar = GetSystemMetrics(SM_CXVSCROLL);
    int widest = 0;
    for (unsigned i = 0; i < GetCount(); ++i)
      widest = std::max(widest, GetTextExtent(GetString(i)).x + scrollBar);
    drop.width = widest + GetTextExtent("0").x;
  }
  return drop;
}

void VxComboBox::NotifySelectionChange(int index) {
  wxCommandEvent event(wxEVT_COMBOBOX, GetId());
  event.SetEventObject(this);
  event.SetInt(index);
  if (index >= 0) event.SetString(GetString(static_cast<unsigned>(index)));
  ProcessWindowEvent(event);
}

void VxComboBox::OnTextChanged(wxCommandEvent & event) {
  event.Skip();
  // Completing changes the text once more; that change is ours.
  if (!mAutoCompletion || mCompleting || HasFlag(wxCB_READONLY)) return;
  // GTK places the cursor after the typed character once the change has
  // been told, which would undo a completion made now.
  if (!mCompletionPending) {
    mCompletionPending = true;
    CallAfter(&VxComboBox::CompleteTypedText);
  }
}

void VxComboBox::CompleteTypedText() {
  mCompletionPending = false;
  wxString const typed = GetValue();
  if (typed.empty()) return;  // an emptied field is left empty
  long from = -1, to = -1;
  GetSelection(&from, &to);
  mCompleting = true;
  wxString const prefix = typed.Lower();
  int found = wxNOT_FOUND;
  for (unsigned i = 0; i < GetCount() && found == wxNOT_FOUND; ++i)
    if (GetString(i).Lower().StartsWith(prefix)) found = static_cast<int>(i);
  if (found != wxNOT_FOUND) {
    SetSelection(found);
    NotifySelectionChange(found);
  } else {
    ChangeValue(typed);
  }
  long const typedLength = static_cast<long>(typed.length());
  if (from >= 0 && to >= from && to < typedLength)
    SetSelection(from, to);
  else
    SetSelection(typedLength, GetLastPosition());  // what was completed stands selected
  mCompleting = false;
}
