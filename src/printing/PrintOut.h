#pragma once
// What an application prints through VXPrinter: it knows its pages and
// paints each on the device it was given in PrepareDevice. The slots keep
// their order; the sixth is not called by the printer.

#include <string>

#include <wx/gdicmn.h>

#include "controls/CDC.h"
#include "platform/WinGeometry.h"

class PrintOut {
public:
  virtual ~PrintOut();

  // Once, before the first copy.
  virtual void BeginPrinting() = 0;
  // At the start of each document (each copy the printer does not make
  // itself); UTF-8.
  virtual std::string GetDocumentName() = 0;
  // Before each page; false ends the document.
  virtual bool ContinuePrinting(int page) = 0;
  // Paints `page` inside `printable` (device units); `flags` are the print
  // dialog's PD_ flags.
  virtual void PrintPage(int page, RECT const & printable, DWORD flags) = 0;
  // At the start: the pages there are (0 for minPage: no page numbers to
  // choose) and the selection's first and last page (0: no selection).
  virtual void GetPageInfo(int & minPage, int & maxPage, int & selectionFrom,
                           int & selectionTo) = 0;
  // Not called by the printer.
  virtual void Reserved() = 0;
  // When the device is known; `pageSize` in device units.
  virtual void PrepareDevice(CDC & dc, wxSize const & pageSize) = 0;
  // After each StartDoc.
  virtual void StartDocument(int firstPage, int lastPage, DWORD flags) = 0;
  // After each document, printed or not.
  virtual void EndDocument() = 0;
  // Once, at the end.
  virtual void EndPrinting() = 0;
};
