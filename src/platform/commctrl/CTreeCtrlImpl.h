#pragma once
// The inside of CTreeCtrl shared by its source files: the node store and
// the view's state (scrolling, caret, marks, timers, type-ahead).

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/timer.h>

#include <map>
#include <memory>

#include "platform/commctrl/CTreeCtrl.h"
#include "platform/commctrl/TreeNodeStore.h"

struct CTreeCtrl::Impl {
  TreeNodeStore nodes;
  uint32_t caret = 0;
  uint32_t dropHilite = 0;
  uint32_t insertMark = 0;
  bool insertMarkAfter = true;
  wxImageList * normalImages = nullptr;
  wxImageList * stateImages = nullptr;

  // Scrolling: the first shown row and the horizontal offset in pixels.
  int topRow = 0;
  int scrollX = 0;
  int originX = 0;  // SetHorizontalOrigin
  int widestRow = 0;
  short itemHeightSet = -1;
  int fontHeight = 16;

  // Shown rows change with every insert, delete, expand and collapse; the
  // count and the slot at the top row are kept until the next change.
  uint64_t layoutVersion = 1;
  mutable uint64_t rowCountVersion = 0;
  mutable int rowCount = 0;
  mutable uint64_t topVersion = 0;
  mutable int topVersionRow = -1;
  mutable uint32_t topSlot = 0;
  // The item on top: after a change it stays on top while it is shown.
  HTREEITEM topItem{};

  // Every insert and delete moves this on: a paint that gave the owner a
  // say (custom draw) stops when the owner changed the items under it.
  uint64_t structureVersion = 0;
  // A delete is telling its items: inserts and deletes from the handlers
  // of TVN_DELETEITEM are refused (they would cut the walk under it).
  bool deleting = false;

  // What the selection and expand notifications say caused them.
  UINT selectAction = TVC_UNKNOWN;
  bool userExpand = false;

  // The font the kept label widths were measured in, and the theme's
  // colours, read again when the theme changes.
  wxFont measuredFont;
  bool coloursKnown = false;
  wxColour window, windowText, grayText, highlight, highlightText, buttonFace;

  int redrawOff = 0;
  bool scrollbarsDirty = true;
  // A whole-window refresh is asked for and its paint has not come yet:
  // more changes before it need not ask again (each ask costs GDK a region
  // intersection, far more than the change itself).
  bool refreshPending = false;
  // The rows as last painted: GTK 3 repaints a scrolled window whole, so a
  // sideways step moves these pixels and draws only the strip it uncovered.
  // Any other repaint request makes them stale.
  wxBitmap kept;
  wxBitmap spare;  // the kept pixels are moved onto it, then the two swap
  int keptOriginX = 0;
  bool keptValid = false;
  bool sidewaysStep = false;

  std::map<UINT_PTR, std::unique_ptr<wxTimer>> timers;
  wxString typeAhead;
  uint32_t editSlot = 0;
  uint32_t editPending = 0;  // label editing waits for the edit timer
};

// What an item shows: its own fields, or for a callback field what the
// parent answers to TVN_GETDISPINFO.
wxString ShownText(CTreeCtrl & tree, CTreeCtrl::Impl & impl, uint32_t slot);
int ShownImage(CTreeCtrl & tree, CTreeCtrl::Impl & impl, uint32_t slot, bool selected);
bool ShowsButton(CTreeCtrl & tree, CTreeCtrl::Impl & impl, uint32_t slot);
