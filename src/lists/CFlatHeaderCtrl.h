#pragma once
// The list's header with a flat look: grooves between the headings instead
// of buttons, and a sort arrow of its own drawn beside the heading of the
// sort column (never on a heading with a bitmap).

#include <wx/font.h>

#include "platform/commctrl/CHeaderCtrl.h"

class wxDC;

class CFlatHeaderCtrl : public CHeaderCtrl {
public:
  CFlatHeaderCtrl() = default;

  // Takes the system's message font, bold when asked, for the headings.
  virtual void InitializeHeader(bool bold);
  virtual void SetFontBold(int bold) { mBold = bold; }
  // Shows the arrow on `column`; returns the column that had it.
  virtual int SetSortImage(int column, int ascending);
  // The frame and the grooves at the column edges.
  virtual void DrawFlatBorder(wxDC & dc);
  // Stretches the header over the list's width.
  virtual void ResizeWindow();

  void DrawItem(wxDC & dc, int index, RECT const & rect, UINT state) override;

  int GetSortColumn() const { return mSortColumn; }
  int GetSortAscending() const { return mSortAscending; }
  int GetMargin() const { return mMargin; }

protected:
  void OnPaint(wxPaintEvent & event) override;

private:
  int mBold = 0;
  int mSortAscending = 1;
  int mSortColumn = -1;
  int mMargin = 6;
  wxFont mFont;
};
