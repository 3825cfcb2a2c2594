#include "controls/VxEdit.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>

#include "platform/SysColor.h"
#include "platform/WindowMessage.h"
#include "utl/CharacterBreaks.h"
#include "utl/VxStdString.h"

namespace {

wxColour ColourOf(COLORREF colour) {
  return wxColour(GetRValue(colour), GetGValue(colour), GetBValue(colour));
}

// The clusters of `text` before code point positions `a` and `b` (a
// cluster cut by the position counts), in one pass over the text up to the
// further one.
void ClustersBefore(wxString const & text, long a, long b, int & clustersA, int & clustersB) {
  long const length = static_cast<long>(text.length());
  a = std::clamp(a, 0L, length);
  b = std::clamp(b, 0L, length);
  long const further = std::max(a, b);
  std::wstring const & wide = text.ToStdWstring();
  icu::UnicodeString const units = icu::UnicodeString::fromUTF32(
      reinterpret_cast<UChar32 const *>(wide.data()), static_cast<int32_t>(further));
  int32_t const unitA = units.moveIndex32(0, static_cast<int32_t>(a));
  int32_t const unitB = units.moveIndex32(0, static_cast<int32_t>(b));
  icu::BreakIterator * const breaks = CharacterBreaks();
  if (breaks == nullptr) {
    clustersA = static_cast<int>(a);
    clustersB = static_cast<int>(b);
    return;
  }
  breaks->setText(units);
  int countA = 0;
  int countB = 0;
  for (int32_t at = breaks->next(); at != icu::BreakIterator::DONE; at = breaks->next()) {
    if (at < unitA) ++countA;
    if (at < unitB) ++countB;
  }
  clustersA = countA + (unitA > 0 ? 1 : 0);
  clustersB = countB + (unitB > 0 ? 1 : 0);
}

}  // namespace

VxEdit::VxEdit(wxWindow * parent, wxWindowID id, wxString const & value, wxPoint const & position,
               wxSize const & size, long style)
    : wxTextCtrl(parent, id, value, position, size, style),
      mBackgroundColour(GetSysColor(COLOR_WINDOW)),
      mTextColour(GetSysColor(COLOR_WINDOWTEXT)),
      mHintColour(GetSysColor(COLOR_GRAYTEXT)),
      mRegularFont(GetFont()) {
  Bind(wxEVT_CHAR, &VxEdit::OnChar, this);
  Bind(wxEVT_SET_FOCUS, &VxEdit::OnSetFocus, this);
  Bind(wxEVT_KILL_FOCUS, &VxEdit::OnKillFocus, this);
  Bind(wxEVT_KEY_DOWN, &VxEdit::OnKeyDown, this);
  Bind(wxEVT_LEFT_DOWN, &VxEdit::OnMouse, this);
  Bind(wxEVT_LEFT_UP, &VxEdit::OnMouse, this);
  Bind(wxEVT_LEFT_DCLICK, &VxEdit::OnMouse, this);
  Bind(wxEVT_MOTION, &VxEdit::OnMouse, this);
}

void VxEdit::SetBackgroundColor(COLORREF colour) {
  mBackgroundColour = colour;
  ApplyColours();
}

void VxEdit::SetTextColor(COLORREF colour) {
  mTextColour = colour;
  ApplyColours();
}

void VxEdit::SetNumeric(int numeric, int allowNegative) {
  mNumeric = numeric;
  mAllowNegative = allowNegative;
}

void VxEdit::SetHintText(wchar_t const * hint) {
  mHint = hint != nullptr ? hint : L"";
  if (!mHint.empty() && wxTextCtrl::GetValue().empty())
    ShowHint(true);
  else if (mHint.empty())
    ShowHint(false);
}

void VxEdit::RemoveHintText() {
  mHint.clear();
  mHintShowing = false;
  SetFont(mRegularFont);
  ApplyColours();
}

wxString VxEdit::GetValue() const { return mHintShowing ? wxString() : wxTextCtrl::GetValue(); }

void VxEdit::ShowHint(bool showing) {
  if (showing) {
    mHintShowing = true;
    ChangeValue(mHint);
    SetFont(mRegularFont.Italic());
  } else {
    mHintShowing = false;
    SetFont(mRegularFont);
  }
  ApplyColours();
}

