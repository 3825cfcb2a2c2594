#include "lists/CInPlaceEdit.h"

#include <algorithm>

#include <wx/app.h>
#include <wx/dcclient.h>

#include "lists/InPlaceEditMoves.h"
#include "lists/VxListCtrl.h"

CInPlaceEdit::CInPlaceEdit(VxListCtrl * list, int row, int column, wxString const & text,
                           wxRect const & rect, long align)
    : wxTextCtrl(list, VxListCtrl::kInPlaceEditId, wxEmptyString, rect.GetPosition(),
                 rect.GetSize(), align | wxBORDER_SIMPLE | wxTE_PROCESS_ENTER | wxTE_PROCESS_TAB),
      mList(list),
      mRow(row),
      mColumn(column),
      mInitialText(text) {
  // The selection shows only in the edit while it runs.
  mList->ModifyStyle(LVS_SHOWSELALWAYS, 0);
  SetFont(mList->GetFont());
  ChangeValue(text);
  Bind(wxEVT_CHAR_HOOK, &CInPlaceEdit::OnCharHook, this);
  Bind(wxEVT_TEXT, &CInPlaceEdit::OnText, this);
  Bind(wxEVT_KILL_FOCUS, &CInPlaceEdit::OnKillFocus, this);
  // GTK places the caret when the entry is mapped and focused, after this:
  // the text is selected again once all that has been handled.
  Bind(wxEVT_IDLE, &CInPlaceEdit::OnFirstIdle, this);
  SetFocus();
  SelectAll();
  ShowPosition(GetLastPosition());
}

void CInPlaceEdit::Commit() {
  if (mEnded) return;
  mEnded = true;
  wxString text = GetValue();
  text.Trim(true).Trim(false);
  Hide();
  mList->EndCellEdit(*this, text, mCancelled);
  // Commit runs inside the edit's own handlers: the window goes once they
  // have returned (a child's Destroy would delete it at once).
  wxTheApp->ScheduleForDestruction(this);
}

void CInPlaceEdit::Cancel() {
  mCancelled = true;
  Commit();
}

void CInPlaceEdit::OnCharHook(wxKeyEvent & event) {
  int const key = event.GetKeyCode();
  bool const control = event.ControlDown();
  if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
    Commit();
    if (!mList->HasFocus()) mList->SetFocus();
    return;
  }
  if (key == WXK_ESCAPE) {
    Cancel();
    if (!mList->HasFocus()) mList->SetFocus();
    return;
  }
  if (MoveTo(key, event.ShiftDown(), control)) return;
  if (key == WXK_DELETE || key == WXK_NUMPAD_DELETE || control) {
    // The edit handles these itself; no dialog or menu accelerator sees them.
    event.DoAllowNextEvent();
    return;
  }
  event.Skip();
}

bool CInPlaceEdit::MoveTo(int keyCode, bool shift, bool control) {
  EditMoveKey key = EditMoveKey::Other;
  switch (keyCode) {
    case WXK_TAB: key = EditMoveKey::Tab; break;
    case WXK_PAGEUP: key = EditMoveKey::PageUp; break;
    case WXK_PAGEDOWN: key = EditMoveKey::PageDown; break;
    case WXK_HOME: key = EditMoveKey::Home; break;
    case WXK_END: key = EditMoveKey::End; break;
    case WXK_UP: key = EditMoveKey::Up; break;
    case WXK_DOWN: key = EditMoveKey::Down; break;
    default: return false;
  }
  auto const next =
      NextEditCell(key, shift, control, ListCell{mRow, mColumn}, mList->GetItemCount(),
                   mList->GetColumnCount(), std::max(mList->GetCountPerPage(), 1));
  if (!next) return false;
  VxListCtrl * list = mList;
  list->EditSubLabel(next->row, next->column);  // commits this edit first
  return true;
}

void CInPlaceEdit::OnText(wxCommandEvent & event) {
  Grow();
  event.Skip();
}

void CInPlaceEdit::Grow() {
  wxClientDC dc(this);
  dc.SetFont(mList->GetFont());
  int const wanted = dc.GetTextExtent(GetValue()).x + 5;
  wxRect rect = GetRect();
  if (wanted <= rect.width) return;
  int const right = std::min(rect.x + wanted, mList->GetClientSize().x);
  if (right > rect.GetRight() + 1) {
    rect.width = right - rect.x;
    SetSize(rect);
  }
}

void CInPlaceEdit::OnFirstIdle(wxIdleEvent & event) {
  event.Skip();
  if (!HasFocus()) return;
  Unbind(wxEVT_IDLE, &CInPlaceEdit::OnFirstIdle, this);
  SelectAll();
}

void CInPlaceEdit::OnKillFocus(wxFocusEvent & event) {
  event.Skip();
  Commit();
}
