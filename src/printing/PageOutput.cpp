#include "printing/PageOutput.h"

#include <cairo.h>

#include "printing/PageDevice.h"

PageOutput::~PageOutput() = default;

void PageOutput::SetPaper(double widthPoints, double heightPoints) {
  mWidthPoints = widthPoints;
  mHeightPoints = heightPoints;
}

cairo_t * PageOutput::DeviceContext(cairo_surface_t * surface, double unitsToSurface) const {
  cairo_t * context = cairo_create(surface);
  cairo_scale(context, unitsToSurface, unitsToSurface);
  // Hinted metrics would round advances to whole pixels of the surface: a
  // preview at 96 pixels an inch would break lines elsewhere than the PDF.
  cairo_font_options_t * options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_set_font_options(context, options);
  cairo_font_options_destroy(options);
  return context;
}