void VxEdit::ApplyColours() {
  SetBackgroundColour(ColourOf(mBackgroundColour));
  SetForegroundColour(ColourOf(mHintShowing ? mHintColour : mTextColour));
  Refresh();
}

void VxEdit::OnSetFocus(wxFocusEvent & event) {
  if (mHintShowing) {
    wxString const shown = wxTextCtrl::GetValue();
    if (shown == mHint || shown.empty()) ChangeValue(wxString());
  }
  ShowHint(false);
  event.Skip();
}

void VxEdit::OnKillFocus(wxFocusEvent & event) {
  if (wxTextCtrl::GetValue().empty() && !mHint.empty()) ShowHint(true);
  event.Skip();
}

bool VxEdit::AcceptsCharacter(int key) const {
  if (mNumeric == 0) return true;
  if (key == WXK_BACK || (key >= '0' && key <= '9')) return true;
  if (key != '-' || mAllowNegative == 0) return false;
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  // An empty box, the whole text selected, or the caret at the front.
  return wxTextCtrl::GetValue().empty() || from == 0;
}

void VxEdit::OnChar(wxKeyEvent & event) {
  int key = event.GetUnicodeKey();
  if (key == WXK_NONE) key = event.GetKeyCode();
  // Keys without a character (End, arrows, Delete) are the control's.
  bool const special = event.GetUnicodeKey() == WXK_NONE || key == WXK_DELETE;
  if (special || AcceptsCharacter(key)) event.Skip();
}

void VxEdit::OnKeyDown(wxKeyEvent & event) {
  event.Skip();
  CallAfter([this] { NotifySelection(false); });
}

void VxEdit::OnMouse(wxMouseEvent & event) {
  if (event.LeftDown()) {
    // GTK's entry holds its own grab while the button is down.
    mSelecting = true;
  } else if (event.LeftUp()) {
    mSelecting = false;
    CallAfter([this] { NotifySelection(false); });
  } else if (event.LeftDClick()) {
    CallAfter([this] { NotifySelection(true); });
  } else if (event.Dragging() && mSelecting) {
    NotifySelection(false);
  }
  event.Skip();
}

void VxEdit::NotifySelection(bool always) {
  long start = 0;
  long end = 0;
  GetSelection(&start, &end);
  if (!always) {
    if (start == mLastSelectionStart && end == mLastSelectionEnd) return;
    mLastSelectionStart = start;
    mLastSelectionEnd = end;
  }
  wxWindow * const parent = GetParent();
  if (parent == nullptr) return;
  auto const packed = static_cast<std::intptr_t>(((static_cast<uint32_t>(start) & 0xFFFF) << 16) |
                                                 (static_cast<uint32_t>(end) & 0xFFFF));
  WindowMessageEvent notice(kSelectionNotice, reinterpret_cast<std::uintptr_t>(this), packed);
  notice.SetEventObject(this);
  parent->GetEventHandler()->QueueEvent(notice.Clone());
}

void VxEdit::ConvertToGraphemeClusterSel(int start, int end, int & clusterStart,
                                         int & clusterEnd) const {
  ClustersBefore(wxTextCtrl::GetValue(), start, end, clusterStart, clusterEnd);
}

void VxEdit::GetGraphemeClusterSel(int & start, int & end) const {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  ConvertToGraphemeClusterSel(static_cast<int>(from), static_cast<int>(to), start, end);
}

void VxEdit::SetGraphemeClusterSel(int start, int end, int noScroll) {
  if (start < 0) {
    // Deselect and keep the caret (wx's -1, -1 would select all).
    long const caret = GetInsertionPoint();
    SetSelection(caret, caret);
  } else if (start == 0 && end < 0) {
    SelectAll();
  } else {
    std::string const text = wxTextCtrl::GetValue().utf8_string();
    std::locale const locale;
    auto codePoints = [&](int clusters) {
      return static_cast<long>(
          wxString::FromUTF8(
              VxStdString::GraphemeClusterSubString(text, 0, static_cast<size_t>(clusters), locale))
              .length());
    };
    long const from = codePoints(start);
    long const to = end < 0 ? GetLastPosition() : codePoints(end);
    SetSelection(from, to);
  }
  // A single-line GTK entry scrolls to the selection itself, and moving
  // its cursor there would drop the selection.
  if (noScroll == 0 && IsMultiLine()) ShowPosition(GetInsertionPoint());
}
