#pragma once
// The HTML view as a control of a dialog, put where the dialog template has
// a static placeholder.

#include "html/VxHtmlView.h"

class VxHtmlCtrl : public VxHtmlView {
  wxDECLARE_DYNAMIC_CLASS(VxHtmlCtrl);

public:
  VxHtmlCtrl() = default;

  // Replaces the static control `id` of `parent` with this control (same
  // id, place and size, and its place in the parent's sizer) showing
  // "about:blank". 0 when there is no such static control or the control
  // cannot be made.
  int CreateFromStatic(unsigned int id, wxWindow * parent);
};
