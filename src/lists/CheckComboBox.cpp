#include "lists/CheckComboBox.h"

#include <wx/control.h>
#include <wx/dc.h>

#include <algorithm>

#include "lists/CheckComboPopup.h"
#include "lists/ListSeparator.h"
#include "platform/SysColor.h"

namespace {

// The tick inside a checked box: for each column from the box's left + 3,
// the first of its three pixels below the box's top.
constexpr int kTickFirstRow[] = {5, 6, 7, 6, 5, 4, 3};

wxColour FromColorRef(COLORREF color) { return wxColour(static_cast<unsigned long>(color)); }

}  // namespace

CheckComboBox::CheckComboBox(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                             wxSize const & size, long style) {
  Create(parent, id, pos, size, style);
}

bool CheckComboBox::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                           wxSize const & size, long style) {
  return VxComboBox::Create(parent, id, pos, size, style | wxCB_READONLY, new CheckComboPopup);
}

void CheckComboBox::ResetContent() {
  mTextValid = false;
  mStates.clear();
  Clear();
  mLastSelected = -1;
  Refresh(false);
}

bool CheckComboBox::GetCheck(int index) const {
  auto const found = mStates.find(index);
  return found != mStates.end() && found->second.checked;
}

int CheckComboBox::GetNumCheckedItems() const {
  return static_cast<int>(std::count_if(mStates.begin(), mStates.end(),
                                        [](auto const & entry) { return entry.second.checked; }));
}

wxWindow * CheckComboBox::GetListBox() const { return GetVListBoxComboPopup(); }

bool CheckComboBox::HasCheckbox(int index) const {
  return !std::binary_search(mWithoutBox.begin(), mWithoutBox.end(), index);
}

void CheckComboBox::Changed() {
  mTextValid = false;
  Refresh(false);
  if (IsPopupShown()) GetListBox()->Refresh(false);
}

int CheckComboBox::SetCheck(int index, bool check) {
  if (index < 0 || static_cast<unsigned>(index) >= GetCount()) return -1;
  if (!HasCheckbox(index)) return index;
  auto const entry = mStates.try_emplace(index, ItemState{false, GetSysColor(COLOR_WINDOWTEXT)});
  entry.first->second.checked = check;
  Changed();
  return index;
}

void CheckComboBox::SelectAll(bool check) {
  for (unsigned i = 0; i < GetCount(); ++i) SetCheck(static_cast<int>(i), check);
}

void CheckComboBox::GetSelItems(std::vector<wxString> & texts) const {
  texts.clear();
  for (unsigned i = 0; i < GetCount(); ++i)
    if (GetCheck(static_cast<int>(i))) texts.push_back(GetString(i));
}

void CheckComboBox::SetSelItems(std::vector<wxString> const & texts) {
  for (unsigned i = 0; i < GetCount(); ++i)
    SetCheck(static_cast<int>(i),
             std::find(texts.begin(), texts.end(), GetString(i)) != texts.end());
}

void CheckComboBox::SetItemColor(int index, COLORREF color) {
  mStates[index].color = color;  // a new entry is unchecked
  Changed();
}

COLORREF CheckComboBox::GetItemColor(int index) const {
  auto const found = mStates.find(index);
  return found != mStates.end() ? found->second.color : GetSysColor(COLOR_WINDOWTEXT);
}

void CheckComboBox::SetDisabled(int index, bool disabled) {
  if (disabled)
    mDisabled.insert(index);
  else
    mDisabled.erase(index);
  Changed();
}

bool CheckComboBox::IsDisabled(int index) const { return mDisabled.count(index) != 0; }

void CheckComboBox::EnableAll() {
  mDisabled.clear();
  Changed();
}

void CheckComboBox::SetNoSelectionString(wxString const & text) {
  mNoSelectionString = text;
  Changed();
}

void CheckComboBox::SetAllSelectedString(wxString const & text) {
  mAllSelectedString = text;
  Changed();
}

void CheckComboBox::SetItemsWithoutCheckbox(std::vector<int> items) {
  std::sort(items.begin(), items.end());
  mWithoutBox = std::move(items);
  Changed();
}

void CheckComboBox::RecalcText() const {
  if (mTextValid) return;
  wxString const separator = wxString::FromUTF8(UserListSeparator()) + " ";
  wxString text;
  bool first = true;
  bool all = GetCount() > 0;
  for (unsigned i = 0; i < GetCount(); ++i) {
    if (!GetCheck(static_cast<int>(i))) {
      all = false;
      continue;
    }
    if (!first) text += separator;
    text += GetString(i);
    first = false;
  }
  mNoSelection = text.empty();
  if (mNoSelection) text = mNoSelectionString;
  mAllSelected = all;
  if (all && !mAllSelectedString.empty()) text = mAllSelectedString;
  mFaceText = text;
  mTextValid = true;
}

