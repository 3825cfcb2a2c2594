#pragma once
// A frame holding a list, and a recorder of every notification the list's
// parent hears, as "CODE item" strings (e.g. "CHANGED 3 +sel").

#include <wx/frame.h>
#include <wx/panel.h>

#include <string>
#include <vector>

#include "platform/commctrl/CListCtrl.h"

struct ListFixture {
  ListFixture(DWORD style = LVS_REPORT | LVS_SHOWSELALWAYS, wxSize size = wxSize(400, 300)) {
    frame = new wxFrame(nullptr, wxID_ANY, "list", wxPoint(40, 40), size);
    panel = new wxPanel(frame, wxID_ANY);
    list = new CListCtrl(panel, 1234, wxPoint(0, 0), size - wxSize(20, 40), style);
    panel->Bind(VX_EVT_NOTIFY, [this](NotifyEvent & event) { Record(event); });
  }
  ~ListFixture() { frame->Destroy(); }
  ListFixture(ListFixture const &) = delete;
  ListFixture & operator=(ListFixture const &) = delete;

  static std::string StateText(UINT newState, UINT oldState) {
    std::string text;
    UINT const changed = newState ^ oldState;
    if ((changed & LVIS_SELECTED) != 0) text += (newState & LVIS_SELECTED) != 0 ? " +sel" : " -sel";
    if ((changed & LVIS_FOCUSED) != 0) text += (newState & LVIS_FOCUSED) != 0 ? " +foc" : " -foc";
    if ((changed & LVIS_STATEIMAGEMASK) != 0)
      text += " check" + std::to_string(STATEIMAGEMASKTOINDEX(newState));
    return text;
  }

