#include "controls/WindowSnapshot.h"

#include <gdk/gdk.h>
#include <gtk/gtk.h>
#include <wx/window.h>

wxImage CaptureWindowImage(wxWindow & window) {
  GtkWidget * widget = window.GetHandle();
  // The toolkit's own dialogs (message boxes) are shown by GTK, not wx:
  // mapped, though wx does not know them as shown.
  if (widget == nullptr || (!window.IsShownOnScreen() && gtk_widget_get_mapped(widget) == 0))
    return wxImage();
  GdkWindow * gdkWindow = gtk_widget_get_window(widget);
  if (gdkWindow == nullptr || !gdk_window_is_viewable(gdkWindow)) return wxImage();
  // Make sure every pending paint has reached the server before reading.
  gdk_display_sync(gdk_window_get_display(gdkWindow));
  int const width = gdk_window_get_width(gdkWindow);
  int const height = gdk_window_get_height(gdkWindow);
  if (width <= 0 || height <= 0) return wxImage();
  GdkPixbuf * pixbuf = gdk_pixbuf_get_from_window(gdkWindow, 0, 0, width, height);
  if (pixbuf == nullptr) return wxImage();

  wxImage image(width, height, false);
  int const stride = gdk_pixbuf_get_rowstride(pixbuf);
  int const channels = gdk_pixbuf_get_n_channels(pixbuf);
  guchar const * pixels = gdk_pixbuf_get_pixels(pixbuf);
  unsigned char * out = image.GetData();
  for (int y = 0; y < height; ++y) {
    guchar const * row = pixels + y * stride;
    for (int x = 0; x < width; ++x) {
      *out++ = row[x * channels + 0];
      *out++ = row[x * channels + 1];
      *out++ = row[x * channels + 2];
    }
  }
  g_object_unref(pixbuf);
  return image;
}

bool SaveWindowSnapshot(wxWindow & window, wxString const & pngPath) {
  wxImage const image = CaptureWindowImage(window);
  if (!image.IsOk()) return false;
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
  return image.SaveFile(pngPath, wxBITMAP_TYPE_PNG);
}
