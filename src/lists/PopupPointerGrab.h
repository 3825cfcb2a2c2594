#pragma once
// The pointer held by a transient popup while its edge is dragged.
//
// A shown wxPopupTransientWindow grabs the pointer to its top-level GDK
// window with owner events on: a motion is reported to the application's
// window under the pointer (the popup's list, a combo) or, outside the
// application, to the top-level window itself, which wx does not listen to.
// Either way the popup's client area never hears of the drag. So a drag
// grabs the pointer to the client area's own window with owner events off,
// and afterwards gives the popup back its grab, without which a click
// outside would no longer close it.

class wxWindow;

// Sends every pointer event to `popup`'s client area; false if the server
// refused.
bool HoldPointerInClientArea(wxWindow & popup);
// Ends that hold: the popup's top-level window has the pointer again, as
// it had when shown.
void ReturnPointerToPopup(wxWindow & popup);
