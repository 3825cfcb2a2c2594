// GTK's print dialog behind PrintDialog's function.

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <wx/window.h>
#include <boost/locale/encoding_utf.hpp>
#include <boost/locale/message.hpp>

#include "platform/WinUser.h"
#include "printing/GtkPaper.h"
#include "printing/PrintDialog.h"

namespace {

std::wstring Wide(char const * text) {
  return text != nullptr ? boost::locale::conv::utf_to_utf<wchar_t>(std::string(text))
                         : std::wstring();
}

// The settings the dialog opens with, from what the caller had chosen.
GtkPrintSettings * SettingsFrom(PRINTDLGW const & data) {
  GtkPrintSettings * settings = gtk_print_settings_new();
  gtk_print_settings_set_n_copies(settings, data.nCopies > 0 ? data.nCopies : 1);
  gtk_print_settings_set_collate(settings, (data.Flags & PD_COLLATE) != 0);
  gtk_print_settings_set(settings, GTK_PRINT_SETTINGS_OUTPUT_FILE_FORMAT, "pdf");
  if (data.hDevNames) {
    std::string const device = boost::locale::conv::utf_to_utf<char>(data.hDevNames->device);
    if (data.hDevNames->driver == L"PDF") {
      gchar * uri = g_filename_to_uri(
          boost::locale::conv::utf_to_utf<char>(data.hDevNames->output).c_str(), nullptr, nullptr);
      if (uri != nullptr) {
        gtk_print_settings_set(settings, GTK_PRINT_SETTINGS_OUTPUT_URI, uri);
        g_free(uri);
      }
    } else if (!device.empty()) {
      gtk_print_settings_set_printer(settings, device.c_str());
    }
  }
  if ((data.Flags & PD_PAGENUMS) != 0) {
    GtkPageRange range{data.nFromPage - 1, data.nToPage - 1};
    gtk_print_settings_set_print_pages(settings, GTK_PRINT_PAGES_RANGES);
    gtk_print_settings_set_page_ranges(settings, &range, 1);
  }
  return settings;
}

void ReadChoice(GtkPrintUnixDialog * dialog, PRINTDLGW & data) {
  GtkPrinter * printer = gtk_print_unix_dialog_get_selected_printer(dialog);
  GtkPrintSettings * settings = gtk_print_unix_dialog_get_settings(dialog);
  auto names = std::make_shared<DEVNAMES>();
  if (gtk_printer_is_virtual(printer)) {
    names->driver = L"PDF";
    gchar * path = g_filename_from_uri(
        gtk_print_settings_get(settings, GTK_PRINT_SETTINGS_OUTPUT_URI), nullptr, nullptr);
    names->output = Wide(path);
    g_free(path);
    data.Flags |= PD_PRINTTOFILE;
  } else {
    names->driver = L"CUPS";
    names->device = Wide(gtk_printer_get_name(printer));
    data.Flags &= ~PD_PRINTTOFILE;
  }
  data.hDevNames = names;

  auto mode = std::make_shared<DEVMODEW>(data.hDevMode ? *data.hDevMode : DEVMODEW{});
  GtkPageSetup * setup = gtk_print_unix_dialog_get_page_setup(dialog);
  GtkPaperSize * paper = gtk_page_setup_get_paper_size(setup);
  mode->paper.widthMm = gtk_paper_size_get_width(paper, GTK_UNIT_MM);
  mode->paper.heightMm = gtk_paper_size_get_height(paper, GTK_UNIT_MM);
  GtkPageOrientation const orientation = gtk_page_setup_get_orientation(setup);
  mode->dmOrientation = orientation == GTK_PAGE_ORIENTATION_LANDSCAPE ||
                                orientation == GTK_PAGE_ORIENTATION_REVERSE_LANDSCAPE
                            ? DMORIENT_LANDSCAPE
                            : DMORIENT_PORTRAIT;
  mode->dmCopies = static_cast<short>(gtk_print_settings_get_n_copies(settings));
  mode->dmCollate = static_cast<short>(gtk_print_settings_get_collate(settings));
  data.hDevMode = mode;
  data.nCopies = static_cast<WORD>(mode->dmCopies);
  data.Flags =
      gtk_print_settings_get_collate(settings) ? data.Flags | PD_COLLATE : data.Flags & ~PD_COLLATE;

  data.Flags &= ~(PD_PAGENUMS | PD_SELECTION);
  switch (gtk_print_settings_get_print_pages(settings)) {
    case GTK_PRINT_PAGES_RANGES: {
      gint count = 0;
      GtkPageRange * ranges = gtk_print_settings_get_page_ranges(settings, &count);
      if (count > 0) {
        data.Flags |= PD_PAGENUMS;
        data.nFromPage = static_cast<WORD>(ranges[0].start + 1);
        data.nToPage = static_cast<WORD>(ranges[count - 1].end + 1);
      }
      g_free(ranges);
      break;
    }
    case GTK_PRINT_PAGES_SELECTION: data.Flags |= PD_SELECTION; break;
    default: break;
  }
  g_object_unref(settings);
}

}  // namespace

int RunDesktopPrintDialog(PRINTDLGW & data) {
  GtkWindow * parent = nullptr;
  if (data.hwndOwner != nullptr && data.hwndOwner->GetHandle() != nullptr) {
    GtkWidget * top = gtk_widget_get_toplevel(data.hwndOwner->GetHandle());
    parent = GTK_IS_WINDOW(top) ? GTK_WINDOW(top) : nullptr;
  }
  std::string const title = boost::locale::translate("Print").str();
  GtkWidget * widget = gtk_print_unix_dialog_new(title.c_str(), parent);
  auto * dialog = GTK_PRINT_UNIX_DIALOG(widget);
  GtkPrintSettings * settings = SettingsFrom(data);
  if (data.hDevMode) {
    // The paper and orientation the application starts from (the printer
    // defaults', which the backstage page and the print setup change).
    GtkPageSetup * setup = NewPageSetup(PaperOf(*data.hDevMode), settings);
    gtk_print_unix_dialog_set_page_setup(dialog, setup);
    g_object_unref(setup);
  }
  gtk_print_unix_dialog_set_settings(dialog, settings);
  g_object_unref(settings);
  gtk_print_unix_dialog_set_manual_capabilities(
      dialog, GtkPrintCapabilities(
                  GTK_PRINT_CAPABILITY_COPIES | GTK_PRINT_CAPABILITY_COLLATE |
                  GTK_PRINT_CAPABILITY_GENERATE_PDF |
                  ((data.Flags & PD_NOPAGENUMS) == 0 ? GTK_PRINT_CAPABILITY_PAGE_SET : 0)));
  gtk_print_unix_dialog_set_support_selection(dialog, (data.Flags & PD_NOSELECTION) == 0);
  gtk_print_unix_dialog_set_has_selection(dialog, (data.Flags & PD_NOSELECTION) == 0);
  gtk_print_unix_dialog_set_embed_page_setup(dialog, TRUE);
  int result = IDCANCEL;
  if (gtk_dialog_run(GTK_DIALOG(widget)) == GTK_RESPONSE_OK &&
      gtk_print_unix_dialog_get_selected_printer(dialog) != nullptr) {
    ReadChoice(dialog, data);
    result = IDOK;
  }
  gtk_widget_destroy(widget);
  return result;
}
