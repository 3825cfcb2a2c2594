#include "properties/PropertyListCtrl.h"

#include <algorithm>
#include <typeinfo>

#include <wx/dcclient.h>
#include <wx/weakref.h>

#include <unicode/uchar.h>

#include "platform/SysColor.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyDetailsPane.h"
#include "properties/PropertyItem.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyItemManager.h"
#include "properties/PropertyRowMeasure.h"

namespace {

RECT ToRECT(wxRect const & rect) {
  return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

// Counts a nesting for as long as it lives, also when the body throws.
class Nesting {
public:
  explicit Nesting(int & depth) : mDepth(depth) { ++mDepth; }
  ~Nesting() { --mDepth; }
  Nesting(Nesting const &) = delete;
  Nesting & operator=(Nesting const &) = delete;

private:
  int & mDepth;
};

}  // namespace

PropertyListCtrl::PropertyListCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                                   wxSize const & size, long style) {
  Create(parent, id, pos, size, style);
}

bool PropertyListCtrl::Create(wxWindow * parent, wxWindowID id, wxPoint const & pos,
                              wxSize const & size, long style) {
  // The list takes Return, Escape and Tab itself: an editor's Escape or
  // Return commits and hands the focus here, and must not end the dialog.
  if (!wxVListBox::Create(parent, id, pos, size, style | wxWANTS_CHARS)) return false;
  Init();
  return true;
}

PropertyListCtrl::~PropertyListCtrl() {
  // The editor is a child and goes with the window; only forget it.
  mInPlaceControl = nullptr;
}

void PropertyListCtrl::Init() {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  // Colours and a font of its own: without them, every paint device and
  // every GetFont asks the theme (a list box's defaults build a GTK tree
  // view each time, a fifth of a full repaint).
  SetBackgroundColour(GetSysColour(COLOR_WINDOW));
  SetForegroundColour(GetSysColour(COLOR_WINDOWTEXT));
  SetFont(GetFont());
  mMeasure = std::make_unique<PropertyRowMeasure>(GetFont());
  mDetails = new PropertyDetailsPane(this);
  mRetired = new wxWindow(this, wxID_ANY, wxDefaultPosition, wxSize(1, 1));
  mRetired->Hide();
  mRetired->Disable();  // takes no focus

  Bind(wxEVT_PAINT, &PropertyListCtrl::OnPaintRows, this);
  Bind(wxEVT_LISTBOX, &PropertyListCtrl::OnSelectionChange, this, GetId());
  Bind(wxEVT_LEFT_DOWN, &PropertyListCtrl::OnLeftDown, this);
  Bind(wxEVT_LEFT_DCLICK, &PropertyListCtrl::OnLeftDoubleClick, this);
  Bind(wxEVT_KEY_DOWN, &PropertyListCtrl::OnKeyDown, this);
  // Escape and Return in the list or its editor commit; the dialog around
  // must not take them as Cancel or OK. They go to the focused window as
  // its key press at once, and no further.
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent & event) {
    int const key = event.GetKeyCode();
    if (key != WXK_ESCAPE && key != WXK_RETURN && key != WXK_NUMPAD_ENTER) {
      event.Skip();
      return;
    }
    auto * target = dynamic_cast<wxWindow *>(event.GetEventObject());
    wxKeyEvent press(event);
    press.SetEventType(wxEVT_KEY_DOWN);
    (target != nullptr ? target : this)->GetEventHandler()->ProcessEvent(press);
  });
  Bind(wxEVT_SIZE, &PropertyListCtrl::OnSize, this);
  Bind(wxEVT_MOUSEWHEEL, &PropertyListCtrl::OnMouseWheel, this);
  for (auto type : {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
                    wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
                    wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE})
    Bind(type, &PropertyListCtrl::OnScroll, this);
  Bind(VX_EVT_WINDOW_MESSAGE, &PropertyListCtrl::OnWindowMessage, this);
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent & event) {
    mTools = MakePaintTools();
    SetBackgroundColour(GetSysColour(COLOR_WINDOW));
    SetForegroundColour(GetSysColour(COLOR_WINDOWTEXT));
    event.Skip();
  });
  mDetails->Place();
}

