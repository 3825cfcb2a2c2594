// The family's list through its interface: row and selection operations,
// check boxes, colours, output, kept widths, paint, and the clipboard as
// other programs read it.
#include <gtest/gtest.h>
#include <wx/dcmemory.h>
#include <wx/process.h>
#include <wx/stream.h>
#include <wx/txtstrm.h>

#include "ListTestFixture.h"
#include "frame/AppProfile.h"
#include "lists/ListCtrlWithDisabledItems.h"
#include "platform/SysColor.h"

namespace {

using Texts = std::vector<wxString>;

TEST(VxListCtrlRows, CopyAndMoveRowShiftAsTheyAlwaysDid) {
  struct Case {
    char const * name;
    bool move;
    int from, to;
    bool result;
    Texts expected;
  };
  Case const cases[] = {
      {"copy down", false, 0, 2, true, {"a", "b", "a", "c"}},
      {"copy up: the source moved by the insertion", false, 2, 0, true, {"c", "a", "b", "c"}},
      {"move down", true, 0, 2, true, {"b", "a", "c"}},
      {"move up", true, 2, 0, true, {"c", "a", "b"}},
      {"same row", true, 1, 1, false, {"a", "b", "c"}},
      {"negative", false, -1, 0, false, {"a", "b", "c"}},
  };
  for (Case const & c : cases) {
    ListFixture f(LVS_REPORT, LVS_EX_CHECKBOXES);
    f.Fill({"a", "b", "c"});
    f.list->SetCheck(c.from < 0 ? 0 : c.from, true);
    bool const done = c.move ? f.list->MoveRow(c.from, c.to) : f.list->CopyRow(c.from, c.to);
    EXPECT_EQ(done, c.result) << c.name;
    EXPECT_EQ(f.Column(0), c.expected) << c.name;
    if (c.result) {
      int const copy = c.move && c.from < c.to ? c.to - 1 : c.to;
      EXPECT_TRUE(f.list->GetCheck(copy)) << c.name;  // the check came along
      EXPECT_EQ(f.list->GetItemText(copy, 1), "r" + std::to_string(c.from)) << c.name;
    }
  }
}

TEST(VxListCtrlSelection, SingleAndMultiSelectionRules) {
  for (bool single : {false, true}) {
    SCOPED_TRACE(single ? "single" : "multi");
    ListFixture f(single ? LVS_REPORT | LVS_SINGLESEL : LVS_REPORT);
    f.Fill({"Run 1", "Run 2", "Blank 1", "Run 10", "Blank 2"});
    f.list->SetSelIndex(4);
    f.list->SetSelIndexes({1, 3});
    EXPECT_EQ(f.Selected(), single ? (std::vector<int>{1}) : (std::vector<int>{1, 3}));
    f.list->SelectWithWildcards(L"Blank*", 0, false);
    EXPECT_EQ(f.Selected(), single ? (std::vector<int>{2}) : (std::vector<int>{2, 4}));
    f.list->SelectWithWildcards(L"nothing*", 0, false);
    EXPECT_EQ(f.Selected(), single ? (std::vector<int>{2}) : (std::vector<int>{}));
    f.list->SelectAllItems(true);
    EXPECT_EQ(f.Selected().size(), single ? 1u : 5u);
  }
}

TEST(VxListCtrlSelection, BufferFormsStoreOneMoreThanTheLimitAsTheyAlwaysDid) {
  ListFixture f(LVS_REPORT, LVS_EX_CHECKBOXES);
  f.Fill({"0", "1", "2", "3", "4"});
  f.list->SetSelIndexes({0, 2, 3, 4});
  int rows[8] = {-1, -1, -1, -1, -1, -1, -1, -1};
  EXPECT_EQ(f.list->GetSelIndexes(rows, 2), 3);
  EXPECT_EQ(rows[2], 3);
  EXPECT_EQ(rows[3], -1);
  f.list->SetCheckedIndexes({1, 2, 4}, true);
  uint64_t data[8] = {};
  EXPECT_EQ(f.list->GetCheckedItemData(data, 1), 2);
  EXPECT_EQ(data[0], 1u);
  EXPECT_EQ(data[1], 2u);
  EXPECT_EQ(f.list->GetCheckedItemCount(), 3);
  f.list->CheckAllItems(false);
  EXPECT_EQ(f.list->GetCheckedItemCount(), 0);

  ListFixture plain;
  EXPECT_EQ(plain.list->GetCheckedItemData(data, 4), -1);
  EXPECT_EQ(plain.list->GetCheckedItemCount(), -1);
  ListFixture empty(LVS_REPORT, LVS_EX_CHECKBOXES);
  EXPECT_EQ(empty.list->GetCheckedItemData(data, 4), 0);
}

TEST(VxListCtrlColors, BackgroundRulesOfTheTwoSettersAndTheDisabledState) {
  ListFixture f;
  COLORREF const a = 0x000011, b = 0x002200, c = 0x330000;
  f.list->SetRowColors(a, b, CLR_NONE);
  EXPECT_EQ(f.list->GetBkColor(), b);
  f.list->SetDisabledRowColors(a, CLR_NONE, c);
  f.list->EnableDisabledColors(true);
  f.list->Enable(false);
  EXPECT_EQ(f.list->GetBkColor(), CLR_NONE);
  EXPECT_EQ(f.list->GetTextColor(), a);
  f.list->SetDisabledRowColors(c, b, a);
  EXPECT_EQ(f.list->GetBkColor(), a);
  f.list->Enable(true);
  EXPECT_EQ(f.list->GetBkColor(), b);
  f.list->EnableDisabledColors(false);
  f.list->Enable(false);
  EXPECT_EQ(f.list->GetBkColor(), b);  // without disabled colours the enabled ones stay
}

class ResultList : public VxListCtrl {
public:
  using VxListCtrl::VxListCtrl;
  wxString GetClipboardItemText(int row, int column) const override {
    wxString const shown = VxListCtrl::GetClipboardItemText(row, column);
    return column == 1 ? "=" + shown : shown;
  }
};

TEST(VxListCtrlOutput, RowsAsTextAndHtmlUseTheWrittenCellText) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Output");
  auto * list = new ResultList(frame, wxID_ANY);
  list->AddColumn(L"Run", 80);
  list->AddColumn(L"Result", 80);
  list->AddItem(L"Run 1");
  list->SetItemText(0, 1, "<b>7</b>");
  list->AddItem(L"Run 2");
  EXPECT_EQ(list->ToString(L"Day"),
            "Day\r\n===\r\nRun\tResult\r\n---\t------\r\nRun 1\t=<b>7</b>\r\nRun 2\t=\r\n");
  EXPECT_EQ(list->ToString(std::vector<int>{1}), "Run 2\t=\r\n");
  EXPECT_EQ(list->ToHTML(std::vector<int>{0}),
            "<table><tbody><tr><td>Run 1</td><td>=<b>7</b></td></tr></tbody></table>");
  list->ModifyStyle(0, LVS_NOCOLUMNHEADER);
  EXPECT_EQ(list->ToString(static_cast<wchar_t const *>(nullptr)),
            "Run 1\t=<b>7</b>\r\nRun 2\t=\r\n");
  frame->Destroy();
}

