#include "lists/VxTreeCtrl.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include <unicode/uchar.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/popupwin.h>
#include <wx/renderer.h>
#include <wx/utils.h>

#include <boost/locale/message.hpp>

#include "lists/ItemFontCache.h"
#include "lists/TreeText.h"
#include "platform/MessageBoxes.h"
#include "platform/ResourceModule.h"
#include "platform/SysColor.h"
#include "platform/UnmeasuredText.h"
#include "platform/WinUser.h"
#include "utl/CaseFolding.h"

// The picture a drag carries under the pointer. GTK has no image-list drag:
// a popup rides at the hot spot instead.
class TreeDragImageWindow : public wxPopupWindow {
public:
  TreeDragImageWindow(wxWindow * parent, wxBitmap const & picture)
      : wxPopupWindow(parent, wxBORDER_NONE), mPicture(picture) {
    SetSize(mPicture.GetSize());
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent &) {
      wxPaintDC dc(this);
      dc.DrawBitmap(mPicture, 0, 0, true);
    });
  }

private:
  wxBitmap mPicture;
};

namespace {

bool KeyDown(wxKeyCode key) { return wxGetKeyState(key); }

// The arrow with a plus that says "copy"; wx has no stock one on GTK.
wxCursor CopyArrowCursor() {
  static char const * const rows[] = {
      "X               ", "XX              ", "X.X             ", "X..X            ",
      "X...X           ", "X....X          ", "X.....X         ", "X......X        ",
      "X....XXXX       ", "X.X..X          ", "XX X..X  XXXXX  ", "X  X..X  X...X  ",
      "    X..X X...X  ", "     XX XXX.XXXX", "        X.....X ", "        XXX.XXXX"};
  wxImage image(16, 16);
  image.InitAlpha();
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 16; ++x) {
      char const c = rows[y][x];
      unsigned char const grey = c == 'X' ? 0 : 255;
      image.SetRGB(x, y, grey, grey, grey);
      image.SetAlpha(x, y, c == ' ' ? 0 : 255);
    }
  image.SetOption(wxIMAGE_OPTION_CUR_HOTSPOT_X, 0);
  image.SetOption(wxIMAGE_OPTION_CUR_HOTSPOT_Y, 0);
  return wxCursor(image);
}

wxColour FromColorRef(COLORREF color) {
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

std::uintptr_t PackItem(HTREEITEM item) {
  return (std::uintptr_t(item.generation) << 32) | item.slot;
}
HTREEITEM UnpackItem(std::uintptr_t packed) {
  return HTREEITEM{uint32_t(packed & 0xFFFFFFFFU), uint32_t(packed >> 32)};
}

// Builds loaded text into the tree.
class TreeBuilder : public TreeTextBuilder {
public:
  explicit TreeBuilder(VxTreeCtrl & tree) : mTree(tree) {}
  Item AddChild(Item parent, std::string_view text) override {
    HTREEITEM const under = parent == 0 ? TVI_ROOT : UnpackItem(parent);
    return PackItem(
        mTree.InsertItem(wxString::FromUTF8Unchecked(text.data(), text.size()), under, TVI_LAST));
  }

private:
  VxTreeCtrl & mTree;
};

// Walks the tree in display order, keeping the depth as it goes.
class TreeWalk : public TreeTextWalk {
public:
  explicit TreeWalk(VxTreeCtrl const & tree) : mTree(tree), mNext(tree.GetRootItem()) {}
  bool Next(size_t & depth, std::string & text) override {
    if (!mNext) return false;
    depth = mDepth;
    text = mTree.GetItemText(mNext).utf8_string();
    if (HTREEITEM const child = mTree.GetChildItem(mNext)) {
      mNext = child;
      ++mDepth;
      return true;
    }
    for (HTREEITEM at = mNext;; at = mTree.GetParentItem(at), --mDepth) {
      if (HTREEITEM const sibling = mTree.GetNextSiblingItem(at)) {
        mNext = sibling;
        return true;
      }
      if (mDepth == 0) {
        mNext = TVI_NULL;
        return true;
      }
    }
  }

private:
  VxTreeCtrl const & mTree;
  HTREEITEM mNext;
  size_t mDepth = 0;
};

// The six state images drawn by the toolkit when the application has no
// bitmap of its own.
std::unique_ptr<wxImageList> MakeStateImages(wxWindow & window) {
  constexpr int side = 16;
  auto images = std::make_unique<wxImageList>(side, side, true, 6);
  wxBitmap const strip = LoadResourceBitmap(VxTreeCtrl::kStateImageBitmap);
  if (strip.IsOk() && strip.GetHeight() == side && strip.GetWidth() >= side * 6) {
    wxImage const image = strip.ConvertToImage();
    for (int at = 0; at < strip.GetWidth() / side; ++at) {
      wxImage part = image.GetSubImage(wxRect(at * side, 0, side, side));
      if (!part.HasAlpha()) part.SetMaskColour(255, 255, 255);
      images->Add(wxBitmap(part));
    }
    return images;
  }
  int const flags[] = {-1,
                       0,
                       wxCONTROL_CHECKED,
                       wxCONTROL_UNDETERMINED,
                       wxCONTROL_CHECKED | wxCONTROL_CURRENT,
                       wxCONTROL_DISABLED};
  for (int flag : flags) {
    wxBitmap bitmap(side, side, 32);
    {
      wxMemoryDC dc(bitmap);
      dc.SetBackground(*wxWHITE_BRUSH);
      dc.Clear();
      if (flag >= 0)
        wxRendererNative::Get().DrawCheckBox(&window, dc, wxRect(1, 1, side - 2, side - 2), flag);
    }
    images->Add(bitmap, *wxWHITE);
  }
  return images;
}

}  // namespace