void PropertyListCtrl::DoGetClientSize(int * width, int * height) const {
  wxVListBox::DoGetClientSize(width, height);
  if (height != nullptr && mShowDetails)
    *height = std::max(0, *height - PropertyListGeometry::kDetailsHeight);
}

// ---------------------------------------------------------------------------
// Rows

void PropertyListCtrl::SetPropertyItemManager(PropertyItemManager * manager) {
  mManager = manager;
  if (manager == nullptr) return;
  RunGuarded([&] {
    // The rows come one by one; the window learns their number once.
    {
      Nesting batch(mBatch);
      manager->InitControl(this);
    }
    SyncItemCount();
  });
}

PropertyItem * PropertyListCtrl::GetPropertyItem(int index) const {
  if (index < 0 || index >= GetCount()) return nullptr;
  return mRows[static_cast<size_t>(index)];
}

int PropertyListCtrl::InsertPropertyItem(PropertyItem * item, int index) {
  if (item == nullptr || index < -1 || index > GetCount()) return -1;
  if (index == -1) index = GetCount();
  int const selected = GetSelection();
  mRows.insert(mRows.begin() + index, item);
  mHeights.insert(mHeights.begin() + index, 0);
  if (mBatch == 0) {
    SyncItemCount();
    if (selected >= index) SetSelection(selected + 1);
  }
  return index;
}

void PropertyListCtrl::ResetContent() {
  DestroyInPlaceControl();
  mRows.clear();
  mHeights.clear();
  if (mBatch == 0) SyncItemCount();
  SetSelection(wxNOT_FOUND);
  RefreshDetails();
}

void PropertyListCtrl::SyncItemCount() {
  if (GetItemCount() != mRows.size()) SetItemCount(mRows.size());
  RefreshAll();
}

void PropertyListCtrl::InvalidateRowHeights() {
  std::fill(mHeights.begin(), mHeights.end(), 0);
  mMeasuredWidth = -1;
  RefreshAll();
}

PropertyListGeometry::NameSpan PropertyListCtrl::SpanOf(PropertyItem const & item) const {
  bool const whole = dynamic_cast<PropertyItemCategory const *>(&item) != nullptr ||
                     typeid(item) == typeid(PropertyItem);
  return whole ? PropertyListGeometry::NameSpan::Whole : PropertyListGeometry::NameSpan::Half;
}

wxCoord PropertyListCtrl::OnMeasureItem(size_t n) const {
  if (n >= mRows.size()) return 1;
  int const width = GetClientSize().x;
  if (width != mMeasuredWidth) {
    // Names wrap to the width: every row is measured again when first asked.
    std::fill(mHeights.begin(), mHeights.end(), 0);
    mMeasuredWidth = width;
  }
  if (mHeights[n] != 0) return mHeights[n];
  PropertyItem & item = *mRows[n];
  bool const category = dynamic_cast<PropertyItemCategory const *>(&item) != nullptr;
  PropertyRowMeasure::Row row = mMeasure->Measure(item.GetName(), SpanOf(item), width, category);
  item.SetShowName(row.showName);
  mHeights[n] = row.height;
  return row.height;
}

wxCoord PropertyListCtrl::EstimateTotalHeight() const {
  auto const oneLine =
      static_cast<long long>(mMeasure->LineHeight(false)) + PropertyListGeometry::kRowPadding;
  return static_cast<wxCoord>(
      std::min<long long>(oneLine * static_cast<long long>(mRows.size()), 0x3FFFFFFF));
}

void PropertyListCtrl::OnDrawBackground(wxDC &, wxRect const &, size_t) const {
  // Rows draw their own cells; the selection colours the name only and no
  // focus rectangle is drawn.
}

wxRect PropertyListCtrl::GetRowRect(int index) const {
  if (index < 0 || index >= GetCount() || static_cast<size_t>(index) >= GetItemCount()) return {};
  if (!IsVisible(static_cast<size_t>(index))) return {};
  return GetItemRect(static_cast<size_t>(index));
}