wxString CheckComboBox::GetValue() const {
  RecalcText();
  return mFaceText;
}

void CheckComboBox::ToggleItem(int index, bool byMouse) {
  if (index < 0 || static_cast<unsigned>(index) >= GetCount() || IsDisabled(index)) return;
  bool const checked = GetCheck(index);
  if (checked && !mAllClear && GetNumCheckedItems() == 1) return;  // the last check stays
  if (HasCheckbox(index)) SetCheck(index, !checked);
  if (byMouse) mLastSelected = index;
  NotifySelectionChange(index);
}

void CheckComboBox::DrawFace(wxDC & dc, wxRect const & rect) const {
  DrawRow(dc, rect, -1, true, ShouldDrawFocus());
}

void CheckComboBox::OnDrawItem(wxDC & dc, wxRect const & rect, int item, int flags) const {
  bool const face = item < 0 || (flags & wxODCB_PAINTING_CONTROL) != 0;
  DrawRow(dc, rect, item, face, (flags & wxODCB_PAINTING_SELECTED) != 0);
}

void CheckComboBox::OnDrawBackground(wxDC &, wxRect const &, int, int) const {
  // DrawRow fills every pixel of the row itself.
}

wxCoord CheckComboBox::OnMeasureItem(size_t) const {
  int height = 0, leading = 0;
  GetTextExtent("Ag", nullptr, &height, nullptr, &leading);
  return height + leading + 2;
}

void CheckComboBox::DrawRow(wxDC & dc, wxRect const & rect, int item, bool face,
                            bool selected) const {
  bool const disabledItem = !face && IsDisabled(item);
  int boxState = 0;  // 0 no box, 1 unchecked, 2 checked
  if (!face && HasCheckbox(item)) boxState = GetCheck(item) ? 2 : 1;
  RecalcText();
  wxString const text = face ? mFaceText : GetString(static_cast<unsigned>(item));

  wxRect textRect = rect;
  if (boxState != 0) {
    int height = 0, leading = 0;
    GetTextExtent("Ag", nullptr, &height, nullptr, &leading);
    int const column = height + leading + 6;
    wxColour const ink = GetSysColour(disabledItem ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(GetSysColour(COLOR_WINDOW)));
    dc.DrawRectangle(rect.x, rect.y, column, rect.height);
    int const top = rect.y + 1;
    int const side = rect.height - 2;
    wxPen outline(ink, 1);
    outline.SetJoin(wxJOIN_MITER);  // square corners, as the tick is square
    dc.SetPen(outline);
    dc.DrawRectangle(rect.x + 2, top, side, side);
    if (boxState == 2) {
      int const x0 = rect.x + 2 + 3;
      dc.SetPen(wxPen(ink, 1));
      for (int column = 0; column < 7; ++column)
        for (int row = 0; row < 3; ++row)
          dc.DrawPoint(x0 + column, top + kTickFirstRow[column] + row);
    }
    textRect.x += column;
    textRect.width -= column;
  }

  wxColour background, foreground;
  if (selected) {
    background = GetSysColour(disabledItem ? COLOR_WINDOW : COLOR_HIGHLIGHT);
    foreground = GetSysColour(disabledItem ? COLOR_GRAYTEXT : COLOR_HIGHLIGHTTEXT);
  } else if (IsEnabled()) {
    background = GetSysColour(COLOR_WINDOW);
    if (face)
      foreground = GetSysColour(COLOR_WINDOWTEXT);
    else if (disabledItem)
      foreground = GetSysColour(COLOR_GRAYTEXT);
    else
      foreground = FromColorRef(GetItemColor(item));
  } else {
    background = GetSysColour(COLOR_BTNFACE);
    foreground = GetSysColour(COLOR_GRAYTEXT);
  }
  if (face && mNoSelection) foreground = GetSysColour(COLOR_GRAYTEXT);

  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(background));
  dc.DrawRectangle(textRect);
  dc.SetFont(GetFont());
  dc.SetTextForeground(foreground);
  dc.SetTextBackground(background);
  bool const centred =
      boxState == 0 && (mNoSelection || (mAllSelected && !mAllSelectedString.empty()));
  wxString const shown = wxControl::Ellipsize(text, dc, wxELLIPSIZE_END, textRect.width);
  dc.DrawLabel(shown, textRect,
               (centred ? wxALIGN_CENTER_HORIZONTAL : wxALIGN_LEFT) | wxALIGN_CENTER_VERTICAL);
  if (selected && !disabledItem && IsEnabled()) {
    dc.SetPen(wxPen(foreground, 1, wxPENSTYLE_DOT));  // the focus rectangle
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(rect);
  }
}