VxTreeCtrl::VxTreeCtrl() { Init(); }

VxTreeCtrl::VxTreeCtrl(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & pos,
                       wxSize const & size) {
  Init();
  Create(parent, id, style, pos, size);
}

VxTreeCtrl::~VxTreeCtrl() {
  if (mDragWindow != nullptr) mDragWindow->Destroy();
  SetImageList(nullptr, TVSIL_STATE);
}

void VxTreeCtrl::Init() {
  mMoveCursor = wxCursor(wxCURSOR_ARROW);
  mNoDropCursor = wxCursor(wxCURSOR_NO_ENTRY);
  wxBitmap const copy = LoadResourceBitmap(kCopyCursor);
  if (copy.IsOk())
    mCopyCursor = wxCursor(copy.ConvertToImage());
  else
    mCopyCursor = CopyArrowCursor();
}

bool VxTreeCtrl::Create(wxWindow * parent, wxWindowID id, DWORD style, wxPoint const & pos,
                        wxSize const & size) {
  if (!CTreeCtrl::Create(parent, id, style, pos, size)) return false;
  Bind(VX_EVT_NOTIFY_REFLECT, &VxTreeCtrl::OnNotifyReflect, this);
  SetStateImageList();
  return true;
}

void VxTreeCtrl::SetStateImageList() {
  if ((GetStyle() & TVS_CHECKBOXES) == 0) return;
  mStateImages = MakeStateImages(*this);
  SetImageList(mStateImages.get(), TVSIL_STATE);
}

// --- Walking -----------------------------------------------------------------

HTREEITEM VxTreeCtrl::GetNextItem(HTREEITEM item) const {
  if (!item) return GetRootItem();
  if (HTREEITEM const child = GetChildItem(item)) return child;
  for (HTREEITEM at = item; at; at = GetParentItem(at))
    if (HTREEITEM const sibling = GetNextSiblingItem(at)) return sibling;
  return TVI_NULL;
}

HTREEITEM VxTreeCtrl::GetPrevItem(HTREEITEM item) const {
  if (!item) return TVI_NULL;
  if (HTREEITEM const previous = GetPrevSiblingItem(item)) return GetLastItem(previous);
  return GetParentItem(item);
}

HTREEITEM VxTreeCtrl::GetLastItem(HTREEITEM item) const {
  if (!item) {
    item = GetRootItem();
    if (!item) return TVI_NULL;
    while (HTREEITEM const next = GetNextSiblingItem(item)) item = next;
  }
  // Down the last children: the base keeps each node's last child.
  while (HTREEITEM child = GetChildItem(item)) {
    while (HTREEITEM const next = GetNextSiblingItem(child)) child = next;
    item = child;
  }
  return item;
}

int VxTreeCtrl::GetIndentLevel(HTREEITEM item) const {
  int level = 0;
  if (!IsValidItem(item)) return 0;
  for (HTREEITEM at = GetParentItem(item); at; at = GetParentItem(at)) ++level;
  return level;
}

int VxTreeCtrl::GetNumChildren(HTREEITEM item) const {
  if (!item) return int(GetCount());
  int count = 0;
  for (HTREEITEM child = GetChildItem(item); child; child = GetNextSiblingItem(child)) ++count;
  return count;
}

// --- Selection ---------------------------------------------------------------

void VxTreeCtrl::SetSelected(HTREEITEM item, bool selected) {
  SetItemState(item, selected ? TVIS_SELECTED : 0, TVIS_SELECTED);
}

int VxTreeCtrl::GetSelectedItemCount() const {
  int count = 0;
  for (HTREEITEM at = GetRootItem(); at; at = GetNextItem(at))
    if (IsSelected(at)) ++count;
  return count;
}

HTREEITEM VxTreeCtrl::GetFirstSelectedItem() const {
  for (HTREEITEM at = GetRootItem(); at; at = GetNextItem(at))
    if (IsSelected(at)) return at;
  return TVI_NULL;
}

HTREEITEM VxTreeCtrl::GetNextSelectedItem(HTREEITEM item) const {
  if (mSelectionState == SingleSelection || !IsValidItem(item)) return TVI_NULL;
  for (HTREEITEM at = GetNextItem(item); at; at = GetNextItem(at))
    if (IsSelected(at)) return at;
  return TVI_NULL;
}

HTREEITEM VxTreeCtrl::GetPrevSelectedItem(HTREEITEM item) const {
  if (mSelectionState == SingleSelection || !IsValidItem(item)) return TVI_NULL;
  for (HTREEITEM at = GetPrevItem(item); at; at = GetPrevItem(at))
    if (IsSelected(at)) return at;
  return TVI_NULL;
}

void VxTreeCtrl::ClearSelection() {
  if (mSelectionState == SingleSelection) return;
  for (HTREEITEM at = GetRootItem(); at; at = GetNextItem(at))
    if (IsSelected(at)) SetSelected(at, false);
  mAnchor = TVI_NULL;
}

void VxTreeCtrl::EnableMultiSelect(bool enable) {
  SetSelectionState(enable ? MultipleSelection : SingleSelection);
}

void VxTreeCtrl::SetSelectionState(SelectionState state) { mSelectionState = state; }

