#include "printing/GtkPaper.h"

#include <algorithm>
#include <cmath>

namespace {

// Paper sizes in millimetres arrive rounded to whole millimetres from some
// roads (wx's paper sizes): Letter's 215.9 by 279.4 as 215 by 279.
constexpr double kSameSizeMm = 1.0;

// The desktop's paper closest to `width` by `height` within kSameSizeMm, or
// a custom one. The caller frees it.
GtkPaperSize * NewPaperSize(double width, double height) {
  GtkPaperSize * closest = nullptr;
  double closestDistance = kSameSizeMm * 2;
  GList * const sizes = gtk_paper_size_get_paper_sizes(FALSE);
  for (GList * item = sizes; item != nullptr; item = item->next) {
    auto * const size = static_cast<GtkPaperSize *>(item->data);
    double const dx = std::fabs(gtk_paper_size_get_width(size, GTK_UNIT_MM) - width);
    double const dy = std::fabs(gtk_paper_size_get_height(size, GTK_UNIT_MM) - height);
    if (dx <= kSameSizeMm && dy <= kSameSizeMm && dx + dy < closestDistance) {
      closest = size;
      closestDistance = dx + dy;
    }
  }
  GtkPaperSize * const result =
      closest != nullptr
          ? gtk_paper_size_copy(closest)
          : gtk_paper_size_new_custom("custom", "Custom", width, height, GTK_UNIT_MM);
  g_list_free_full(sizes, reinterpret_cast<GDestroyNotify>(gtk_paper_size_free));
  return result;
}

}  // namespace

GtkPageSetup * NewPageSetup(PaperFormat const & paper, GtkPrintSettings * settings) {
  GtkPaperSize * const size = NewPaperSize(std::min(paper.widthMm, paper.heightMm),
                                           std::max(paper.widthMm, paper.heightMm));
  GtkPageOrientation const orientation =
      paper.landscape ? GTK_PAGE_ORIENTATION_LANDSCAPE : GTK_PAGE_ORIENTATION_PORTRAIT;
  GtkPageSetup * const setup = gtk_page_setup_new();
  gtk_page_setup_set_paper_size(setup, size);
  gtk_page_setup_set_orientation(setup, orientation);
  if (settings != nullptr) {
    gtk_print_settings_set_paper_size(settings, size);
    gtk_print_settings_set_orientation(settings, orientation);
  }
  gtk_paper_size_free(size);
  return setup;
}
