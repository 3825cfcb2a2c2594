// The sample's series window, opened from its menu command: the tree list
// comes from the dialog template, heading clicks sort every series' runs in
// natural order both ways, the columns scroll sideways with the header, and
// Ctrl+C gives other programs the selected rows as text and HTML (read back
// with xclip and counted with xmllint).
#include <gtest/gtest.h>

#include <wx/clipbrd.h>
#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/process.h>
#include <wx/scrolbar.h>
#include <wx/stream.h>

#include "MainFrame.h"
#include "SampleCommands.h"
#include "SeriesDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "lists/TreeListGeometry.h"
#include "lists/VxTreeListCtrl.h"
// Last: Xlib's macros clash with names in the headers above.
#include "../platform/commctrl/ListInput.h"

namespace {

// The output of a program run while this process keeps serving the
// clipboard.
std::string RunProgram(wxString const & command) {
  wxProcess process;
  process.Redirect();
  bool ended = false;
  process.Bind(wxEVT_END_PROCESS, [&](wxProcessEvent &) { ended = true; });
  if (wxExecute(command, wxEXEC_ASYNC, &process) <= 0) return "(did not start)";
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

std::string Clipboard(char const * target) {
  return RunProgram(wxString::Format("xclip -o -selection clipboard -t \"%s\"", target));
}

// The runs of the root item `series`, as shown.
std::vector<wxString> Runs(VxTreeListCtrl & list, int series) {
  std::vector<wxString> runs;
  for (HTREEITEM run = list.GetChildItem(list.GetItem(series)); run;
       run = list.GetNextSiblingItem(run))
    runs.push_back(list.GetItemText(run, 0));
  return runs;
}

struct Seen {
  int treeListId = 0;
  std::vector<wxString> descending, ascending;
  bool barShown = false;
  int headerAfterStep = 1;
  int offsetAfterStep = 1;
  std::string targets, text, html;
};

TEST(SeriesDialog, SortsScrollsSidewaysAndCopiesTheSelectedRows) {
  auto * frame = new MainFrame;
  ASSERT_TRUE(gui_test::ShowAndWait(*frame));
  Seen seen;
  ModalDialogScript script;
  script.Act([&](wxDialog & shown) {
    auto & dialog = dynamic_cast<SeriesDialog &>(shown);
    ASSERT_TRUE(gui_test::WaitUntilPlaced(dialog));
    VxTreeListCtrl & list = dialog.GetTreeList();
    seen.treeListId = list.GetId();

    // The sort column starts at 0: the first click turns the order round.
    CNewHeaderCtrl & header = *list.GetHeaderCtrl();
    RECT first{};
    header.GetItemRect(0, &first);
    wxPoint const heading((first.left + first.right) / 2, (first.top + first.bottom) / 2);
    list_input::ClickAt(header, heading);
    gui_test::WaitUntil([&] { return Runs(list, 1).front() == "Run 12"; });
    seen.descending = Runs(list, 1);
    list_input::MoveTo(header, wxPoint(first.right + 20, heading.y));
    list_input::Press(1, true);
    list_input::Press(1, false);
    // Beside it sorts by the next column. The next click waits for that, as
    // a hand does: on a busy display GTK lost a press that came before the
    // header had answered this one.
    EXPECT_TRUE(gui_test::WaitUntil([&] { return header.GetSortColumn() == 1; }));
    list_input::MoveTo(header, heading);
    list_input::ClickAt(header, heading);
    gui_test::WaitUntil([&] { return Runs(list, 1).front() == "Run 1"; });
    seen.ascending = Runs(list, 1);

    seen.barShown = list.GetSideScrollBar()->IsShown();
    list.OnHScroll(SB_LINERIGHT, 0);
    seen.headerAfterStep = list.GetHeaderOffset();
    seen.offsetAfterStep = list.GetTreeCtrl().GetHorizontalOffset();
    gui_test::Snapshot(dialog, "series");

    // Series A and two of its runs, then Ctrl+C in the tree.
    HTREEITEM const seriesA = list.GetItem(1);
    HTREEITEM const run1 = list.GetChildItem(seriesA);
    HTREEITEM const run2 = list.GetNextSiblingItem(run1);
    for (HTREEITEM item : {seriesA, run1, run2})
      list.SetItemState(item, TVIS_SELECTED, TVIS_SELECTED);
    list.GetTreeCtrl().SetFocus();
    gui_test::WaitUntil([&] { return list.GetTreeCtrl().HasFocus(); });
    if (wxTheClipboard->Open()) {
      wxTheClipboard->Clear();
      wxTheClipboard->Close();
    }
    // Ctrl stays down until the tree has read the key, as a hand holds it.
    KeyCode const control = XKeysymToKeycode(list_input::XDisplay(), XK_Control_L);
    XTestFakeKeyEvent(list_input::XDisplay(), control, True, CurrentTime);
    list_input::Key(XK_c);
    gui_test::WaitUntil([] {
      wxClipboardLocker const open;
      return wxTheClipboard->IsSupported(wxDataFormat("text/html"));
    });
    XTestFakeKeyEvent(list_input::XDisplay(), control, False, CurrentTime);
    XSync(list_input::XDisplay(), False);
    seen.targets = Clipboard("TARGETS");
    seen.text = Clipboard("UTF8_STRING");
    seen.html = Clipboard("text/html");
    dialog.EndModal(wxID_CANCEL);
  });
  wxCommandEvent command(wxEVT_MENU, kSeriesCommand);
  command.SetEventObject(frame);
  frame->ProcessWindowEvent(command);
  frame->Destroy();
  ASSERT_EQ(script.Shown().size(), 1u);

  EXPECT_EQ(seen.treeListId, static_cast<int>(SeriesDialog::kTreeList));
  ASSERT_EQ(seen.ascending.size(), 12u);
  EXPECT_EQ(seen.ascending[1], "Run 2");
  EXPECT_EQ(seen.ascending[9], "Run 10");
  EXPECT_EQ(seen.descending, std::vector<wxString>(seen.ascending.rbegin(), seen.ascending.rend()));

  EXPECT_TRUE(seen.barShown);
  EXPECT_EQ(seen.headerAfterStep, -kSidewaysLineStep);
  EXPECT_EQ(seen.offsetAfterStep, -kSidewaysLineStep);

  for (char const * target : {"text/html", "UTF8_STRING"})
    EXPECT_NE(seen.targets.find(target), std::string::npos) << target << " in " << seen.targets;
  // Three rows of six cells, no heading line; the trailing empty cells of
  // the last row are trimmed.
  EXPECT_EQ(seen.text.rfind("Series A: stability\tHPLC 1260\t\t\t\t\r\nRun 1\tHPLC 1260\t", 0), 0u)
      << seen.text;
  EXPECT_EQ(std::count(seen.text.begin(), seen.text.end(), '\n'), 2) << seen.text;
  EXPECT_EQ(seen.text.find("Series / run"), std::string::npos) << seen.text;

  wxString const htmlFile = wxFileName::CreateTempFileName("series");
  {
    wxFFile out(htmlFile, "wb");
    out.Write(seen.html.data(), seen.html.size());
  }
  EXPECT_EQ(wxString(RunProgram("xmllint --html --xpath \"count(//tr)\" " + htmlFile)).Trim(), "3")
      << seen.html;
  wxRemoveFile(htmlFile);
}

}  // namespace