BOOL VxTreeCtrl::SelectItems(HTREEITEM first, HTREEITEM last) {
  if (mSelectionState != MultipleSelection || !IsValidItem(first) || !IsValidItem(last)) return 0;
  HTREEITEM at = GetRootItem();
  for (; at && at != first && at != last; at = GetNextVisibleItem(at))
    if (at != GetRootItem()) SetSelected(at, false);
  if (!at) return 0;
  Select(last, TVGN_CARET);
  // Select() moved the platform's one selection to `last`; the range is
  // applied over it.
  HTREEITEM const otherEnd = at == first ? last : first;
  bool inRange = true;
  for (; at; at = GetNextVisibleItem(at)) {
    SetSelected(at, inRange);
    if (at == otherEnd) inRange = false;
  }
  return 1;
}

// --- Check boxes ---------------------------------------------------------------

UINT VxTreeCtrl::GetCheckImage(HTREEITEM item) const {
  return STATEIMAGEMASKTOINDEX(GetItemState(item, TVIS_STATEIMAGEMASK));
}

void VxTreeCtrl::SetCheckImage(HTREEITEM item, UINT image) {
  SetItemState(item, INDEXTOSTATEIMAGEMASK(image), TVIS_STATEIMAGEMASK);
}

bool VxTreeCtrl::GetCheck(HTREEITEM item) const {
  if (!IsValidItem(item)) return false;
  UINT const image = GetCheckImage(item);
  return image == Checked || image == SomeChildrenChecked || image == AllChildrenCheckedState;
}

bool VxTreeCtrl::AllChildrenChecked(HTREEITEM item, bool checked) const {
  for (HTREEITEM child = GetChildItem(item); child; child = GetNextSiblingItem(child)) {
    UINT const image = GetCheckImage(child);
    if (checked ? (image != Checked && image != AllChildrenCheckedState) : image != Unchecked)
      return false;
  }
  return true;
}

void VxTreeCtrl::CheckAllChildItems(HTREEITEM item, CheckState state) {
  if (!IsValidItem(item)) return;
  // The branch below `item`, in display order, without leaving it.
  HTREEITEM at = GetChildItem(item);
  while (at) {
    UINT const image = GetCheckImage(at);
    if (image != NoCheckBox && image != CheckDisabled && image != UINT(state))
      SetCheckImage(at, UINT(state));
    // Each link is asked once: a leaf's sibling, else up until a sibling.
    HTREEITEM next = GetChildItem(at);
    while (!next) {
      next = GetNextSiblingItem(at);
      if (next) break;
      at = GetParentItem(at);
      if (at == item) break;
    }
    at = next;
  }
}

void VxTreeCtrl::PropagateCheckUp(HTREEITEM item, bool checked) {
  for (HTREEITEM up = GetParentItem(item); up; up = GetParentItem(up)) {
    UINT const image = GetCheckImage(up);
    if (image == NoCheckBox || image == CheckDisabled) continue;
    bool const all = AllChildrenChecked(up, true);
    if (checked)
      SetCheckImage(up, all ? AllChildrenCheckedState : SomeChildrenChecked);
    else
      SetCheckImage(up, AllChildrenChecked(up, false) ? Unchecked
                        : all                         ? AllChildrenCheckedState
                                                      : SomeChildrenChecked);
  }
}

BOOL VxTreeCtrl::SetCheck(HTREEITEM item, CheckType type) {
  if (!IsValidItem(item)) return 0;
  if (type == RemoveCheck) {
    SetCheckImage(item, NoCheckBox);
    return 1;
  }
  if (type == DisableCheck) {
    SetCheckImage(item, CheckDisabled);
    return 1;
  }
  if (type == ToggleCheck) type = GetCheck(item) ? Uncheck : Check;
  bool const checked = type == Check;
  SetCheckImage(item, checked ? Checked : Unchecked);
  CheckAllChildItems(item, checked ? Checked : Unchecked);
  PropagateCheckUp(item, checked);
  return 1;
}

HTREEITEM VxTreeCtrl::GetFirstCheckedItem() const {
  HTREEITEM const root = GetRootItem();
  if (!root) return TVI_NULL;
  UINT const image = GetCheckImage(root);
  if (image == Checked || image == AllChildrenCheckedState) return root;
  return GetNextCheckedItem(root);
}

HTREEITEM VxTreeCtrl::GetNextCheckedItem(HTREEITEM item) const {
  if (!IsValidItem(item)) return TVI_NULL;
  for (HTREEITEM at = GetNextItem(item); at; at = GetNextItem(at)) {
    UINT const image = GetCheckImage(at);
    if (image == Checked || image == AllChildrenCheckedState) return at;
  }
  return TVI_NULL;
}

HTREEITEM VxTreeCtrl::GetPrevCheckedItem(HTREEITEM item) const {
  if (!IsValidItem(item)) return TVI_NULL;
  for (HTREEITEM at = GetPrevItem(item); at; at = GetPrevItem(at))
    if (GetCheck(at)) return at;
  return TVI_NULL;
}

// --- Expansion -------------------------------------------------------------------

void VxTreeCtrl::ExpandBranch(HTREEITEM item, UINT code) {
  if (!IsValidItem(item)) return;
  HTREEITEM at = item;
  while (at) {
    HTREEITEM const child = GetChildItem(at);
    if (child) Expand(at, code);
    if (child) {
      at = child;
      continue;
    }
    while (at && at != item && !GetNextSiblingItem(at)) at = GetParentItem(at);
    at = (at && at != item) ? GetNextSiblingItem(at) : TVI_NULL;
  }
}

