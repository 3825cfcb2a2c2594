#include "controls/VxFindAndSelectEdit.h"

#include <locale>
#include <string>
#include <vector>

#include "platform/commctrl/CListCtrl.h"
#include "utl/VxStdString.h"
#include "utl/WildCardCompare.h"

namespace {

// Writes `text` as UTF-8 into `out`, reusing its storage: the search reads
// every row, and a fresh buffer per row would cost more than the match.
void AssignUtf8(wxString const & text, std::string & out) {
  wchar_t const * const begin = text.wc_str();
  wchar_t const * const end = begin + text.length();
  size_t size = 0;
  for (wchar_t const * at = begin; at != end; ++at) {
    auto const c = static_cast<char32_t>(*at);
    size += c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : c < 0x110000 ? 4 : 0;
  }
  out.resize(size);
  char * put = out.data();
  for (wchar_t const * at = begin; at != end; ++at) {
    auto const c = static_cast<char32_t>(*at);
    if (c < 0x80) {
      *put++ = static_cast<char>(c);
    } else if (c < 0x800) {
      *put++ = static_cast<char>(0xC0 | (c >> 6));
      *put++ = static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      *put++ = static_cast<char>(0xE0 | (c >> 12));
      *put++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      *put++ = static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x110000) {
      *put++ = static_cast<char>(0xF0 | (c >> 18));
      *put++ = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      *put++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      *put++ = static_cast<char>(0x80 | (c & 0x3F));
    }
  }
}

}  // namespace

VxFindAndSelectEdit::VxFindAndSelectEdit(int delay, CListCtrl * list, HowToFind how)
    : VxTimedEdit(delay, kTimerId), mHow(how), mList(list) {}

void VxFindAndSelectEdit::SetFindInColumn(int column, bool searchNow) {
  mColumn = column;
  if (searchNow) SearchNow();
}

void VxFindAndSelectEdit::SetHowToFind(HowToFind how, bool searchNow) {
  mHow = how;
  if (searchNow) SearchNow();
}

void VxFindAndSelectEdit::SearchNow() {
  // Before Create there is no text to search with.
  if (GetHandle() == nullptr) return;
  wxString const text = GetValue();
  EditTriggered(text.wc_str());
}

void VxFindAndSelectEdit::EditTriggered(wchar_t const * text) {
  if (mList == nullptr || text == nullptr || *text == L'\0') return;
  std::string pattern;
  AssignUtf8(wxString(text), pattern);

  int const count = mList->GetItemCount();
  std::vector<int> matches;
  if (!mAddToSelection) {
    bool const redraw = mList->IsRedrawOn();
    mList->SetRedraw(false);
    mList->SetItemState(-1, 0, LVIS_SELECTED);
    mList->SetRedraw(redraw);
  }

  int how = mHow;
  if (how == FindByPattern)
    how = pattern.find_first_of("*?") != std::string::npos ? FindWildCard : FindContains;
  if (how != FindWildCard && how != FindContains && how != FindEquals) return;

  std::locale const locale;
  std::string cell;
  for (int row = 0; row < count; ++row) {
    if (wxString const * stored = mList->FindStoredText(row, mColumn))
      AssignUtf8(*stored, cell);
    else
      AssignUtf8(mList->GetItemText(row, mColumn), cell);
    bool hit = false;
    if (how == FindWildCard)
      hit = VxString::WildCardCompare(pattern.c_str(), cell.c_str(), false);
    else if (how == FindContains)
      hit = VxStdString::ContainsNoCase(cell, pattern, locale);
    else
      hit = VxStdString::CompareNoCase(pattern, cell, locale) == 0;
    if (hit) matches.push_back(row);
  }

  // One repaint for all the changes, not one a row.
  bool const redraw = mList->IsRedrawOn();
  mList->SetRedraw(false);
  for (int const row : matches) mList->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
  mList->SetRedraw(redraw);

  if (!matches.empty() && !mAddToSelection) {
    RECT rect{};
    if (!mList->GetItemRect(0, &rect, LVIR_BOUNDS)) return;
    int const height = rect.bottom - rect.top;
    mList->Scroll(wxSize(0, height * (matches.front() - mList->GetTopIndex())));
  }
}
