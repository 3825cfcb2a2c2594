// The PDF output: one file for every document of the device's life. Pages
// go to a temporary file beside the target, which replaces the target only
// when cairo finished it without error.

#include <cairo-pdf.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <cairo.h>

#include "pictures/ReplacingFile.h"
#include "printing/PageDevice.h"
#include "printing/SurfacePageOutput.h"

namespace {

cairo_status_t WriteToFile(void * file, unsigned char const * data, unsigned int length) {
  return std::fwrite(data, 1, length, static_cast<std::FILE *>(file)) == length
             ? CAIRO_STATUS_SUCCESS
             : CAIRO_STATUS_WRITE_ERROR;
}

class PdfPageOutput : public SurfacePageOutput {
public:
  explicit PdfPageOutput(std::string path) : mPath(path), mFile(std::move(path)) {}
  ~PdfPageOutput() override { Discard(); }

  bool StartDocument(std::string const & name, ExceptionMessage & error) override {
    if (mSurface != nullptr) {
      return true;  // a further document of the same run: more pages of the file
    }
    std::FILE * file = mFile.Open();
    if (file == nullptr) {
      error = SurfaceFailed(std::strerror(errno));
      return false;
    }
    mSurface = cairo_pdf_surface_create_for_stream(WriteToFile, file, mWidthPoints, mHeightPoints);
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
    if (ok && !mFile.Commit()) {
      error = SurfaceFailed(std::strerror(errno));
      ok = false;
    }
    mFile.Discard();
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
    mFile.Discard();
  }

  std::string mPath;
  ReplacingFile mFile;
};

}  // namespace

std::unique_ptr<PageOutput> PageOutput::Pdf(std::string path) {
  return std::make_unique<PdfPageOutput>(std::move(path));
}