TEST(VxListCtrlWidths, KeptWidthsApplyOnlyToTheSameColumnsAndAreWrittenAtDestruction) {
  struct Case {
    char const * stored;
    int expectedFirst;
  };
  for (Case const & c : {Case{"2,150,90", 150}, Case{"3,150,90,10", 120}, Case{"2,-4,junk", 120},
                         Case{"2,999999,90", 16384}}) {
    SCOPED_TRACE(c.stored);
    ASSERT_TRUE(AppProfile::WriteProfileString("ListColumnWidths", "Runs", c.stored));
    {
      ListFixture f;
      f.list->EnableSaveRestore(L"Runs");
      EXPECT_EQ(f.list->GetColumnWidth(0), c.expectedFirst);
      f.list->SetColumnWidth(1, 77);
    }
    gui_test::Flush();  // the frame goes
    EXPECT_EQ(AppProfile::GetProfileString("ListColumnWidths", "Runs", ""),
              "2," + std::to_string(c.expectedFirst) + ",77");
  }
}

TEST(VxListCtrlWidths, ColumnsFollowTheWindowWidth) {
  ListFixture f;
  ASSERT_TRUE(f.Show());
  f.list->SetColumnWidth(0, 100);
  f.list->SetColumnWidth(1, 100);
  f.list->EnableColumnAutoSize(true, 10);
  int const width = f.list->GetClientSize().x;
  f.frame->SetClientSize(f.frame->GetClientSize() + wxSize(-40, 0));
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetClientSize().x == width - 40; }));
  EXPECT_EQ(f.list->GetColumnWidth(0), 80);
  EXPECT_EQ(f.list->GetColumnWidth(1), 80);
  f.frame->SetClientSize(f.frame->GetClientSize() + wxSize(-4, 0));  // below the threshold
  ASSERT_TRUE(gui_test::WaitUntil([&] { return f.list->GetClientSize().x == width - 44; }));
  EXPECT_EQ(f.list->GetColumnWidth(0), 80);
}

