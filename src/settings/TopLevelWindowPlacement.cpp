#include "settings/TopLevelWindowPlacement.h"

#include <gtk/gtk.h>
#include <wx/display.h>
#include <wx/toplevel.h>

#include <unordered_map>

#include "settings/PlacementOnScreen.h"

namespace {

// What is known of a tracked window: its normal rectangle, and whether it
// was normal and on screen when last seen.
struct Tracked {
  wxRect normal;
  bool wasNormal = false;
  // Whether `normal` was given by VxSetWindowPlacement or seen on screen;
  // until then the window's own rectangle stands, whatever the program
  // gives it before showing it.
  bool known = false;
  // The window's size less its client size when last seen: decorations,
  // menu bar and status bar.
  wxSize frame;
};

wxSize FrameSize(wxTopLevelWindow const & window) {
  return window.GetSize() - window.GetClientSize();
}

// Windows live on the GUI thread only, so a plain map serves; an entry goes
// when its window is destroyed.
std::unordered_map<wxTopLevelWindow const *, Tracked> & TrackedWindows() {
  static std::unordered_map<wxTopLevelWindow const *, Tracked> windows;
  return windows;
}

bool IsNormal(wxTopLevelWindow const & window) {
  return !window.IsMaximized() && !window.IsIconized() && !window.IsFullScreen();
}

bool IsNormalOnScreen(wxTopLevelWindow const & window) {
  return IsNormal(window) && window.IsShownOnScreen();
}

RECT ToRect(wxRect const & rect) {
  return RECT{rect.GetLeft(), rect.GetTop(), rect.GetLeft() + rect.GetWidth(),
              rect.GetTop() + rect.GetHeight()};
}

wxRect ToWxRect(RECT const & rect) {
  // A placement from outside may be inverted or empty: at least one pixel.
  int const width = rect.right > rect.left ? rect.right - rect.left : 1;
  int const height = rect.bottom > rect.top ? rect.bottom - rect.top : 1;
  return wxRect(rect.left, rect.top, width, height);
}

// Runs once the events of a move or resize have all arrived: the window
// manager reports sizes of a window that is being maximised or minimised
// before it reports the new state, and those must not count as normal.
void Review(wxTopLevelWindow & window) {
  auto const found = TrackedWindows().find(&window);
  if (found == TrackedWindows().end()) return;
  Tracked & tracked = found->second;
  bool const normal = IsNormalOnScreen(window);
  wxSize const frame = FrameSize(window);
  bool const frameChanged = frame != tracked.frame;
  tracked.frame = frame;
  if (normal && !tracked.known) {
    tracked.known = true;
    tracked.normal = window.GetRect();
  } else if (normal && (!tracked.wasNormal || frameChanged)) {
    // Shown or restored: back to the normal rectangle. Until a window has
    // been on screen its decorations are unknown, so one maximised before it
    // was shown would otherwise restore to a size without them; and when wx
    // learns them from a shown window it keeps the client size and grows
    // the window, which is no move of the user's.
    if (window.GetRect() != tracked.normal) window.SetSize(tracked.normal);
  } else if (normal) {
    tracked.normal = window.GetRect();
  }
  tracked.wasNormal = normal;
}

// wx on GTK holds back the first show of a process's first top-level window
// until the window manager has told it the size of its decorations: it
// realizes the window hidden, asks, and shows it when the answer comes. GTK
// then allocates the window at a stale size of a few pixels (a GTK-CRITICAL
// from the menu bar) and the window manager places it itself, wherever the
// program had put it. A window realized before it is shown is shown at
// once, where it was put; wx learns the decorations from it all the same,
// and Review gives it back its normal rectangle once they are known. The
// children are laid out first: realizing allocates them at their sizes.
void ShowWherePut(wxTopLevelWindow & window) {
  if (window.IsShown() || window.GetHandle() == nullptr) return;
  window.Layout();
  gtk_widget_realize(window.GetHandle());
}

}  // namespace

std::vector<RECT> VxGetDisplayWorkAreas() {
  std::vector<RECT> areas;
  for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
    areas.push_back(ToRect(wxDisplay(index).GetClientArea()));
  return areas;
}

void VxTrackWindowPlacement(wxTopLevelWindow & window) {
  auto & windows = TrackedWindows();
  if (windows.count(&window) != 0) return;
  ShowWherePut(window);
  windows[&window] =
      Tracked{window.GetRect(), IsNormalOnScreen(window), window.IsShown(), FrameSize(window)};
  auto const review = [&window](wxEvent & event) {
    event.Skip();
    window.CallAfter([&window] { Review(window); });
  };
  window.Bind(wxEVT_SIZE, review);
  window.Bind(wxEVT_MOVE, review);
  window.Bind(wxEVT_SHOW, review);
  window.Bind(wxEVT_ICONIZE, review);
  window.Bind(wxEVT_MAXIMIZE, review);
  window.Bind(wxEVT_DESTROY, [&window](wxWindowDestroyEvent & event) {
    if (event.GetEventObject() == &window) TrackedWindows().erase(&window);
    event.Skip();
  });
}

WINDOWPLACEMENT VxGetWindowPlacement(wxTopLevelWindow const & window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(WINDOWPLACEMENT);
  placement.ptMinPosition = POINT{-1, -1};
  placement.ptMaxPosition = POINT{-1, -1};
  if (window.IsIconized()) {
    placement.showCmd = SW_SHOWMINIMIZED;
    if (window.IsMaximized()) placement.flags = WPF_RESTORETOMAXIMIZED;
  } else {
    placement.showCmd = window.IsMaximized() ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
  }
  auto const tracked = TrackedWindows().find(&window);
  bool const useTracked = tracked != TrackedWindows().end() && !IsNormalOnScreen(window);
  placement.rcNormalPosition = ToRect(useTracked ? tracked->second.normal : window.GetRect());
  return placement;
}

// Maximises or minimises as `showCmd` says; any other command restores.
void ApplyShowCommand(wxTopLevelWindow & window, UINT showCmd, UINT flags) {
  switch (showCmd) {
    case SW_SHOWMAXIMIZED: window.Maximize(true); break;
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
      // Restored to maximised when the placement says it was maximised before.
      if ((flags & WPF_RESTORETOMAXIMIZED) != 0) window.Maximize(true);
      window.Iconize(true);
      break;
    default: break;
  }
}

void VxSetWindowPlacement(wxTopLevelWindow & window, WINDOWPLACEMENT const & placement) {
  VxTrackWindowPlacement(window);
  wxRect const normal =
      ToWxRect(VxBringOntoWorkArea(placement.rcNormalPosition, VxGetDisplayWorkAreas()));
  if (!IsNormal(window)) {
    window.Iconize(false);
    window.Maximize(false);
  }
  window.SetSize(normal);
  Tracked & tracked = TrackedWindows()[&window];
  tracked.normal = normal;
  tracked.wasNormal = IsNormalOnScreen(window);
  tracked.known = true;
  ApplyShowCommand(window, placement.showCmd, placement.flags);
}
