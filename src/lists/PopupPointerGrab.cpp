#include "lists/PopupPointerGrab.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace {

bool Grab(GdkWindow * window, bool ownerEvents) {
  if (window == nullptr) return false;
  GdkSeat * const seat = gdk_display_get_default_seat(gdk_window_get_display(window));
  return gdk_seat_grab(seat, window, GDK_SEAT_CAPABILITY_ALL_POINTING, ownerEvents ? TRUE : FALSE,
                       nullptr, nullptr, nullptr, nullptr) == GDK_GRAB_SUCCESS;
}

}  // namespace

bool HoldPointerInClientArea(wxWindow & popup) { return Grab(popup.GTKGetDrawingWindow(), false); }

void ReturnPointerToPopup(wxWindow & popup) {
  GtkWidget * const widget = popup.GetHandle();
  if (widget == nullptr || !popup.IsShown()) return;
  Grab(gtk_widget_get_window(widget), true);
}
