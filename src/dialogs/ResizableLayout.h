#pragma once
// Keeps the controls of a resizable window in place as it changes size: each
// anchored control has its top-left corner tied to one point of the
// container's client area and its bottom-right corner to another, both given
// in percent of the client size. The distances measured when a control is
// anchored are kept; a control tied twice to the same point moves without
// changing size, one tied to TOP_LEFT and BOTTOM_RIGHT grows with the window.

#include <vector>

#include <wx/gdicmn.h>
#include <wx/weakref.h>
#include <wx/window.h>

struct ANCHOR {
  int cx;  // percent of the client width
  int cy;  // percent of the client height
};

constexpr ANCHOR TOP_LEFT{0, 0};
constexpr ANCHOR TOP_CENTER{50, 0};
constexpr ANCHOR TOP_RIGHT{100, 0};
constexpr ANCHOR MIDDLE_LEFT{0, 50};
constexpr ANCHOR MIDDLE_CENTER{50, 50};
constexpr ANCHOR MIDDLE_RIGHT{100, 50};
constexpr ANCHOR BOTTOM_LEFT{0, 100};
constexpr ANCHOR BOTTOM_CENTER{50, 100};
constexpr ANCHOR BOTTOM_RIGHT{100, 100};
// As the second anchor: the same point as the first (the size is kept).
constexpr ANCHOR NOANCHOR{-1, -1};

class CResizableLayout {
public:
  explicit CResizableLayout(wxWindow * container) : mContainer(container) {}
  virtual ~CResizableLayout() = default;

  // Ties `control` (a child of the container) by its present place. A control
  // anchored again gets the new anchors. An unknown id is ignored.
  void AddAnchor(wxWindow * control, ANCHOR topLeft, ANCHOR bottomRight = NOANCHOR);
  void AddAnchor(int controlId, ANCHOR topLeft, ANCHOR bottomRight = NOANCHOR);
  void RemoveAnchor(wxWindow * control);
  void RemoveAllAnchors() { mAnchors.clear(); }
  bool IsAnchored(wxWindow const * control) const;

  // Moves every anchored control to its place for the present client size.
  void ArrangeLayout();

private:
  struct Anchored {
    wxWeakRef<wxWindow> control;
    ANCHOR topLeft;
    ANCHOR bottomRight;
    wxPoint topLeftOffset;      // from the anchor point
    wxPoint bottomRightOffset;  // of the exclusive bottom-right corner
  };

  wxPoint AnchorPoint(ANCHOR anchor) const;

  wxWindow * mContainer;
  std::vector<Anchored> mAnchors;
};

// The bounds of a resizable top-level window's size (the whole window,
// frame included, as the user drags it).
class CResizableMinMax {
public:
  explicit CResizableMinMax(wxWindow * window) : mWindow(window) {}
  virtual ~CResizableMinMax() = default;

  void SetMinTrackSize(wxSize const & size) { mWindow->SetMinSize(size); }
  void SetMaxTrackSize(wxSize const & size) { mWindow->SetMaxSize(size); }
  void ResetMinMax() { mWindow->SetSizeHints(wxDefaultSize, wxDefaultSize); }

private:
  wxWindow * mWindow;
};
