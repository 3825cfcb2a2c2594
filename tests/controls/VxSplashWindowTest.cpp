// The splash window on the X server: its outline, place and window-manager
// properties as other programs see them, how it leaves (by its timer or by a
// press) and deletes itself, and what it does with pictures it cannot use.
#include <gtest/gtest.h>

// After gtest: Xlib's macros (None) would break its templates.
#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/display.h>
#include <wx/fontenum.h>
#include <wx/frame.h>
#include <wx/utils.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "controls/VxSplash2013.h"
#include "harness/GuiTestUtilities.h"
#include "utl/VxSystemInfo.h"

namespace {

constexpr COLORREF kMagenta = RGB(255, 0, 255);

// Counts its own deletion, which the window does, never the test.
class Probe : public VxSplash2013 {
public:
  explicit Probe(bool & deleted) : mDeleted(deleted) {}
  std::vector<TextLine> const & Lines() const { return mTextLines; }

protected:
  ~Probe() override { mDeleted = true; }

private:
  bool & mDeleted;
};

// Dark grey inside a magenta frame `border` pixels wide.
wxBitmap FramedPicture(int width, int height, int border) {
  wxImage image(width, height);
  image.SetRGB(wxRect(0, 0, width, height), 255, 0, 255);
  image.SetRGB(wxRect(border, border, width - 2 * border, height - 2 * border), 40, 40, 40);
  return wxBitmap(image);
}

std::string Output(std::string const & command) {
  wxArrayString output;
  wxArrayString errors;
  wxExecute(wxString::FromUTF8(command), output, errors, wxEXEC_SYNC | wxEXEC_NODISABLE);
  std::string text;
  for (wxString const & line : output) text += line.utf8_string() + "\n";
  return text;
}

std::string XId(wxFrame & window) {
  GdkWindow * gdkWindow = gtk_widget_get_window(window.GetHandle());
  return std::to_string(GDK_WINDOW_XID(gdkWindow));
}

// Lets wx delete what was destroyed.
void Idle() {
  gui_test::Flush();
  wxTheApp->ProcessIdle();
  gui_test::Flush();
}

TEST(VxSplashWindow, ShapedWindowAsOtherProgramsSeeIt) {
  bool deleted = false;
  auto * splash = new Probe(deleted);
  ASSERT_EQ(splash->Create(nullptr, 0, VxSplashWindow::kCentreOnScreen), 1);
  ASSERT_EQ(splash->SetBitmap(FramedPicture(200, 120, 10), kMagenta), 1);
  EXPECT_EQ(splash->GetRegion().GetBox(), wxRect(10, 10, 180, 100));
  splash->Show();
  EXPECT_FALSE(splash->IsShowTimerRunning());  // show time 0: up until hidden
  wxFrame & window = *splash->GetWindow();
  ASSERT_TRUE(gui_test::WaitUntil([&window] {
    GdkWindow * mapped = gtk_widget_get_window(window.GetHandle());
    return mapped != nullptr && gdk_window_is_viewable(mapped);
  }));
  gui_test::Flush();

  std::string const id = XId(window);
  std::string const shape = Output("xwininfo -shape -id " + id);
  EXPECT_NE(shape.find("Window shape extents:  180x100+10+10"), std::string::npos) << shape;
  std::string const properties = Output("xprop -id " + id + " WM_CLASS _NET_WM_WINDOW_TYPE");
  EXPECT_NE(properties.find("\"VxSplashScreenClass\""), std::string::npos) << properties;
  EXPECT_NE(properties.find("_NET_WM_WINDOW_TYPE_SPLASH"), std::string::npos) << properties;
  if (gui_test::WindowManagerRunning()) {
    ASSERT_TRUE(gui_test::WaitUntil([&id] {
      std::string const state = Output("xprop -id " + id + " _NET_WM_STATE");
      return state.find("_NET_WM_STATE_ABOVE") != std::string::npos &&
             state.find("_NET_WM_STATE_SKIP_TASKBAR") != std::string::npos;
    })) << Output("xprop -id " + id + " _NET_WM_STATE");
  }
  // It never takes the focus from the application starting behind it.
  EXPECT_FALSE(window.IsActive());

  splash->Hide();
  Idle();
  EXPECT_TRUE(deleted);
}

TEST(VxSplashWindow, PlacesByStyle) {
  wxFrame parent(nullptr, wxID_ANY, "Parent", wxPoint(40, 30), wxSize(400, 300));
  wxRect const screen = wxDisplay().GetGeometry();
  wxRect const around = parent.GetScreenRect();
  struct Case {
    unsigned long style;
    wxPoint position;
  };
  for (Case const & c : std::vector<Case>{
           {0, {0, 0}},
           {VxSplashWindow::kCentreOnScreen,
            {screen.x + (screen.width - 100) / 2, screen.y + (screen.height - 60) / 2}},
           {VxSplashWindow::kCentreOnParent,
            {around.x + (around.width - 100) / 2, around.y + (around.height - 60) / 2}},
           {VxSplashWindow::kCentreOnScreen | VxSplashWindow::kCentreOnParent,
            {screen.x + (screen.width - 100) / 2, screen.y + (screen.height - 60) / 2}},
       }) {
    bool deleted = false;
    auto * splash = new Probe(deleted);
    ASSERT_EQ(splash->Create(&parent, 2000, c.style), 1);
    ASSERT_EQ(splash->SetBitmap(FramedPicture(100, 60, 0), kNoTransparentColor), 1);
    EXPECT_EQ(splash->GetPosition(), c.position) << "style " << c.style;
    splash->Hide();
    Idle();
    EXPECT_TRUE(deleted) << "style " << c.style;
  }
}

TEST(VxSplashWindow, LeavesByTimerOrPress) {
  struct Case {
    char const * name;
    unsigned long style;
    wxEventType event;
    bool swallowed;
  };
  for (Case const & c : std::vector<Case>{
           {"timer", VxSplashWindow::kFadeIn | VxSplashWindow::kFadeOut, wxEVT_NULL, false},
           {"click with the press rule", VxSplashWindow::kHideOnPress, wxEVT_LEFT_DOWN, true},
           {"right click", VxSplashWindow::kHideOnPress, wxEVT_RIGHT_DOWN, true},
           {"key", VxSplashWindow::kHideOnPress, wxEVT_KEY_DOWN, true},
           {"moving the mouse", VxSplashWindow::kHideOnPress, wxEVT_MOTION, false},
           {"click without the press rule", 0, wxEVT_LEFT_DOWN, false},
       }) {
    bool deleted = false;
    auto * splash = new Probe(deleted);
    ASSERT_EQ(splash->Create(nullptr, 2000, c.style), 1);
    ASSERT_EQ(splash->SetBitmap(FramedPicture(80, 40, 4), kMagenta), 1);
    splash->Show();
    EXPECT_TRUE(splash->IsShowTimerRunning()) << c.name;
    if (!splash->GetWindow()->CanSetTransparent()) EXPECT_FALSE(splash->IsFading()) << c.name;
    if (c.event == wxEVT_NULL) {
      splash->OnTimer(VxSplashWindow::kShowTimerId);
    } else if (c.event == wxEVT_KEY_DOWN) {
      wxKeyEvent key(c.event);
      EXPECT_EQ(splash->PreTranslateMessage(key), c.swallowed) << c.name;
    } else {
      wxMouseEvent mouse(c.event);
      EXPECT_EQ(splash->PreTranslateMessage(mouse), c.swallowed) << c.name;
    }
    bool const leaves = c.event == wxEVT_NULL || c.swallowed;
    // Without a compositor a fade out is a plain hide: gone at once.
    if (leaves && splash->GetWindow() != nullptr && splash->GetWindow()->CanSetTransparent())
      ASSERT_TRUE(gui_test::WaitUntil([&deleted] {
        wxTheApp->ProcessIdle();
        return deleted;
      }));
    Idle();
    EXPECT_EQ(deleted, leaves) << c.name;
    if (!deleted) {
      splash->Hide();
      Idle();
    }
  }
}

TEST(VxSplashWindow, UnusablePicturesShowNothing) {
  std::string const folder = getenv("TMPDIR") != nullptr ? getenv("TMPDIR") : "/tmp";
  std::string const notPicture = folder + "/not-a-picture.png";
  std::string const huge = folder + "/huge.png";
  std::ofstream(notPicture) << "just some words, no picture";
  // A valid PNG signature declaring 100000 x 100000 pixels.
  std::ofstream(huge, std::ios::binary)
      << std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16)
      << std::string("\0\x01\x86\xA0\0\x01\x86\xA0\x08\x02\0\0\0", 13);
  bool deleted = false;
  auto * splash = new Probe(deleted);
  ASSERT_EQ(splash->Create(nullptr, 0, 0), 1);
  EXPECT_EQ(splash->Create(nullptr, 0, 0), 0);  // once only
  for (std::string const & path : {notPicture, huge, folder + "/missing.png"}) {
    EXPECT_EQ(splash->SetBitmap(wxString::FromUTF8(path).wc_str(), kMagenta), 0) << path;
    splash->Show();
    gui_test::Flush();
    EXPECT_FALSE(splash->GetWindow()->IsShown()) << path;
  }
  // Every pixel transparent: an empty region would mean no shape at all,
  // so the window stays hidden instead of showing a rectangle.
  EXPECT_EQ(splash->SetBitmap(FramedPicture(50, 50, 25), kMagenta), 1);
  EXPECT_TRUE(splash->GetRegion().IsEmpty());
  splash->Show();
  gui_test::Flush();
  EXPECT_FALSE(splash->GetWindow()->IsShown());
  // No transparent colour leaves the region as it was.
  EXPECT_EQ(splash->SetBitmap(FramedPicture(50, 50, 5), kMagenta), 1);
  wxRect const shaped = splash->GetRegion().GetBox();
  EXPECT_EQ(splash->SetBitmap(FramedPicture(50, 50, 0), kNoTransparentColor), 1);
  EXPECT_EQ(splash->GetRegion().GetBox(), shaped);
  splash->Hide();
  Idle();
  EXPECT_TRUE(deleted);
}

