// The first window of a process, placed before it is shown, as an
// application's main frame is. wx on GTK holds the first show of a process
// back until the window manager has told the size of its decorations; such
// a window came up where the window manager chose, at 0,0, and GTK
// complained about the stale size it was allocated. A binary of its own:
// only the first window of a process meets this.
#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include <gtk/gtk.h>

#include <string>

#include "harness/GuiTestUtilities.h"
#include "settings/RectPrinting.h"
#include "settings/TopLevelWindowPlacement.h"

namespace {

// GTK's criticals and warnings, counted; everything is still printed.
int sGtkComplaints = 0;
std::string sLastComplaint;

GLogWriterOutput CountGtkComplaints(GLogLevelFlags level, GLogField const * fields, gsize count,
                                    gpointer data) {
  if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)) != 0) {
    ++sGtkComplaints;
    for (gsize i = 0; i < count; ++i)
      if (std::string(fields[i].key) == "MESSAGE" && fields[i].length < 0)
        sLastComplaint = static_cast<char const *>(fields[i].value);
  }
  return g_log_writer_default(level, fields, count, data);
}

RECT FrameOnScreen(wxTopLevelWindow const & window) {
  GdkWindow * const gdk = gtk_widget_get_window(window.GetHandle());
  if (gdk == nullptr) return RECT{0, 0, 0, 0};
  GdkRectangle frame{};
  gdk_window_get_frame_extents(gdk, &frame);
  return RECT{frame.x, frame.y, frame.x + frame.width, frame.y + frame.height};
}

TEST(FirstWindow, PlacedBeforeItIsShownItComesUpThereAndGtkHasNothingToSay) {
  g_log_set_writer_func(CountGtkComplaints, nullptr, nullptr);
  ASSERT_TRUE(gui_test::WaitUntil(gui_test::WindowManagerRunning, 30000)) << "no window manager";

  // A main frame: menu bar, status bar, and a page with a scrolled list.
  auto * frame = new wxFrame(nullptr, wxID_ANY, "First");
  auto * menu = new wxMenu;
  menu->Append(wxID_EXIT, "E&xit");
  auto * bar = new wxMenuBar;
  bar->Append(menu, "&File");
  frame->SetMenuBar(bar);
  frame->CreateStatusBar();
  auto * page = new wxPanel(frame);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(new wxListBox(page, wxID_ANY), 1, wxEXPAND | wxALL, 8);
  page->SetSizer(sizer);

  RECT const normal{100, 150, 820, 630};
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  placement.showCmd = SW_SHOWNORMAL;
  placement.ptMinPosition = placement.ptMaxPosition = POINT{-1, -1};
  placement.rcNormalPosition = normal;
  VxSetWindowPlacement(*frame, placement);
  frame->Show();

  // Where the X server has it once the window manager has framed it, and
  // what the placement says then (wx has learned the decorations by now).
  EXPECT_TRUE(gui_test::WaitUntil([&] { return FrameOnScreen(*frame) == normal; }, 10000))
      << "the X server shows it at " << FrameOnScreen(*frame);
  EXPECT_TRUE(gui_test::WaitUntil([&] {
    return VxGetWindowPlacement(*frame).rcNormalPosition == normal;
  })) << VxGetWindowPlacement(*frame).rcNormalPosition;
  EXPECT_EQ(sGtkComplaints, 0) << sLastComplaint;
  frame->Destroy();
  gui_test::Flush();
}

}  // namespace