wxRect PropertyListCtrl::GetItemValueRect(int index) const {
  wxRect const row = GetRowRect(index);
  if (row.IsEmpty()) return {};
  return PropertyListGeometry::ValueRect(row);
}

// ---------------------------------------------------------------------------
// The editor

void PropertyListCtrl::CreateInPlaceControl() {
  PropertyItem * item = GetPropertyItem(GetSelection());
  if (item == nullptr) return;
  wxRect cell = GetItemValueRect(GetSelection());
  bool const inView = !cell.IsEmpty();
  // A row out of view still gets its editor, hidden until it scrolls in.
  if (!inView) cell = PropertyListGeometry::ValueRect(wxRect(0, 0, GetClientSize().x, 20));
  mInPlaceControl = item->CreateInPlaceControl(this, ToRECT(cell));
  if (mInPlaceControl != nullptr && !inView) mInPlaceControl->Hide();
}

void PropertyListCtrl::DestroyInPlaceControl() {
  wxWindow * control = mInPlaceControl;
  mInPlaceControl = nullptr;
  if (control != nullptr) RetireInPlaceControl(control);
}

void PropertyListCtrl::RetireInPlaceControl(wxWindow * control) {
  if (mInEditorMessage == 0) {
    control->Destroy();
    return;
  }
  // The editor's own handler is running (a colour item rebuilds its editor
  // while the editor tells of its value): hide it under a holder, so that
  // what it still sends reaches nothing, and delete it once that handler
  // has returned.
  control->Hide();
  control->Reparent(mRetired);
  CallAfter([weak = wxWeakRef<wxWindow>(control)] {
    if (weak) weak->Destroy();
  });
}

void PropertyListCtrl::ShowInPlaceControl(bool show) {
  DestroyInPlaceControl();
  if (show && GetSelection() != wxNOT_FOUND) CreateInPlaceControl();
}

void PropertyListCtrl::PlaceInPlaceControl() {
  if (mInPlaceControl == nullptr) return;
  wxRect const cell = GetItemValueRect(GetSelection());
  if (cell.IsEmpty()) {
    mInPlaceControl->Hide();
    return;
  }
  if (mInPlaceControl->GetPosition() != cell.GetPosition()) mInPlaceControl->Move(cell.x, cell.y);
  mInPlaceControl->Show();
}

bool PropertyListCtrl::SetCurrentData() {
  int const selected = GetSelection();
  PropertyItem * item = GetPropertyItem(selected);
  if (mInPlaceControl == nullptr || item == nullptr) return false;
  item->SetData(mInPlaceControl);
  if (mManager != nullptr) mManager->OnDataChanged(item, this, selected);
  RefreshRow(static_cast<size_t>(selected));
  return true;
}

std::intptr_t PropertyListCtrl::OnSetData(std::uintptr_t, std::intptr_t) {
  SetCurrentData();
  return 1;
}

void PropertyListCtrl::OnWindowMessage(WindowMessageEvent & event) {
  if (event.GetMessage() != kInPlaceDataChanged) {
    event.Skip();
    return;
  }
  Nesting inMessage(mInEditorMessage);
  event.SetResult(OnSetData(event.GetWParam(), event.GetLParam()));
}

void PropertyListCtrl::Refresh() {
  DestroyInPlaceControl();
  // Every value from the top row down is drawn anew at once.
  RefreshAll();
  ShowInPlaceControl(true);
}

void PropertyListCtrl::Refresh(bool eraseBackground, wxRect const * rect) {
  if (rect == nullptr && mDetails != nullptr && mShowDetails) {
    // A full repaint of the rows would otherwise draw the pane's wrapped
    // text again, and send its pixels to the display, for nothing.
    wxRect const rows(GetClientSize());
    wxVListBox::Refresh(eraseBackground, &rows);
    return;
  }
  wxVListBox::Refresh(eraseBackground, rect);
}

// ---------------------------------------------------------------------------
// Selection

