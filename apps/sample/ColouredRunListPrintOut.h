#pragma once
// The run list as the sample prints it: a heading, then the runs in rows,
// every other row shaded, retired runs marked; as many pages as the rows
// need. In colour the heading and the shading are blue and retired runs
// red; in black and white they are greys.

#include <string>
#include <vector>

#include "printing/PrintOut.h"

struct PrintedRun {
  std::string name;
  bool retired;
};

class ColouredRunListPrintOut : public PrintOut {
public:
  ColouredRunListPrintOut(std::vector<PrintedRun> rows, bool blackAndWhite);

  // The pages the rows need on the device prepared last.
  int PageCount() const;

  void BeginPrinting() override {}
  std::string GetDocumentName() override { return "Runs"; }
  bool ContinuePrinting(int page) override { return page <= PageCount(); }
  void PrintPage(int page, RECT const & rect, DWORD flags) override;
  void GetPageInfo(int & minPage, int & maxPage, int & from, int & to) override;
  void Reserved() override {}
  void PrepareDevice(CDC & dc, wxSize const & pageSize) override;
  void StartDocument(int, int, DWORD) override {}
  void EndDocument() override {}
  void EndPrinting() override {}

private:
  int RowsPerPage() const;

  std::vector<PrintedRun> mRows;
  bool mBlackAndWhite;
  CDC * mDevice = nullptr;
  int mPageHeight = 0;
  int mUnitsPerInch = 600;
};
