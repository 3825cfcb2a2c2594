#pragma once
// Where a PageDevice's pages go. The device brackets documents and pages;
// an output gives it a cairo context per page whose user space is the
// device's units (600 an inch, origin at the paper's top-left corner) and
// does what its medium needs at each bracket.

#include <memory>
#include <string>
#include <vector>

#include "utl/ExceptionMessage.h"

// cairo's types, declared as cairo declares them, so that users of this
// header need not find cairo's.
typedef struct _cairo cairo_t;                  // NOLINT(modernize-use-using)
typedef struct _cairo_surface cairo_surface_t;  // NOLINT(modernize-use-using)

class PageOutput {
public:
  virtual ~PageOutput();

  // The paper in points (1/72 inch), as the device turned it.
  void SetPaper(double widthPoints, double heightPoints);

  // The copies the medium makes itself; 0 when it makes none (the printer
  // then prints each copy).
  virtual int MaxCopies() const { return 0; }
  virtual void SetCopies(int /*copies*/) {}

  // False with `error` set when the medium refuses.
  virtual bool StartDocument(std::string const & name, ExceptionMessage & error) = 0;
  // A context for the new page, or null with `error` set.
  virtual cairo_t * StartPage(ExceptionMessage & error) = 0;
  virtual bool EndPage(ExceptionMessage & error) = 0;
  virtual bool EndDocument(ExceptionMessage & error) = 0;
  // Nothing of the open document reaches the medium.
  virtual void AbortDocument() = 0;
  // After the last document.
  virtual bool Finish(ExceptionMessage & error) = 0;

  // The finished pages' pictures, for the outputs that keep them.
  virtual std::vector<cairo_surface_t *> Pages() const { return {}; }

  static std::unique_ptr<PageOutput> Pdf(std::string path);
  static std::unique_ptr<PageOutput> Images(double pixelsPerInch);
  static std::unique_ptr<PageOutput> Printer(std::string name);

protected:
  // A new context on `surface` scaled from points to device units, with
  // unhinted font metrics, so text measures the same on every medium.
  cairo_t * DeviceContext(cairo_surface_t * surface, double unitsToSurface) const;

  double mWidthPoints = 0.0;
  double mHeightPoints = 0.0;
};
