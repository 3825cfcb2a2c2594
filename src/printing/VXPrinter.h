#pragma once
// A print job: the print dialog's state, kept across jobs, and the loop
// over copies, documents and pages that a PrintOut paints.

#include <memory>

#include <boost/shared_ptr.hpp>

#include "platform/WinGeometry.h"
#include "printing/PrintDialog.h"
#include "printing/PrintOut.h"

class wxWindow;

class VXPrinter {
public:
  // The dialog's flags start as PD_NOSELECTION | PD_NOPAGENUMS |
  // PD_COLLATE | PD_HIDEPRINTTOFILE, over the application's main window.
  VXPrinter();
  // Copies share the dialog, and so its choices.
  VXPrinter(VXPrinter const & other);
  VXPrinter & operator=(VXPrinter const & other);
  virtual ~VXPrinter();

  // The print dialog, opening with the printer defaults' orientation
  // (PrinterDeviceDefaults), which an accepted choice updates; true on IDOK.
  bool ExecPrintDialog(wxWindow * parent);
  // The dialog as it stands, modal; true on IDOK.
  bool PrinterSetup(wxWindow * parent);
  PDW GetSetup() const;
  // The last job's status: above 0 when it went well.
  int GetSetupError() const;
  // The dialog's device, or null; the caller owns it.
  std::unique_ptr<CDC> TransferDC();

  // Prints `out`: through the dialog when `showDialog`, else on the device
  // its names give. Pages take the printer defaults' orientation (the
  // backstage print page's choice) unless the dialog chose another. False on a cancel or a failing
  // device; throws an Exception when no device can be had at all.
  virtual bool Print(wxWindow * parent, PrintOut & out, bool showDialog);

protected:
  // Forgets the chosen printer and its settings.
  void ClearDevice();

private:
  boost::shared_ptr<CPrintDialog> mDialog;
  RECT mPrintable{0, 0, 0, 0};
  int mSetupError = 0;
  int mCopiesLeft = 0;
  int mWidth = 0;
  int mHeight = 0;
};
