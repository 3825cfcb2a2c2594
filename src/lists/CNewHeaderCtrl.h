#pragma once
// The tree list's header: the flat header's frame and grooves, headings in
// the plain font, and the sort arrow only while sorting is on. Its arrow
// points the other way round from the list's: up for ascending.

#include "platform/commctrl/CHeaderCtrl.h"

class wxDC;

class CNewHeaderCtrl : public CHeaderCtrl {
public:
  CNewHeaderCtrl() = default;
  CNewHeaderCtrl(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
                 wxSize const & size = wxDefaultSize,
                 DWORD headerStyle = HDS_BUTTONS | HDS_FULLDRAG);

  // The tree list steers the sort look through these three.
  void SetSortActive(int active);
  int GetSortActive() const { return mSortActive; }
  void SetSortColumn(int column);
  int GetSortColumn() const { return mSortColumn; }
  void SetAscending(int ascending);
  int GetAscending() const { return mAscending; }
  int GetMargin() const { return mMargin; }

  void DrawItem(wxDC & dc, int index, RECT const & rect, UINT state) override;

protected:
  void OnPaint(wxPaintEvent & event) override;

private:
  int mSortActive = 0;
  int mSortColumn = 0;
  int mAscending = 1;
  int mMargin = 6;
};