TEST(VxListCtrlRows, PooledTextsLiveUntilTheThirdFollowingCall) {
  ListFixture f;
  wchar_t const * first = f.list->AddPool(L"one");
  wchar_t const * second = f.list->AddPool("zw\xc3\xb6lf");
  f.list->AddPool(L"three");
  EXPECT_EQ(wxString(first), "one");
  EXPECT_EQ(wxString(second), L"zw\u00f6lf");
  f.list->AddPool(L"four");  // takes the first slot again
  EXPECT_EQ(wxString(second), L"zw\u00f6lf");
  EXPECT_EQ(wxString(f.list->AddPool(static_cast<char const *>(nullptr))), "");
}

TEST(VxListCtrlCells, HitTestExFindsRowAndColumnWithTheRightEdgeIncluded) {
  ListFixture f;
  f.Fill({"a", "b", "c"});
  ASSERT_TRUE(f.Show());
  RECT bounds{};
  f.list->GetItemRect(1, &bounds, LVIR_BOUNDS);
  int const y = (bounds.top + bounds.bottom) / 2;
  struct Case {
    int x, row, column;
  };
  for (Case c : {Case{bounds.left + 5, 1, 0}, Case{bounds.left + 120, 1, 0},
                 Case{bounds.left + 121, 1, 1}, Case{bounds.left + 241, -1, 0}}) {
    int column = 9;
    EXPECT_EQ(f.list->HitTestEx(wxPoint(c.x, y), &column), c.row) << c.x;
    EXPECT_EQ(column, c.column) << c.x;
  }
  EXPECT_EQ(f.list->EditSubLabel(7, 0), nullptr);
  EXPECT_EQ(f.list->EditSubLabel(0, 2), nullptr);
  f.list->SetColumnWidth(1, 4);
  EXPECT_EQ(f.list->EditSubLabel(0, 1), nullptr);  // too narrow
}

class RetiredRuns : public ListCtrlWithDisabledItems {
public:
  using ListCtrlWithDisabledItems::ListCtrlWithDisabledItems;
  bool IsItemDisabled(int item) override { return item == 1; }
};

// The colour at a point of the rows as the list paints them.
wxColour PaintedAt(CListCtrl & list, wxPoint const & point) {
  wxBitmap bitmap(list.GetClientSize());
  {
    wxMemoryDC dc(bitmap);
    list.PaintRows(dc, wxRect(list.GetClientSize()));
  }
  wxImage const image = bitmap.ConvertToImage();
  return wxColour(image.GetRed(point.x, point.y), image.GetGreen(point.x, point.y),
                  image.GetBlue(point.x, point.y));
}