void PropertyListCtrl::SetCurSel(int index) {
  if (index < 0 || index >= GetCount()) {
    SetSelection(wxNOT_FOUND);
  } else {
    SetSelection(index);
  }
}

void PropertyListCtrl::SelectionChanged() {
  // The old editor's value is not taken here: it reported when it lost the
  // focus.
  DestroyInPlaceControl();
  if (GetSelection() != wxNOT_FOUND) CreateInPlaceControl();
  RefreshDetails();
}

void PropertyListCtrl::OnSelectionChange(wxCommandEvent & event) {
  RunGuarded([&] { SelectionChanged(); });
  event.Skip();  // the parent hears of it too
}

bool PropertyListCtrl::SetCurSelByID(unsigned id) {
  bool found = false;
  RunGuarded([&] {
    for (int index = 0; index < GetCount() && !found; ++index) {
      PropertyItem * item = mRows[static_cast<size_t>(index)];
      auto * category = dynamic_cast<PropertyItemCategory *>(item);
      if (category != nullptr && !category->GetChildrenVisible()) {
        int position = 1;
        for (PropertyItem * child : *category) {
          if (child != nullptr && child->GetPropertyID() == id) {
            DoCollapseExpand(index, category);
            SetCurSel(index + position);
            found = true;
            break;
          }
          ++position;
        }
      } else if (item->GetPropertyID() == id) {
        SetCurSel(index);
        found = true;
      }
    }
    if (found) SelectionChanged();
  });
  return found;
}

// ---------------------------------------------------------------------------
// Collapse and expand

void PropertyListCtrl::DoCollapse(PropertyItemCategory * category, int index) {
  if (category == nullptr || index < 0 || index >= GetCount()) return;
  auto const first = static_cast<size_t>(index) + 1;
  size_t const last =
      std::min(mRows.size(), first + static_cast<size_t>(std::max(0, category->GetNumItems())));
  category->SetChildrenVisible(false);
  if (first >= last) {
    RefreshRow(static_cast<size_t>(index));
    return;
  }
  int const selected = GetSelection();
  auto const removed = static_cast<int>(last - first);
  bool const selectionGone =
      selected >= static_cast<int>(first) && selected < static_cast<int>(last);
  if (selectionGone) {
    DestroyInPlaceControl();
    SetSelection(wxNOT_FOUND);
  }
  // One erase for the whole range: the window learns the new count once.
  mRows.erase(mRows.begin() + static_cast<std::ptrdiff_t>(first),
              mRows.begin() + static_cast<std::ptrdiff_t>(last));
  mHeights.erase(mHeights.begin() + static_cast<std::ptrdiff_t>(first),
                 mHeights.begin() + static_cast<std::ptrdiff_t>(last));
  SyncItemCount();
  if (!selectionGone && selected >= static_cast<int>(last)) SetSelection(selected - removed);
  if (selectionGone) RefreshDetails();
}

void PropertyListCtrl::DoExpand(PropertyItemCategory * category, int & index) {
  if (category == nullptr || index < 0 || index >= GetCount()) return;
  int const selected = GetSelection();
  int const at = index;
  {
    Nesting batch(mBatch);
    for (PropertyItem * item : *category) {
      if (item == nullptr) continue;
      ++index;
      InsertPropertyItem(item, index);
    }
  }
  category->SetChildrenVisible(true);
  SyncItemCount();
  if (selected > at) SetSelection(selected + (index - at));
}

void PropertyListCtrl::DoCollapseExpand(int index, PropertyItem * item) {
  if (item == nullptr) item = GetPropertyItem(index);
  auto * category = dynamic_cast<PropertyItemCategory *>(item);
  if (category == nullptr || index < 0 || index >= GetCount()) return;
  if (SetCurrentData()) DestroyInPlaceControl();
  if (category->GetChildrenVisible()) {
    DoCollapse(category, index);
  } else {
    int at = index;
    DoExpand(category, at);
  }
  PlaceInPlaceControl();
}

// ---------------------------------------------------------------------------
// Mouse and keys