void VxTreeCtrl::ExpandAll(UINT code) {
  SetRedraw(0);
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    ExpandBranch(root, code);
  SetRedraw(1);
  if (HTREEITEM const caret = GetSelectedItem()) EnsureVisible(caret);
  Invalidate();
}

// --- Items ---------------------------------------------------------------------

HTREEITEM VxTreeCtrl::CopyItem(HTREEITEM item, HTREEITEM parent, HTREEITEM insertAfter) {
  if (!IsValidItem(item)) return TVI_NULL;
  SetRedraw(0);
  int image = 0;
  int selectedImage = 0;
  GetItemImage(item, image, selectedImage);
  HTREEITEM const copy = InsertItem(GetItemText(item), image, selectedImage, parent, insertAfter);
  if (copy) {
    SetItemData(copy, GetItemData(item));
    SetItemState(copy, GetItemState(item, TVIS_STATEIMAGEMASK), TVIS_STATEIMAGEMASK);
    auto const entry = mDisplay.find(item);
    if (entry != mDisplay.end()) {
      ItemDisplayInfo const info = entry->second;
      mDisplay[copy] = info;
    }
    if (GetItemBold(item)) SetItemBold(copy, 1);
    OnItemCopied(item, copy);
  }
  SetRedraw(1);
  Invalidate();
  return copy;
}

HTREEITEM VxTreeCtrl::CopyBranch(HTREEITEM item, HTREEITEM parent, HTREEITEM insertAfter) {
  HTREEITEM const top = CopyItem(item, parent, insertAfter);
  if (!top) return top;
  // Pairs of (source, its copy) whose children still wait. A copy into the
  // branch itself is not walked again: its children are copied before it
  // gets any.
  std::vector<std::pair<HTREEITEM, HTREEITEM>> pending{{item, top}};
  while (!pending.empty()) {
    auto const [source, copy] = pending.back();
    pending.pop_back();
    std::vector<HTREEITEM> children;
    for (HTREEITEM child = GetChildItem(source); child; child = GetNextSiblingItem(child))
      if (child != top) children.push_back(child);
    for (HTREEITEM child : children) {
      HTREEITEM const childCopy = CopyItem(child, copy, TVI_LAST);
      if (childCopy) pending.emplace_back(child, childCopy);
    }
  }
  return top;
}

void VxTreeCtrl::DeleteSelectedItems(bool ask) {
  HTREEITEM const first = GetFirstSelectedItem();
  if (ask) Invalidate();
  if (first && ask) {
    std::string const question =
        boost::locale::translate("Are you sure that you want to delete the selected items?").str();
    if (AfxMessageBox(wxString::FromUTF8(question), MB_YESNO | MB_ICONQUESTION) != IDYES) return;
  }
  for (HTREEITEM at = first; at; at = GetNextSelectedItem(at)) DeleteItemData(at);
  HTREEITEM at = GetFirstSelectedItem();
  while (at) {
    // The next one first: a deleted item's handle leads nowhere. An item
    // inside a deleted branch goes with it.
    HTREEITEM next = GetNextSelectedItem(at);
    for (HTREEITEM up = GetParentItem(next); next && up; up = GetParentItem(up))
      if (up == at) {
        next = GetNextSelectedItem(next);
        up = next;
        if (!up) break;
      }
    DeleteItem(at);
    at = IsValidItem(next) ? next : TVI_NULL;
  }
  SetFocus();
  if (ask) Invalidate();
}

void VxTreeCtrl::SetItemFont(HTREEITEM item, LOGFONTW const & font) {
  if (!IsValidItem(item)) return;
  mDisplay[item].font = font;
  Invalidate();
}

void VxTreeCtrl::SetItemBold(HTREEITEM item, int bold) {
  SetItemState(item, bold != 0 ? TVIS_BOLD : 0, TVIS_BOLD);
}

void VxTreeCtrl::SetItemColor(HTREEITEM item, COLORREF color) {
  if (!IsValidItem(item)) return;
  mDisplay[item].color = color;
  Invalidate();
}

BOOL VxTreeCtrl::GetItemFont(HTREEITEM item, LOGFONTW * font) const {
  auto const entry = mDisplay.find(item);
  if (entry == mDisplay.end() || entry->second.font.lfFaceName[0] == L'\0') return 0;
  if (font != nullptr) *font = entry->second.font;
  return 1;
}

BOOL VxTreeCtrl::GetItemBold(HTREEITEM item) const {
  return IsValidItem(item) && GetItemState(item, TVIS_BOLD) != 0 ? 1 : 0;
}

COLORREF VxTreeCtrl::GetItemColor(HTREEITEM item) const {
  auto const entry = mDisplay.find(item);
  return entry == mDisplay.end() ? kDefaultColor : entry->second.color;
}

void VxTreeCtrl::CopySelection() {
  if (mCopiedCallback) mCopiedCallback();
}

// --- Search and text form -----------------------------------------------------------

