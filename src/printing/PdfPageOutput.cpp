// The PDF output: one file for every document of the device's life. Pages
// go to a temporary file beside the target, which replaces the target only
// when cairo finished it without error.

#include <cairo-pdf.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <cairo.h>

#include "printing/PageDevice.h"
#include "printing/SurfacePageOutput.h"

namespace {

class PdfPageOutput : public SurfacePageOutput {
public:
  explicit PdfPageOutput(std::string path) : mPath(std::move(path)) {}
  ~PdfPageOutput() override { Discard(); }

  bool StartDocument(std::string const & name, ExceptionMessage & error) override {
    if (mSurface != nullptr) {
      return true;  // a further document of the same run: more pages of the file
    }
    std::string pattern = mPath + ".XXXXXX";
    int const fd = mkstemp(pattern.data());
    if (fd < 0) {
      error = ExceptionMessage::translate("The file {1} cannot be written: {2}") % mPath %
              std::string(std::strerror(errno));
      return false;
    }
    close(fd);
    mTemporary = pattern;
    mSurface = cairo_pdf_surface_create(mTemporary.c_str(), mWidthPoints, mHeightPoints);
    if (cairo_surface_status(mSurface) != CAIRO_STATUS_SUCCESS) {
      error = SurfaceFailed(cairo_status_to_string(cairo_surface_status(mSurface)));
      Discard();
      return false;
    }
    cairo_pdf_surface_set_metadata(mSurface, CAIRO_PDF_METADATA_TITLE, name.c_str());
    mContext = DeviceContext(mSurface, 72.0 / PageDevice::UnitsPerInch);
    return true;
  }

  bool EndDocument(ExceptionMessage & error) override { return Check(error); }

  void AbortDocument() override { Discard(); }

  bool Finish(ExceptionMessage & error) override {
    if (mSurface == nullptr) {
      return true;  // nothing was started: the target stays as it was
    }
    DropContext();
    cairo_surface_finish(mSurface);
    bool ok = Check(error);
    cairo_surface_destroy(mSurface);
    mSurface = nullptr;
    if (ok && std::rename(mTemporary.c_str(), mPath.c_str()) != 0) {
      error = ExceptionMessage::translate("The file {1} cannot be written: {2}") % mPath %
              std::string(std::strerror(errno));
      ok = false;
    }
    if (!ok) {
      std::remove(mTemporary.c_str());
    }
    mTemporary.clear();
    return ok;
  }

private:
  ExceptionMessage SurfaceFailed(char const * reason) const override {
    return ExceptionMessage::translate("The file {1} cannot be written: {2}") % mPath % reason;
  }

  void Discard() {
    DropContext();
    if (mSurface != nullptr) {
      cairo_surface_finish(mSurface);
      cairo_surface_destroy(mSurface);
      mSurface = nullptr;
    }
    if (!mTemporary.empty()) {
      std::remove(mTemporary.c_str());
      mTemporary.clear();
    }
  }

  std::string mPath;
  std::string mTemporary;
};

}  // namespace

std::unique_ptr<PageOutput> PageOutput::Pdf(std::string path) {
  return std::make_unique<PdfPageOutput>(std::move(path));
}
