#include "dialogs/ResizableLayout.h"

#include <algorithm>

void CResizableLayout::AddAnchor(wxWindow * control, ANCHOR topLeft, ANCHOR bottomRight) {
  if (control == nullptr) return;
  if (bottomRight.cx < 0) bottomRight = topLeft;
  RemoveAnchor(control);
  wxRect const rect = control->GetRect();
  Anchored entry{control, topLeft, bottomRight, rect.GetTopLeft() - AnchorPoint(topLeft),
                 wxPoint(rect.GetRight() + 1, rect.GetBottom() + 1) - AnchorPoint(bottomRight)};
  mAnchors.push_back(entry);
}

void CResizableLayout::AddAnchor(int controlId, ANCHOR topLeft, ANCHOR bottomRight) {
  AddAnchor(mContainer->FindWindow(controlId), topLeft, bottomRight);
}

void CResizableLayout::RemoveAnchor(wxWindow * control) {
  mAnchors.erase(std::remove_if(mAnchors.begin(), mAnchors.end(),
                                [&](Anchored const & a) { return a.control.get() == control; }),
                 mAnchors.end());
}

bool CResizableLayout::IsAnchored(wxWindow const * control) const {
  return std::any_of(mAnchors.begin(), mAnchors.end(),
                     [&](Anchored const & a) { return a.control.get() == control; });
}

wxPoint CResizableLayout::AnchorPoint(ANCHOR anchor) const {
  wxSize const client = mContainer->GetClientSize();
  return wxPoint(client.x * anchor.cx / 100, client.y * anchor.cy / 100);
}

void CResizableLayout::ArrangeLayout() {
  for (Anchored const & a : mAnchors) {
    if (!a.control) continue;  // destroyed meanwhile
    wxPoint const topLeft = AnchorPoint(a.topLeft) + a.topLeftOffset;
    wxPoint const bottomRight = AnchorPoint(a.bottomRight) + a.bottomRightOffset;
    a.control->SetSize(topLeft.x, topLeft.y, std::max(0, bottomRight.x - topLeft.x),
                       std::max(0, bottomRight.y - topLeft.y), wxSIZE_ALLOW_MINUS_ONE);
  }
}