namespace {

bool IsWordCharacter(wchar_t c) { return c == L'_' || u_isalpha(UChar32(c)) != 0; }

std::wstring Folded(wxString const & text) {
  std::wstring out = text.ToStdWstring();
  for (wchar_t & c : out) c = wchar_t(vx3::FoldCaseSimple(char32_t(c)));
  return out;
}

bool Contains(std::wstring const & haystack, std::wstring const & needle, bool wholeWord) {
  for (size_t at = haystack.find(needle); at != std::wstring::npos;
       at = haystack.find(needle, at + 1)) {
    if (!wholeWord) return true;
    size_t const end = at + needle.size();
    bool const startsWord = at == 0 || !IsWordCharacter(haystack[at - 1]);
    bool const endsWord = end >= haystack.size() || !IsWordCharacter(haystack[end]);
    if (startsWord && endsWord) return true;
  }
  return false;
}

}  // namespace

HTREEITEM VxTreeCtrl::FindItem(wchar_t const * text, bool caseSensitive, bool down, bool wholeWord,
                               HTREEITEM start) {
  if (text == nullptr || *text == L'\0') return TVI_NULL;
  if (!start) start = GetSelectedItem();
  if (!IsValidItem(start)) return TVI_NULL;
  std::wstring const needle = caseSensitive ? std::wstring(text) : Folded(text);
  HTREEITEM at = start;
  do {
    wxString const itemText = GetItemText(at);
    std::wstring const haystack = caseSensitive ? itemText.ToStdWstring() : Folded(itemText);
    if (Contains(haystack, needle, wholeWord) && IsFindValid(at)) return at;
    at = down ? GetNextItem(at) : GetPrevItem(at);
    if (!at) at = down ? GetRootItem() : GetLastItem(TVI_NULL);
  } while (at && at != start);
  return TVI_NULL;
}

void VxTreeCtrl::Serialize(std::ostream & out) {
  TreeWalk walk(*this);
  WriteTreeText(walk, out);
}

void VxTreeCtrl::Serialize(std::istream & in) {
  TreeBuilder builder(*this);
  SetRedraw(0);
  try {
    ReadTreeText(in, builder);
  } catch (...) {
    SetRedraw(1);
    throw;
  }
  SetRedraw(1);
  Invalidate();
}

// --- Background picture ---------------------------------------------------------------

BOOL VxTreeCtrl::SetBkImage(wxBitmap const & bitmap) {
  mBkImage = wxBitmap();
  // A picture too large to tile sensibly is as bad as none.
  if (bitmap.IsOk() && bitmap.GetWidth() > 0 && bitmap.GetHeight() > 0 &&
      bitmap.GetWidth() <= 8192 && bitmap.GetHeight() <= 8192)
    mBkImage = bitmap;
  Invalidate();
  return mBkImage.IsOk() ? 1 : 0;
}

BOOL VxTreeCtrl::SetBkImage(wchar_t const * name) {
  mBkImage = wxBitmap();
  if (name == nullptr || !wxFileName::FileExists(name)) return SetBkImage(wxBitmap());
  wxLogNull quiet;  // a damaged file answers 0, not a log window
  wxImage image;
  if (!image.LoadFile(wxString(name))) return SetBkImage(wxBitmap());
  return SetBkImage(wxBitmap(image));
}

BOOL VxTreeCtrl::SetBkImage(UINT resourceId) {
  wxLogNull quiet;
  return SetBkImage(LoadResourceBitmap(resourceId));
}

// --- Drag and drop ------------------------------------------------------------------

HTREEITEM VxTreeCtrl::GetDropTarget(HTREEITEM item, bool & /*asChild*/) {
  if (!IsValidItem(item) || !IsValidItem(mDragItem)) return TVI_NULL;
  if (item == mDragItem || item == GetParentItem(mDragItem)) return TVI_NULL;
  for (HTREEITEM up = GetParentItem(item); up; up = GetParentItem(up))
    if (up == mDragItem) return TVI_NULL;
  return item;
}

wxImageList * VxTreeCtrl::CreateDragImageEx(HTREEITEM item) {
  if (GetImageList(TVSIL_NORMAL) != nullptr) return CreateDragImage(item);
  RECT rect{};
  if (!GetItemRect(item, &rect, 1)) return nullptr;
  wxSize const size(std::max(1, int(rect.right - rect.left)),
                    std::max(1, int(rect.bottom - rect.top)));
  wxBitmap bitmap(size);
  {
    wxMemoryDC dc(bitmap);
    dc.SetBackground(wxBrush(wxColour(0, 255, 0)));
    dc.Clear();
    dc.SetFont(GetFont());
    dc.SetTextForeground(GetSysColour(COLOR_BTNTEXT));
    dc.DrawText(GetItemText(item), 2, 1);
  }
  auto * images = new wxImageList(size.x, size.y, true, 1);
  images->Add(bitmap, wxColour(0, 255, 0));
  return images;
}

void VxTreeCtrl::BeginDrag(NMTREEVIEWW const & info) {
  SetRedraw(1);
  mDragItem = info.itemNew.hItem;
  mDropTarget = TVI_NULL;
  if (GetSelectedItemCount() > 1) {
    ClearSelection();
    Select(mDragItem, TVGN_CARET);
    SetSelected(mDragItem, true);
    Invalidate();
  }
  if (!IsValidItem(mDragItem) || !IsDropSource(mDragItem)) {
    mDragItem = TVI_NULL;
    return;
  }
  mDragImage.reset(CreateDragImageEx(mDragItem));
  mDragging = true;
  RECT rect{};
  GetItemRect(mDragItem, &rect, 1);
  mDragHotSpot = wxPoint(info.ptDrag.x - rect.left, info.ptDrag.y - rect.top);
  if (mDragImage && mDragImage->GetImageCount() > 0) {
    mDragWindow = new TreeDragImageWindow(this, mDragImage->GetBitmap(0));
    MoveDragImage(info.ptDrag);
    mDragWindow->Show();
  }
  if (!HasCapture()) CaptureMouse();
  RefreshDragCursor();
}

