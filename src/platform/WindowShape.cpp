#include "platform/WindowShape.h"

// wx before Xlib, whose macros (None, Status) would break wx's headers.
#include <wx/nonownedwnd.h>
#include <wx/region.h>

#include <X11/Xlib.h>
#include <X11/extensions/shape.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include <vector>

bool SetShapeBeforeMap(wxNonOwnedWindow & window, wxRegion const & region) {
  GtkWidget * widget = window.GetHandle();
  if (widget == nullptr) return false;
  gtk_widget_realize(widget);
  // GTK keeps the shape too: it cuts its own drawing to it, and what it
  // sends later is the same outline.
  if (!window.SetShape(region)) return false;
  GdkWindow * native = gtk_widget_get_window(widget);
  if (native == nullptr) return false;
  if (!GDK_IS_X11_WINDOW(native)) return true;  // other displays: GTK's way

  Display * display = GDK_WINDOW_XDISPLAY(native);
  Window const xid = GDK_WINDOW_XID(native);
  int eventBase = 0;
  int errorBase = 0;
  if (XShapeQueryExtension(display, &eventBase, &errorBase) == 0) return true;
  if (region.IsEmpty()) {
    XShapeCombineMask(display, xid, ShapeBounding, 0, 0, 0, ShapeSet);
  } else {
    std::vector<XRectangle> rectangles;
    for (wxRegionIterator part(region); part; ++part) {
      wxRect const r = part.GetRect();
      rectangles.push_back({static_cast<short>(r.x), static_cast<short>(r.y),
                            static_cast<unsigned short>(r.width),
                            static_cast<unsigned short>(r.height)});
    }
    XShapeCombineRectangles(display, xid, ShapeBounding, 0, 0, rectangles.data(),
                            static_cast<int>(rectangles.size()), ShapeSet, Unsorted);
  }
  XFlush(display);
  return true;
}
