#include "favourites/FileTypeIcons.h"

#include <gio/gio.h>
#include <gtk/gtk.h>

#include <wx/bitmap.h>

namespace {

// The last path element in the file system's bytes; GIO's globs match it.
std::string BaseName(wxString const & path) {
  wxCharBuffer const bytes = path.fn_str();
  std::string const full = bytes.data() != nullptr ? std::string(bytes.data()) : std::string();
  size_t const slash = full.rfind('/');
  return slash == std::string::npos ? full : full.substr(slash + 1);
}

}  // namespace

std::string FileTypeIcons::ContentType(wxString const & path) {
  std::string const name = BaseName(path);
  if (name.empty()) return {};
  gboolean uncertain = FALSE;
  gchar * const type = g_content_type_guess(name.c_str(), nullptr, 0, &uncertain);
  if (type == nullptr) return {};
  std::string result(type);
  g_free(type);
  return result;
}

wxIcon FileTypeIcons::Get(wxString const & path) {
  std::string const type = ContentType(path);
  if (type.empty()) return wxIcon();
  auto const found = mIcons.find(type);
  if (found != mIcons.end()) return found->second;
  wxIcon icon = Load(type);
  mIcons.emplace(type, icon);
  return icon;
}

wxIcon FileTypeIcons::Load(std::string const & contentType) {
  GIcon * const gicon = g_content_type_get_icon(contentType.c_str());
  if (gicon == nullptr) return wxIcon();
  GtkIconTheme * const theme = gtk_icon_theme_get_default();
  GtkIconInfo * const info = theme != nullptr ? gtk_icon_theme_lookup_by_gicon(
                                                    theme, gicon, kSize, GTK_ICON_LOOKUP_FORCE_SIZE)
                                              : nullptr;
  g_object_unref(gicon);
  if (info == nullptr) return wxIcon();
  GError * error = nullptr;
  GdkPixbuf * const pixbuf = gtk_icon_info_load_icon(info, &error);
  g_object_unref(info);
  if (pixbuf == nullptr) {
    if (error != nullptr) g_error_free(error);
    return wxIcon();
  }
  // The bitmap takes the pixbuf's reference over.
  wxBitmap const bitmap(pixbuf);
  wxIcon icon;
  icon.CopyFromBitmap(bitmap);
  return icon;
}
