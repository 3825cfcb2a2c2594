#pragma once
// A VxListCtrl of rows "Run N" in a shown frame, and the real input that
// reaches it (XTest through wxUIActionSimulator).

#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include <memory>
#include <vector>

#include "harness/GuiTestUtilities.h"
#include "lists/VxListCtrl.h"

struct ListFixture {
  explicit ListFixture(DWORD style = LVS_REPORT, DWORD exStyle = 0) {
    frame = new wxFrame(nullptr, wxID_ANY, "List", wxPoint(50, 50), wxSize(420, 360));
    list = new VxListCtrl(frame, 4711, wxDefaultPosition, wxDefaultSize, style);
    if (exStyle != 0) list->SetExtendedStyle(list->GetExtendedStyle() | exStyle);
    list->AddColumn(L"Run", 120);
    list->AddColumn(L"Result", 120);
  }
  ~ListFixture() { frame->Destroy(); }

  void Fill(std::vector<wxString> const & runs) {
    for (size_t n = 0; n < runs.size(); ++n) {
      int const row = list->AddItem(runs[n].wc_str(), n);
      list->SetItemText(row, 1, "r" + std::to_string(n));
    }
  }
  bool Show() {
    if (!gui_test::ShowAndWait(*frame)) return false;
    list->SetFocus();
    return gui_test::WaitUntil([&] { return list->HasFocus(); });
  }
  std::vector<wxString> Column(int column) const {
    std::vector<wxString> texts;
    texts.reserve(static_cast<size_t>(list->GetItemCount()));
    for (int row = 0; row < list->GetItemCount(); ++row)
      texts.push_back(list->GetItemText(row, column));
    return texts;
  }
  std::vector<int> Selected() const {
    std::vector<int> rows;
    list->GetSelIndexes(rows);
    return rows;
  }
  // The screen point in the middle of a cell.
  wxPoint Cell(int row, int column) const {
    RECT bounds{};
    list->GetItemRect(row, &bounds, LVIR_BOUNDS);
    int x = bounds.left;
    for (int c = 0; c < column; ++c) x += list->GetColumnWidth(c);
    return list->ClientToScreen(
        wxPoint(x + list->GetColumnWidth(column) / 2, (bounds.top + bounds.bottom) / 2));
  }
  void ClickAt(wxPoint const & screen, int modifiers = 0) {
    input.MouseMove(screen);
    gui_test::Flush();
    if ((modifiers & wxMOD_CONTROL) != 0) input.KeyDown(WXK_CONTROL);
    input.MouseClick();
    if ((modifiers & wxMOD_CONTROL) != 0) input.KeyUp(WXK_CONTROL);
    gui_test::Flush();
  }
  void Key(int key, int modifiers = 0) {
    input.Char(key, modifiers);
    gui_test::Flush();
  }

  wxFrame * frame = nullptr;
  VxListCtrl * list = nullptr;
  wxUIActionSimulator input;
};