  void Record(NotifyEvent & event) {
    UINT const code = event.GetCode();
    if (code == LVN_ITEMCHANGED || code == LVN_ITEMCHANGING) {
      auto * info = event.GetNotification<NMLISTVIEW>();
      if (code == LVN_ITEMCHANGING && vetoSelecting == info->iItem &&
          (info->uNewState & LVIS_SELECTED) != 0) {
        event.SetResult(1);
        return;
      }
      if (code == LVN_ITEMCHANGED)
        seen.push_back("CHANGED " + std::to_string(info->iItem) +
                       StateText(info->uNewState, info->uOldState));
    } else if ((code == NM_CLICK || code == NM_DBLCLK || code == NM_RCLICK) &&
               event.GetHeader()->hwndFrom == list) {
      auto * info = event.GetNotification<NMITEMACTIVATE>();
      std::string const name = code == NM_CLICK    ? "CLICK "
                               : code == NM_DBLCLK ? "DBLCLK "
                                                   : "RCLICK ";
      seen.push_back(name + std::to_string(info->iItem) + "," + std::to_string(info->iSubItem));
    } else if (code == LVN_INSERTITEM) {
      seen.push_back("INSERT " + std::to_string(event.GetNotification<NMLISTVIEW>()->iItem));
    } else if (code == LVN_DELETEITEM) {
      seen.push_back("DELETE " + std::to_string(event.GetNotification<NMLISTVIEW>()->iItem));
    } else if (code == LVN_DELETEALLITEMS) {
      seen.push_back("DELETEALL");
      event.SetResult(quietDeleteAll ? 1 : 0);
    } else if (code == LVN_COLUMNCLICK) {
      seen.push_back("COLUMNCLICK " +
                     std::to_string(event.GetNotification<NMLISTVIEW>()->iSubItem));
    } else if (code == LVN_ITEMACTIVATE) {
      seen.push_back("ACTIVATE " + std::to_string(event.GetNotification<NMITEMACTIVATE>()->iItem));
    } else if (code == LVN_GETDISPINFOW) {
      auto * info = event.GetNotification<NMLVDISPINFOW>();
      if ((info->item.mask & LVIF_TEXT) != 0) {
        display = L"row " + std::to_wstring(info->item.iItem) + L"." +
                  std::to_wstring(info->item.iSubItem);
        info->item.pszText = display.data();  // the owner's own buffer
      }
      if ((info->item.mask & LVIF_STATE) != 0 && checkedOwnerRow == info->item.iItem)
        info->item.state = INDEXTOSTATEIMAGEMASK(2);
    } else if (code == LVN_ODFINDITEMW) {
      auto * info = event.GetNotification<NMLVFINDITEMW>();
      seen.push_back("FIND " + std::to_string(info->iStart) + " " +
                     wxString(info->lvfi.psz).ToStdString());
      event.SetResult(ownerFindAnswer);
    } else if (code == LVN_ENDLABELEDITW) {
      auto * info = event.GetNotification<NMLVDISPINFOW>();
      seen.push_back(info->item.pszText == nullptr
                         ? std::string("ENDEDIT null")
                         : "ENDEDIT " + wxString(info->item.pszText).ToStdString());
      event.SetResult(keepEdit ? 1 : 0);
    } else if (code >= HDN_TRACKW && code <= HDN_FIRST) {
      auto * info = event.GetNotification<NMHEADERW>();
      if (code == HDN_TRACKW) {
        ++tracks;
        event.SetResult(refuseTrackMove ? 1 : 0);
      }
      if (code == HDN_BEGINTRACKW) {
        seen.push_back("BEGINTRACK " + std::to_string(info->iItem));
        event.SetResult(refuseTrack ? 1 : 0);
      } else if (code == HDN_ITEMCHANGINGW && info->pitem != nullptr &&
                 (info->pitem->mask & HDI_WIDTH) != 0 && info->pitem->cxy < minimumWidth) {
        info->pitem->cxy = minimumWidth;  // a floor, as a list with a minimum does
      } else if (code == HDN_ENDTRACKW) {
        seen.push_back("ENDTRACK " + std::to_string(info->iItem) + " " +
                       std::to_string(info->pitem->cxy));
        if (endTrackWidth > 0) info->pitem->cxy = endTrackWidth;
      } else if (code == HDN_ENDDRAG) {
        seen.push_back("ENDDRAG " + std::to_string(info->iItem) + " to " +
                       std::to_string(info->pitem->iOrder));
        event.SetResult(refuseDrop ? 1 : 0);
      } else if (code == HDN_DIVIDERDBLCLICKW) {
        seen.push_back("DIVIDERDBLCLICK " + std::to_string(info->iItem));
      }
    }
  }

  // Adds `rows` rows of `columns` cells "r<row>c<column>".
  void Fill(int rows, int columns) {
    for (int column = 0; column < columns; ++column)
      list->InsertColumn(column, wxString::Format("Column %d", column), LVCFMT_LEFT, 80);
    for (int row = 0; row < rows; ++row) {
      list->InsertItem(row, wxString::Format("r%dc0", row));
      for (int column = 1; column < columns; ++column)
        list->SetItemText(row, column, wxString::Format("r%dc%d", row, column));
    }
    seen.clear();
  }

  std::vector<int> Selected() const {
    std::vector<int> rows;
    for (int row = list->GetNextItem(-1, LVNI_SELECTED); row >= 0;
         row = list->GetNextItem(row, LVNI_SELECTED))
      rows.push_back(row);
    return rows;
  }

  wxFrame * frame = nullptr;
  wxPanel * panel = nullptr;
  CListCtrl * list = nullptr;
  std::vector<std::string> seen;
  std::wstring display;
  int vetoSelecting = -2;
  bool quietDeleteAll = false;
  int checkedOwnerRow = -1;
  LRESULT ownerFindAnswer = -1;
  bool keepEdit = true;
  bool refuseTrack = false;
  int minimumWidth = 0;
  int endTrackWidth = 0;
  int tracks = 0;  // HDN_TRACK heard
  bool refuseDrop = false;
  bool refuseTrackMove = false;
};
