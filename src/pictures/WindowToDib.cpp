#include "pictures/WindowToDib.h"

#include <cairo.h>
#include <gdk/gdk.h>
#include <gtk/gtk.h>
#include <wx/image.h>
#include <wx/window.h>

#include <algorithm>
#include <cstring>

#include "controls/WindowSnapshot.h"
#include "pictures/DibBitmap.h"
#include "pictures/DibFile.h"

namespace {

// GTK's own drawing of the widget and its children, at its allocated size.
wxImage DrawWidget(GtkWidget * widget) {
  if (widget == nullptr || !gtk_widget_get_realized(widget)) return wxImage();
  int const width = gtk_widget_get_allocated_width(widget);
  int const height = gtk_widget_get_allocated_height(widget);
  if (width <= 1 || height <= 1) return wxImage();
  cairo_surface_t * const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
  if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(surface);
    return wxImage();
  }
  cairo_t * const cairo = cairo_create(surface);
  gtk_widget_draw(widget, cairo);
  cairo_destroy(cairo);
  cairo_surface_flush(surface);
  wxImage image(width, height, false);
  unsigned char const * const data = cairo_image_surface_get_data(surface);
  int const stride = cairo_image_surface_get_stride(surface);
  unsigned char * out = image.GetData();
  for (int y = 0; y < height; ++y) {
    unsigned char const * row =
        data + static_cast<std::size_t>(y) * static_cast<std::size_t>(stride);
    for (int x = 0; x < width; ++x, out += 3) {
      std::uint32_t pixel = 0;  // 0x00RRGGBB in native order
      std::memcpy(&pixel, row + x * 4, sizeof pixel);
      out[0] = static_cast<unsigned char>(pixel >> 16);
      out[1] = static_cast<unsigned char>(pixel >> 8);
      out[2] = static_cast<unsigned char>(pixel);
    }
  }
  cairo_surface_destroy(surface);
  return image;
}

}  // namespace

wxBitmap CaptureWindowBitmap(wxWindow & window) {
  wxImage image = DrawWidget(window.GetHandle());
  if (!image.IsOk()) image = CaptureWindowImage(window);
  return image.IsOk() ? wxBitmap(image, 24) : wxBitmap();
}

wxBitmap ScreenRectToBitmap(wxRect const & rect) {
  if (rect.IsEmpty()) return wxBitmap();
  GdkWindow * const root = gdk_get_default_root_window();
  if (root == nullptr) return wxBitmap();
  GdkPixbuf * const pixbuf =
      gdk_pixbuf_get_from_window(root, rect.x, rect.y, rect.width, rect.height);
  if (pixbuf == nullptr) return wxBitmap();
  // Parts off the screen are cut away.
  int const width = std::min(rect.width, gdk_pixbuf_get_width(pixbuf));
  int const height = std::min(rect.height, gdk_pixbuf_get_height(pixbuf));
  wxImage image(width, height, false);
  int const stride = gdk_pixbuf_get_rowstride(pixbuf);
  int const channels = gdk_pixbuf_get_n_channels(pixbuf);
  guchar const * const pixels = gdk_pixbuf_get_pixels(pixbuf);
  unsigned char * out = image.GetData();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x, out += 3)
      std::memcpy(out, pixels + y * stride + x * channels, 3);
  g_object_unref(pixbuf);
  return wxBitmap(image, 24);
}

int WriteWindowToDIB(wchar_t const * file, wxWindow * window) {
  if (window == nullptr) return 0;
  wxBitmap const bitmap = CaptureWindowBitmap(*window);
  HDIB const dib = DDBToDIB(bitmap, BI_RGB, nullptr);
  if (dib == nullptr) return 0;
  WriteDIB(file, dib);
  GlobalFree(dib);
  return 1;
}