void PropertyListCtrl::OnLeftDown(wxMouseEvent & event) {
  RunGuarded([&] {
    wxVListBox::OnLeftDown(event);  // focus and selection (with its steps) first
    if (event.GetX() < PropertyListGeometry::kExpanderHitLimit && GetSelection() != wxNOT_FOUND)
      DoCollapseExpand(GetSelection(), nullptr);
  });
}

void PropertyListCtrl::OnLeftDoubleClick(wxMouseEvent & event) {
  RunGuarded([&] {
    wxVListBox::OnLeftDClick(event);
    int const selected = GetSelection();
    PropertyItem * item = GetPropertyItem(selected);
    if (item == nullptr || VirtualHitTest(event.GetY()) != selected) return;
    if (dynamic_cast<PropertyItemCategory *>(item) != nullptr) {
      DoCollapseExpand(selected, item);
    } else if (mInPlaceControl != nullptr) {
      SendWindowMessage(mInPlaceControl, kInPlaceDoubleClick, 1, 0);
    } else if (typeid(*item) == typeid(PropertyItem)) {
      SendWindowMessage(GetParent(), kInPlaceDoubleClick, 1, 0);
    }
  });
}

bool PropertyListCtrl::CategoryKey(int keyCode) {
  int const selected = GetSelection();
  auto * category = dynamic_cast<PropertyItemCategory *>(GetPropertyItem(selected));
  if (category == nullptr) return false;
  switch (keyCode) {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER: DoCollapseExpand(selected, category); return true;
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT:
    case WXK_NUMPAD_SUBTRACT:
    case '-':
      if (category->GetChildrenVisible()) DoCollapseExpand(selected, category);
      return true;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT:
    case WXK_NUMPAD_ADD:
    case '+':
      if (!category->GetChildrenVisible()) DoCollapseExpand(selected, category);
      return true;
    default: return false;
  }
}

void PropertyListCtrl::OnKeyDown(wxKeyEvent & event) {
  RunGuarded([&] {
    int const keyCode = event.GetKeyCode();
    if (CategoryKey(keyCode)) return;
    wxChar const key = event.GetUnicodeKey();
    if (key != WXK_NONE && u_isalpha(static_cast<UChar32>(key)) && !event.HasAnyModifiers()) {
      if (LookupPropertyItem(static_cast<wchar_t>(key))) SelectionChanged();
      return;  // consumed either way
    }
    switch (keyCode) {
      case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                   : wxNavigationKeyEvent::IsForward);
        return;
      case WXK_RETURN:
      case WXK_NUMPAD_ENTER:
      case WXK_ESCAPE:
        // As in an editor: these commit, never end the dialog.
        SetCurrentData();
        return;
      default: wxVListBox::OnKeyDown(event);
    }
  });
}

void PropertyListCtrl::OnSize(wxSizeEvent & event) {
  event.Skip();  // the scroll bars follow the new size
  if (mDetails != nullptr) mDetails->Place();
  CallAfter([this] {
    RunGuarded([this] { Refresh(); });
    if (mDetails != nullptr) mDetails->Refresh();
  });
}

void PropertyListCtrl::OnScroll(wxScrollWinEvent & event) {
  // A window that is not active gets no focus events: commit directly.
  RunGuarded([this] { SetCurrentData(); });
  event.Skip();
  CallAfter([this] { PlaceInPlaceControl(); });
}

void PropertyListCtrl::OnMouseWheel(wxMouseEvent & event) {
  RunGuarded([this] { SetCurrentData(); });
  event.Skip();
  CallAfter([this] { PlaceInPlaceControl(); });
}

// ---------------------------------------------------------------------------
// Details

void PropertyListCtrl::ShowDetails(bool show) {
  mShowDetails = show;
  if (mDetails == nullptr) return;
  mDetails->Show(show);
  // The rows' area changed: the scroll bar and the rows follow.
  SendSizeEvent();
}

void PropertyListCtrl::RefreshDetails() {
  if (mDetails != nullptr && mShowDetails) mDetails->Refresh();
}
