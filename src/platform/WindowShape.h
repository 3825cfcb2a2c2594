#pragma once
// Gives a top-level window its outline before the X server maps it.
//
// GTK records a shape at once but sends it to the X server only when the
// window is first reported mapped, so a shaped window would show its whole
// rectangle for a moment (a splash's key colour, say) before it is cut.

class wxNonOwnedWindow;
class wxRegion;

// Sets `region` as the window's shape, realizing the window if need be; on
// X11 the server has the shape when this returns. An empty region removes
// the shape. Returns false if the window has no native window to shape.
bool SetShapeBeforeMap(wxNonOwnedWindow & window, wxRegion const & region);
