#include "settings/TopLevelWindowPlacement.h"

#include <wx/display.h>
#include <wx/toplevel.h>

#include <unordered_map>

#include "settings/PlacementOnScreen.h"

namespace {

// The normal rectangle of each tracked window. Windows live on the GUI thread
// only, so a plain map serves; an entry goes when its window is destroyed.
std::unordered_map<wxTopLevelWindow const *, wxRect> & NormalRects() {
  static std::unordered_map<wxTopLevelWindow const *, wxRect> rects;
  return rects;
}

bool IsNormal(wxTopLevelWindow const & window) {
  return !window.IsMaximized() && !window.IsIconized() && !window.IsFullScreen();
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

void RememberIfNormal(wxTopLevelWindow & window) {
  if (IsNormal(window)) NormalRects()[&window] = window.GetRect();
}

}  // namespace

std::vector<RECT> VxGetDisplayWorkAreas() {
  std::vector<RECT> areas;
  for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
    areas.push_back(ToRect(wxDisplay(index).GetClientArea()));
  return areas;
}

void VxTrackWindowPlacement(wxTopLevelWindow & window) {
  auto & rects = NormalRects();
  if (rects.count(&window) != 0) return;
  rects[&window] = window.GetRect();
  window.Bind(wxEVT_SIZE, [&window](wxSizeEvent & event) {
    RememberIfNormal(window);
    event.Skip();
  });
  window.Bind(wxEVT_MOVE, [&window](wxMoveEvent & event) {
    RememberIfNormal(window);
    event.Skip();
  });
  window.Bind(wxEVT_DESTROY, [&window](wxWindowDestroyEvent & event) {
    if (event.GetEventObject() == &window) NormalRects().erase(&window);
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
  auto const tracked = NormalRects().find(&window);
  bool const useTracked = tracked != NormalRects().end() && !IsNormal(window);
  placement.rcNormalPosition = ToRect(useTracked ? tracked->second : window.GetRect());
  return placement;
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
  NormalRects()[&window] = normal;
  switch (placement.showCmd) {
    case SW_SHOWMAXIMIZED:
      window.Maximize(true);
      break;
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
      // Restored to maximised when the placement says it was maximised before.
      if ((placement.flags & WPF_RESTORETOMAXIMIZED) != 0) window.Maximize(true);
      window.Iconize(true);
      break;
    default:
      break;
  }
}