void VxTreeCtrl::MoveDragImage(POINT client) {
  if (mDragWindow == nullptr) return;
  // Offset from the pointer so that the picture never takes the pointer's
  // events away from the tree.
  wxPoint const screen = ClientToScreen(wxPoint(client.x, client.y));
  mDragWindow->Move(screen - mDragHotSpot + wxPoint(8, 8));
}

void VxTreeCtrl::RefreshDragCursor() {
  if (!mDragging) return;
  if (!mDropTarget)
    mDragCursor = DragCursor::NoDrop;
  else
    mDragCursor = KeyDown(WXK_CONTROL) ? DragCursor::Copy : DragCursor::Move;
  SetCursor(mDragCursor == DragCursor::NoDrop ? mNoDropCursor
            : mDragCursor == DragCursor::Copy ? mCopyCursor
                                              : mMoveCursor);
}

void VxTreeCtrl::SetDropTargetFromHit(HTREEITEM hit, bool hitNowhere) {
  if (hitNowhere || !hit) {
    if (mDropTarget) {
      SelectDropTarget(TVI_NULL);
      SetInsertMark(TVI_NULL);
      mDropTarget = TVI_NULL;
      Invalidate();
    }
    return;
  }
  bool asChild = false;
  HTREEITEM const target = GetDropTarget(hit, asChild);
  if (target == mDropTarget) return;
  if (target && asChild) {
    SetInsertMark(TVI_NULL);
    SelectDropTarget(target);
  } else {
    SelectDropTarget(TVI_NULL);
    SetInsertMark(target, 1);
  }
  mDropTarget = target;
  Invalidate();
}

void VxTreeCtrl::UpdateDropTarget(POINT point) {
  if (!mDragging) return;
  if (!IsValidItem(mDragItem)) {
    CancelDrag();
    return;
  }
  UINT flags = 0;
  HTREEITEM const hit = HitTest(point, &flags);
  SetDropTargetFromHit(hit, (flags & TVHT_NOWHERE) != 0);
  RefreshDragCursor();
}

void VxTreeCtrl::EndDrag() {
  mDragging = false;
  mDragCursor = DragCursor::None;
  if (mDragWindow != nullptr) mDragWindow->Destroy();
  mDragWindow = nullptr;
  mDragImage.reset();
  if (HasCapture()) ReleaseMouse();
  SetCursor(wxNullCursor);
}

void VxTreeCtrl::CancelDrag() {
  if (!mDragging) return;
  EndDrag();
  SelectDropTarget(TVI_NULL);
  SetInsertMark(TVI_NULL);
  mDropTarget = TVI_NULL;
  mDragItem = TVI_NULL;
  Invalidate();
}

void VxTreeCtrl::OnNotifyReflect(NotifyEvent & event) {
  event.Skip();  // the parent hears of everything too
  UINT const code = event.GetCode();
  if (code == TVN_DELETEITEMW) {
    HTREEITEM const item = event.GetNotification<NMTREEVIEWW>()->itemOld.hItem;
    mDisplay.erase(item);
    if (item == mAnchor) mAnchor = TVI_NULL;
    if (mDragging && (item == mDragItem || item == mDropTarget)) {
      // A drag that loses its item or target goes on without it.
      if (item == mDragItem)
        CancelDrag();
      else
        mDropTarget = TVI_NULL;
    }
  } else if (code == TVN_BEGINDRAGW) {
    BeginDrag(*event.GetNotification<NMTREEVIEWW>());
  } else if (code == TVN_ITEMEXPANDINGW && mBkImage.IsOk()) {
    Invalidate();
  }
}

// --- Input -----------------------------------------------------------------------------

void VxTreeCtrl::OnLButtonDown(UINT flags, POINT point) {
  SetRedraw(1);
  Invalidate();
  UINT hitFlags = 0;
  HTREEITEM const item = HitTest(point, &hitFlags);

  if (mSelectionState == SingleSelection) {
    if (item && IsOnItem(hitFlags)) Select(item, TVGN_CARET);
    if (item && (hitFlags & TVHT_ONITEMSTATEICON) != 0 && (GetStyle() & TVS_CHECKBOXES) != 0) {
      SetCheck(item, ToggleCheck);
      return;
    }
    CTreeCtrl::OnLButtonDown(flags, point);
    OnSelectionChanged();
    return;
  }

  SetRedraw(0);
  if (mSelectionState == LeafPerParentSelection) {
    if (item) {
      bool const leaf = !GetChildItem(item);
      if (leaf) {
        HTREEITEM const parent = GetParentItem(item);
        for (HTREEITEM sibling = parent ? GetChildItem(parent) : GetRootItem(); sibling;
             sibling = GetNextSiblingItem(sibling))
          SetSelected(sibling, false);
      }
      CTreeCtrl::OnLButtonDown(flags, point);
      if (HTREEITEM const root = GetNextItem(TVI_NULL)) SetSelected(root, false);
      if (IsValidItem(item)) SetSelected(item, leaf);
      mAnchor = TVI_NULL;
    }
  } else if ((flags & MK_CONTROL) != 0 && item) {
    bool const wasSelected = IsSelected(item);
    HTREEITEM const caret = GetSelectedItem();
    bool const caretWasSelected = caret && IsSelected(caret);
    CTreeCtrl::OnLButtonDown(flags, point);
    if (IsValidItem(item)) SetSelected(item, !wasSelected);
    if (caret && caret != item && IsValidItem(caret)) SetSelected(caret, caretWasSelected);
    mAnchor = TVI_NULL;
  } else if ((flags & MK_SHIFT) != 0) {
    if (!mAnchor) mAnchor = GetSelectedItem();
    if (item && GetSelectedItem() == item) Select(TVI_NULL, TVGN_CARET);
    CTreeCtrl::OnLButtonDown(flags, point);
    if (mAnchor && item) SelectItems(mAnchor, item);
  } else {
    ClearSelection();
    mAnchor = TVI_NULL;
    mDragItem = TVI_NULL;
    CTreeCtrl::OnLButtonDown(flags, point);
    if (item && IsOnItem(hitFlags) && IsValidItem(item)) {
      HTREEITEM const chosen = IsValidItem(mDragItem) ? mDragItem : item;
      SetSelected(chosen, true);
      Select(chosen, TVGN_CARET);
    }
  }
  SetRedraw(1);
  Invalidate();
  OnSelectionChanged();
}

