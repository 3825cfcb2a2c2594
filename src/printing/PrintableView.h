#pragma once
// What the backstage print page previews: the active view of a frame, which
// makes a printout of its document. A frame that has such views implements
// PrintViewFrame; the page finds it as its own top-level window, else as the
// application's main window.

#include <memory>

class PrintOut;

class PrintableView {
public:
  virtual ~PrintableView() = default;
  // A new printout of what the view shows; null when it has nothing to print.
  virtual std::unique_ptr<PrintOut> CreatePrintOut() = 0;
  // The preview of this view has ended (the page was left).
  virtual void OnEndPrintPreview() {}
};

class PrintViewFrame {
public:
  virtual ~PrintViewFrame() = default;
  // The view whose document would be printed now; null for none.
  virtual PrintableView * GetActivePrintView() = 0;
};