TEST(VxListCtrlPaint, DisabledRowsAreStruckOutAndTheOthersNot) {
  wxFrame * frame = new wxFrame(nullptr, wxID_ANY, "Retired", wxDefaultPosition, wxSize(300, 200));
  auto * list = new RetiredRuns(frame, wxID_ANY);
  list->AddColumn(L"Run", 150);
  for (wchar_t const * run : {L"Run 1", L"Run 2", L"Run 3"}) list->AddItem(run);
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  for (int row : {0, 1}) {
    RECT label{};
    list->GetItemRect(row, &label, LVIR_LABEL);
    wxPoint const middle(label.left + 1, (label.top + label.bottom) / 2);
    bool const gray = PaintedAt(*list, middle) == GetSysColour(COLOR_GRAYTEXT);
    EXPECT_EQ(gray, row == 1) << row;
  }
  frame->Destroy();
}

// What another program gets from the clipboard for `target`, read with
// xclip while this process serves the selection.
std::string ReadClipboard(char const * target) {
  wxProcess process;
  process.Redirect();
  bool ended = false;
  process.Bind(wxEVT_END_PROCESS, [&](wxProcessEvent &) { ended = true; });
  wxString const command = wxString::Format("xclip -o -selection clipboard -t \"%s\"", target);
  if (wxExecute(command, wxEXEC_ASYNC, &process) <= 0) return "(xclip did not start)";
  std::string bytes;
  auto drain = [&] {
    wxInputStream * out = process.GetInputStream();
    while (out != nullptr && out->CanRead()) {
      char buffer[4096];
      out->Read(buffer, sizeof buffer);
      bytes.append(buffer, out->LastRead());
      if (out->LastRead() == 0) break;
    }
  };
  gui_test::WaitUntil(
      [&] {
        drain();
        return ended;
      },
      10000);
  drain();
  return bytes;
}

TEST(VxListCtrlClipboard, CopiedRowsReachOtherProgramsAsTextAndHtml) {
  ListFixture f;
  f.Fill({L"Run 1", L"\u00d6lprobe", L"Run 3"});
  f.list->SetItemText(1, 1, "a<b>c");
  f.list->SetSelIndexes({0, 1});
  ASSERT_TRUE(f.Show());
  f.Key('C', wxMOD_CONTROL);

  std::string const targets = ReadClipboard("TARGETS");
  for (char const * target : {"UTF8_STRING", "text/html", "HTML Format"})
    EXPECT_NE(targets.find(target), std::string::npos) << target << " in " << targets;
  EXPECT_EQ(ReadClipboard("UTF8_STRING"), "Run 1\tr0\r\n\xc3\x96lprobe\ta<b>c\r\n");
  std::string const block = ReadClipboard("HTML Format");
  EXPECT_EQ(block.rfind("Version:0.9\nStartHTML:", 0), 0u) << block;
  EXPECT_NE(block.find("<td>\xc3\x96lprobe</td><td>a<b>c</td>"), std::string::npos) << block;
  std::string const html = ReadClipboard("text/html");
  EXPECT_EQ(html.rfind("<html>", 0), 0u) << html;
  EXPECT_EQ(block.substr(block.size() - html.size()), html);

  // Ctrl+Shift+C: every row, with the headings.
  f.Key('C', wxMOD_CONTROL | wxMOD_SHIFT);
  std::string const all = ReadClipboard("UTF8_STRING");
  EXPECT_EQ(all.rfind("Run\tResult\r\n---\t------\r\n", 0), 0u) << all;
  EXPECT_NE(all.find("Run 3\tr2\r\n"), std::string::npos) << all;
}

}  // namespace