void VxTreeCtrl::OnLButtonUp(UINT flags, POINT point) {
  CTreeCtrl::OnLButtonUp(flags, point);
  if (!mDragging) return;
  EndDrag();
  HTREEITEM const dragItem = mDragItem;
  mDragItem = TVI_NULL;
  bool asChild = false;
  HTREEITEM target = TVI_NULL;
  if (IsValidItem(dragItem) && IsValidItem(mDropTarget)) {
    mDragItem = dragItem;  // the default target rules look at it
    target = GetDropTarget(mDropTarget, asChild);
    mDragItem = TVI_NULL;
  }
  SelectDropTarget(TVI_NULL);
  SetInsertMark(TVI_NULL);
  mDropTarget = TVI_NULL;
  if (!target || !IsValidItem(dragItem)) {
    Invalidate();
    return;
  }
  HTREEITEM parent = TVI_NULL;
  HTREEITEM after = TVI_LAST;
  if (asChild) {
    Expand(target, TVE_EXPAND);
    EnsureVisible(target);
    parent = target;
  } else {
    parent = GetParentItem(target);
    after = target;
  }
  HTREEITEM const copy = CopyBranch(dragItem, parent ? parent : TVI_ROOT, after);
  // The release event holds the keys of its moment; by the time it is read
  // Ctrl may be up already, so either one asking for a copy counts.
  bool const copying = (flags & MK_CONTROL) != 0 || KeyDown(WXK_CONTROL);
  if (!copying) DeleteItem(dragItem);
  if (copy) {
    ClearSelection();
    Select(copy, TVGN_CARET);
    SetSelected(copy, true);
  }
  Invalidate();
  OnSelectionChanged();
}

void VxTreeCtrl::OnRButtonDown(UINT flags, POINT point) {
  UINT hitFlags = 0;
  HTREEITEM const item = HitTest(point, &hitFlags);
  if (item && !IsSelected(item) && mSelectionState != LeafPerParentSelection) {
    if (mSelectionState == MultipleSelection) ClearSelection();
    mAnchor = TVI_NULL;
    Select(item, TVGN_CARET);
    SetSelected(item, true);
  }
  CTreeCtrl::OnRButtonDown(flags, point);
  if (wxWindow * parent = GetParent()) {
    // The parent hears of the press (the original sent it WM_RBUTTONDOWN
    // without arguments).
    wxMouseEvent press(wxEVT_RIGHT_DOWN);
    press.SetEventObject(this);
    press.SetId(GetId());
    parent->GetEventHandler()->ProcessEvent(press);
  }
}

void VxTreeCtrl::OnMouseMove(UINT flags, POINT point) {
  KillTimer(kHoverTimer);
  SetTimer(kHoverTimer, kHoverDelay);
  mHoverTimer = kHoverTimer;
  mHoverPoint = point;
  if (mDragging) {
    MoveDragImage(point);
    UpdateDropTarget(point);
  }
  CTreeCtrl::OnMouseMove(flags, point);
}

void VxTreeCtrl::OnTimer(UINT_PTR id) {
  if (id != kHoverTimer) {
    CTreeCtrl::OnTimer(id);
    return;
  }
  KillTimer(kHoverTimer);
  mHoverTimer = 0;
  if (!mDragging) return;
  UINT flags = 0;
  HTREEITEM const item = HitTest(mHoverPoint, &flags);
  if (item && GetChildItem(item) && GetItemState(item, TVIS_EXPANDED) == 0)
    Expand(item, TVE_EXPAND);
  UpdateDropTarget(mHoverPoint);
}

