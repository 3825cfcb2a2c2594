#pragma once
// A tree in a frame for the tree view's tests, its handlers reachable, and
// a recorder of the notifications it sends to its parent.

#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/commctrl/CTreeCtrl.h"

class TestTree : public CTreeCtrl {
public:
  using CTreeCtrl::CTreeCtrl;
  using CTreeCtrl::OnChar;
  using CTreeCtrl::OnHScroll;
  using CTreeCtrl::OnKeyDown;
  using CTreeCtrl::OnLButtonDblClk;
  using CTreeCtrl::OnLButtonDown;
  using CTreeCtrl::OnRButtonDown;
  using CTreeCtrl::OnTimer;
  using CTreeCtrl::OnVScroll;

  // With a value, the press "detects" a drag or not without a real pointer.
  int dragAnswer = -1;

protected:
  bool DragDetect(POINT point) override {
    return dragAnswer < 0 ? CTreeCtrl::DragDetect(point) : dragAnswer != 0;
  }
};

struct Notified {
  UINT code = 0;
  HTREEITEM oldItem{};
  HTREEITEM newItem{};
  UINT action = 0;
  bool textNull = false;
  std::wstring text;
};

class TreeFixture : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new wxFrame(nullptr, wxID_ANY, "tree", wxPoint(40, 40), wxSize(320, 260));
    parent = new wxPanel(frame, wxID_ANY);
    tree = new TestTree(parent, 700, TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, wxPoint(0, 0),
                        wxSize(300, 240));
    parent->Bind(VX_EVT_NOTIFY, &TreeFixture::Record, this);
  }
  // A top-level window goes at the next idle time and may still paint: it
  // must not tell this fixture, which goes now.
  void TearDown() override {
    parent->Unbind(VX_EVT_NOTIFY, &TreeFixture::Record, this);
    frame->Destroy();
  }

  void Record(NotifyEvent & event) {
    Notified seen;
    seen.code = event.GetCode();
    if (seen.code == TVN_SELCHANGING || seen.code == TVN_SELCHANGED ||
        seen.code == TVN_ITEMEXPANDING || seen.code == TVN_ITEMEXPANDED ||
        seen.code == TVN_DELETEITEM || seen.code == TVN_BEGINDRAG ||
        seen.code == TVN_SINGLEEXPAND) {
      auto * tv = event.GetNotification<NMTREEVIEWW>();
      seen.oldItem = tv->itemOld.hItem;
      seen.newItem = tv->itemNew.hItem;
      seen.action = tv->action;
    } else if (seen.code == TVN_BEGINLABELEDIT || seen.code == TVN_ENDLABELEDIT) {
      auto * info = event.GetNotification<NMTVDISPINFOW>();
      seen.newItem = info->item.hItem;
      seen.textNull = info->item.pszText == nullptr;
      if (info->item.pszText != nullptr) seen.text = info->item.pszText;
    }
    if (seen.code == NM_CUSTOMDRAW) {
      if (customDraw) event.SetResult(customDraw(*event.GetNotification<NMTVCUSTOMDRAW>()));
      return;
    }
    notified.push_back(seen);
    auto const answer = answers.find(seen.code);
    if (answer != answers.end()) event.SetResult(answer->second);
  }

  std::vector<UINT> Codes() const {
    std::vector<UINT> codes;
    for (auto const & seen : notified) codes.push_back(seen.code);
    return codes;
  }
  std::vector<Notified> Of(UINT code) const {
    std::vector<Notified> found;
    for (auto const & seen : notified)
      if (seen.code == code) found.push_back(seen);
    return found;
  }

  // Children's texts of `item` in order.
  std::vector<wxString> Children(HTREEITEM item) const {
    std::vector<wxString> texts;
    for (HTREEITEM child = tree->GetChildItem(item); child; child = tree->GetNextSiblingItem(child))
      texts.push_back(tree->GetItemText(child));
    return texts;
  }

  // The middle of the item's label, in client coordinates.
  POINT LabelPoint(HTREEITEM item) const {
    RECT rect{};
    EXPECT_TRUE(tree->GetItemRect(item, &rect, 1));
    return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }

  wxFrame * frame = nullptr;
  wxPanel * parent = nullptr;
  TestTree * tree = nullptr;
  std::vector<Notified> notified;
  std::map<UINT, LRESULT> answers;
  std::function<LRESULT(NMTVCUSTOMDRAW &)> customDraw;
};
