// The printer output: each document one GTK print job to a printer of
// CUPS, which makes the copies. GTK spools the job asynchronously; the
// document's end waits for it on the main context, so a caller's loop of
// copies and documents stays in order.

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <algorithm>
#include <cmath>

#include <cairo.h>

#include "printing/GtkPaper.h"
#include "printing/PageDevice.h"
#include "printing/SurfacePageOutput.h"

namespace {

struct PrinterSearch {
  std::string name;
  GtkPrinter * found = nullptr;
};

gboolean MatchPrinter(GtkPrinter * printer, gpointer data) {
  auto * search = static_cast<PrinterSearch *>(data);
  if (search->name == gtk_printer_get_name(printer)) {
    search->found = GTK_PRINTER(g_object_ref(printer));
    return TRUE;
  }
  return FALSE;
}

struct Delivery {
  bool done = false;
  std::string error;
};

void Delivered(GtkPrintJob * /*job*/, gpointer data, GError const * error) {
  auto * delivery = static_cast<Delivery *>(data);
  if (error != nullptr) {
    delivery->error = error->message;
  }
  delivery->done = true;
}

class PrinterPageOutput : public SurfacePageOutput {
public:
  explicit PrinterPageOutput(std::string name) : mName(std::move(name)) {}
  ~PrinterPageOutput() override { AbortDocument(); }

  int MaxCopies() const override { return 999; }
  void SetCopies(int copies) override { mCopies = copies; }

  bool StartDocument(std::string const & name, ExceptionMessage & error) override {
    PrinterSearch search{mName};
    gtk_enumerate_printers(MatchPrinter, &search, nullptr, TRUE);
    if (search.found == nullptr) {
      error = ExceptionMessage::translate("The printer {1} cannot be found.") % mName;
      return false;
    }
    GtkPrintSettings * settings = gtk_print_settings_new();
    gtk_print_settings_set_printer(settings, mName.c_str());
    gtk_print_settings_set_n_copies(settings, mCopies);
    // The paper by the name printers know it by, upright.
    constexpr double kMmPerPoint = 25.4 / 72.0;
    PaperFormat const paper{std::min(mWidthPoints, mHeightPoints) * kMmPerPoint,
                            std::max(mWidthPoints, mHeightPoints) * kMmPerPoint,
                            mWidthPoints > mHeightPoints};
    GtkPageSetup * setup = NewPageSetup(paper, settings);
    mJob = gtk_print_job_new(name.c_str(), search.found, settings, setup);
    g_object_unref(setup);
    g_object_unref(settings);
    g_object_unref(search.found);
    GError * failure = nullptr;
    cairo_surface_t * surface = gtk_print_job_get_surface(mJob, &failure);
    if (surface == nullptr) {
      error = ExceptionMessage::translate("The printer {1} cannot take the document: {2}") % mName %
              (failure != nullptr ? failure->message : "");
      if (failure != nullptr) {
        g_error_free(failure);
      }
      AbortDocument();
      return false;
    }
    mSurface = surface;  // the job's
    mContext = DeviceContext(mSurface, 72.0 / PageDevice::UnitsPerInch);
    if (paper.landscape) {
      // A job's pages are upright: a landscape page goes onto them turned
      // a quarter to the left, its top along the paper's left edge, as GTK
      // turns its own print contexts.
      cairo_translate(mContext, 0.0, mWidthPoints / 72.0 * PageDevice::UnitsPerInch);
      cairo_rotate(mContext, -M_PI / 2.0);
    }
    return true;
  }

  bool EndDocument(ExceptionMessage & error) override {
    DropContext();
    cairo_surface_finish(mSurface);
    bool ok = Check(error);
    mSurface = nullptr;
    if (ok) {
      Delivery delivery;
      gtk_print_job_send(mJob, Delivered, &delivery, nullptr);
      while (!delivery.done) {
        g_main_context_iteration(nullptr, TRUE);
      }
      if (!delivery.error.empty()) {
        error = ExceptionMessage::translate("The printer {1} cannot take the document: {2}") %
                mName % delivery.error;
        ok = false;
      }
    }
    g_object_unref(mJob);
    mJob = nullptr;
    return ok;
  }

  void AbortDocument() override {
    DropContext();
    mSurface = nullptr;
    if (mJob != nullptr) {
      g_object_unref(mJob);
      mJob = nullptr;
    }
  }

  bool Finish(ExceptionMessage & /*error*/) override { return true; }

private:
  ExceptionMessage SurfaceFailed(char const * reason) const override {
    return ExceptionMessage::translate("The printer {1} cannot take the document: {2}") % mName %
           reason;
  }

  std::string mName;
  int mCopies = 1;
  GtkPrintJob * mJob = nullptr;
};

}  // namespace

std::unique_ptr<PageOutput> PageOutput::Printer(std::string name) {
  return std::make_unique<PrinterPageOutput>(std::move(name));
}