void VxTreeCtrl::OnKeyDown(UINT key, UINT repeatCount, UINT flags) {
  bool const control = KeyDown(WXK_CONTROL);
  if (key == VK_SPACE && (GetStyle() & TVS_CHECKBOXES) != 0) {
    SetCheck(GetSelectedItem(), ToggleCheck);
  } else if (key == VK_ESCAPE && mDragging) {
    CancelDrag();
  } else if (key == VK_DELETE && mDeleteEnabled) {
    DeleteSelectedItems(true);
  } else if ((key == VK_UP || key == VK_DOWN) && KeyDown(WXK_SHIFT)) {
    if (!mAnchor) mAnchor = GetSelectedItem();
    CTreeCtrl::OnKeyDown(key, repeatCount, flags);
    HTREEITEM const caret = GetSelectedItem();
    if (mAnchor && caret) {
      Select(TVI_NULL, TVGN_CARET);
      SelectItems(mAnchor, caret);
    }
    OnSelectionChanged();
  } else if (key == VK_UP || key == VK_DOWN) {
    if (mDragging) ClearSelection();
    mAnchor = TVI_NULL;
    CTreeCtrl::OnKeyDown(key, repeatCount, flags);
    OnSelectionChanged();
  } else if (control && (key == 67 || key == 99)) {
    CopySelection();
  } else {
    RefreshDragCursor();
    CTreeCtrl::OnKeyDown(key, repeatCount, flags);
  }
}

void VxTreeCtrl::OnKeyUp(UINT key, UINT repeatCount, UINT flags) {
  RefreshDragCursor();
  CTreeCtrl::OnKeyUp(key, repeatCount, flags);
}

void VxTreeCtrl::OnKillFocus() {
  if (mDragging) {
    EndDrag();
    mDragItem = TVI_NULL;
  }
  CTreeCtrl::OnKillFocus();
}

void VxTreeCtrl::OnHScroll(UINT code, UINT position) {
  if (mBkImage.IsOk()) Invalidate();
  CTreeCtrl::OnHScroll(code, position);
}

void VxTreeCtrl::OnVScroll(UINT code, UINT position) {
  if (mBkImage.IsOk()) Invalidate();
  CTreeCtrl::OnVScroll(code, position);
}

// --- Painting ---------------------------------------------------------------------------

// The rows DrawItemTexts wipes and draws again.
bool VxTreeCtrl::PaintsOwnLabel(HTREEITEM item) const {
  return mDisplay.count(item) != 0 && GetItemState(item, TVIS_SELECTED | TVIS_DROPHILITED) == 0;
}

void VxTreeCtrl::DrawItemTexts(wxDC & dc) {
  if (mDisplay.empty()) return;
  wxColour const window = GetSysColour(COLOR_WINDOW);
  wxColour const windowText = GetSysColour(COLOR_WINDOWTEXT);
  wxBrush const wipe(window);
  wxFont const base = GetFont();
  dc.SetPen(*wxTRANSPARENT_PEN);
  HTREEITEM item = GetFirstVisibleItem();
  for (UINT row = 0; item && row <= GetVisibleCount(); ++row, item = GetNextVisibleItem(item)) {
    auto const entry = mDisplay.find(item);
    if (entry == mDisplay.end() || !PaintsOwnLabel(item)) continue;
    ItemDisplayInfo const & info = entry->second;
    RECT rect{};
    if (!GetItemRect(item, &rect, 1)) continue;
    wxFont const & font = mFontCache.Font(info.font, GetItemState(item, TVIS_BOLD) != 0, base);
    wxRect const textRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
    // Wipe the default text, then draw the item's own.
    dc.SetBrush(wipe);
    dc.DrawRectangle(textRect);
    dc.SetFont(font);
    dc.SetTextForeground(info.color == kDefaultColor ? windowText : FromColorRef(info.color));
    wxString const text = GetItemText(item);
    int const textHeight = mFontCache.TextHeight(dc, font, text);
    DrawTextUnmeasured(dc, text, textRect.x + 2, textRect.y + (textRect.height - textHeight) / 2);
  }
}

void VxTreeCtrl::DrawBackground(wxDC & dc, wxBitmap const & picture, wxRect const & clip) {
  // The tile first, then the tree over it with its window-coloured pixels
  // left out.
  wxBitmap composed(clip.GetSize());
  {
    wxMemoryDC out(composed);
    RECT rootRect{};
    int top = 0;
    if (HTREEITEM const root = GetRootItem(); root && GetItemRect(root, &rootRect, 0))
      top = rootRect.top;
    int const left = -GetScrollPos(SB_HORZ);
    int const w = mBkImage.GetWidth();
    int const h = mBkImage.GetHeight();
    int const startX = left + ((clip.x - left) / w - ((clip.x - left) % w < 0 ? 1 : 0)) * w;
    int const startY = top + ((clip.y - top) / h - ((clip.y - top) % h < 0 ? 1 : 0)) * h;
    for (int y = startY; y < clip.GetBottom() + 1; y += h)
      for (int x = startX; x < clip.GetRight() + 1; x += w)
        out.DrawBitmap(mBkImage, x - clip.x, y - clip.y, false);
    wxBitmap tree = picture.GetSubBitmap(clip);
    tree.SetMask(new wxMask(tree, GetSysColour(COLOR_WINDOW)));
    out.DrawBitmap(tree, 0, 0, true);
  }
  dc.DrawBitmap(composed, clip.x, clip.y, false);
}

void VxTreeCtrl::OnPaint(wxDC & dc, wxRect const & clip) {
  if (!mBkImage.IsOk()) {
    CTreeCtrl::OnPaint(dc, clip);
    DrawItemTexts(dc);
    return;
  }
  wxSize const size = GetClientSize();
  if (size.x <= 0 || size.y <= 0) return;
  wxBitmap picture(size);
  {
    wxMemoryDC memory(picture);
    CTreeCtrl::OnPaint(memory, wxRect(size));
    DrawItemTexts(memory);
  }
  wxRect const area = clip.Intersect(wxRect(size));
  if (!area.IsEmpty()) DrawBackground(dc, picture, area);
}
