#include "lists/EntryPlaceholder.h"

#include <wx/combobox.h>

#include <gtk/gtk.h>

#include <cstdint>

#include "platform/SysColor.h"

namespace {

gboolean DrawPlaceholder(GtkWidget * entry, cairo_t * cairo, gpointer text) {
  if (gtk_entry_get_text_length(GTK_ENTRY(entry)) != 0) return FALSE;
  GdkRectangle area{};
  gtk_entry_get_text_area(GTK_ENTRY(entry), &area);
  PangoLayout * const layout =
      gtk_widget_create_pango_layout(entry, static_cast<char const *>(text));
  int width = 0, height = 0;
  pango_layout_get_pixel_size(layout, &width, &height);
  wxColour const gray = GetSysColour(COLOR_GRAYTEXT);
  cairo_save(cairo);
  cairo_rectangle(cairo, area.x, area.y, area.width, area.height);
  cairo_clip(cairo);
  cairo_set_source_rgb(cairo, gray.Red() / 255.0, gray.Green() / 255.0, gray.Blue() / 255.0);
  cairo_move_to(cairo, area.x, area.y + (area.height - height) / 2.0);
  pango_cairo_show_layout(cairo, layout);
  cairo_restore(cairo);
  g_object_unref(layout);
  return FALSE;
}

void FreeText(gpointer text, GClosure *) { g_free(text); }

}  // namespace

void ShowPlaceholderWhileEmpty(wxComboBox & combo, wxString const & text) {
  GtkWidget * const entry = gtk_bin_get_child(GTK_BIN(combo.GetHandle()));
  if (entry == nullptr || !GTK_IS_ENTRY(entry)) return;
  // The handler of the hint shown now, kept on the entry itself.
  static char const key[] = "talvo-placeholder-handler";
  auto const shown =
      static_cast<gulong>(reinterpret_cast<uintptr_t>(g_object_get_data(G_OBJECT(entry), key)));
  if (shown != 0) g_signal_handler_disconnect(entry, shown);
  gulong handler = 0;
  if (!text.empty())
    handler = g_signal_connect_data(entry, "draw", G_CALLBACK(DrawPlaceholder),
                                    g_strdup(text.utf8_str().data()), FreeText, G_CONNECT_AFTER);
  g_object_set_data(G_OBJECT(entry), key,
                    reinterpret_cast<gpointer>(static_cast<uintptr_t>(handler)));
  gtk_widget_queue_draw(entry);
}