TEST(VxSplash2013, DrawsVersionAndRightsOnThePicture) {
  VxSystemInfo::SetApplication("Splash Probe", "6.3.2.1234");
  bool deleted = false;
  auto * splash = new Probe(deleted);
  splash->SetSpecialVersion(L"Beta 2");
  ASSERT_EQ(splash->Create(nullptr, 0, 0), 1);
  wxImage white(400, 250);
  white.SetRGB(wxRect(0, 0, 400, 250), 255, 255, 255);
  ASSERT_EQ(splash->SetBitmap(wxBitmap(white), kNoTransparentColor), 1);
  ASSERT_GE(splash->Lines().size(), 3U);
  EXPECT_EQ(splash->Lines()[0].text, L"Splash Probe");
  EXPECT_EQ(splash->Lines()[1].text, L"Version 6.3.2 Beta 2");
  for (auto const & line : splash->Lines()) {
    EXPECT_TRUE(wxRect(0, 0, 400, 250).Contains(line.rect)) << line.text;
    ASSERT_NE(line.font, nullptr);
    EXPECT_TRUE(line.font->IsOk());
  }
  EXPECT_EQ(splash->Lines()[0].font->GetWeight(), wxFONTWEIGHT_BOLD);
  EXPECT_LT(splash->Lines().back().font->GetPointSize(), splash->Lines()[1].font->GetPointSize());

  // Text is drawn inside each line's rectangle and nowhere else.
  wxBitmap canvas(400, 250);
  {
    wxMemoryDC dc(canvas);
    splash->DrawWindow(dc);
  }
  wxImage const drawn = canvas.ConvertToImage();
  auto inked = [&drawn](wxRect const & rect) {
    for (int y = rect.y; y < rect.GetBottom(); ++y)
      for (int x = rect.x; x < rect.GetRight(); ++x)
        if (drawn.GetRed(x, y) < 200) return true;
    return false;
  };
  for (auto const & line : splash->Lines()) EXPECT_TRUE(inked(line.rect)) << line.text;
  EXPECT_FALSE(inked(wxRect(0, 0, 400, 100)));
  splash->Hide();
  Idle();
  EXPECT_TRUE(deleted);
}

// The quick question agrees with the list of every family, for families
// the system has, stand-ins (fontconfig draws "Arial" with another family
// where it is missing) and names of nothing. The generic names the list
// also holds ("Sans") name no font.
TEST(Splash2013, HasFaceAgreesWithTheListOfFamilies) {
  wxArrayString const families = wxFontEnumerator::GetFacenames();
  for (char const * face : {"DejaVu Sans", "dejavu sans", "Liberation Sans", "Arial", "Segoe UI",
                            "No Such Face 17", ""}) {
    wxString const name = wxString::FromUTF8(face);
    bool const listed = std::any_of(families.begin(), families.end(),
                                    [&name](wxString const & f) { return f.CmpNoCase(name) == 0; });
    EXPECT_EQ(VxSplash2013::HasFace(name), listed) << face;
  }
  EXPECT_FALSE(VxSplash2013::HasFace("Sans"));
}

}  // namespace
