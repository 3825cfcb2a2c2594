#pragma once
// The sample's printing: File > Print prints the run list as it is shown,
// a heading and up to a page of runs on each page, the footer line at the
// bottom; File > Print window prints the main window under the footer.
// Both go through the print dialog, where "Print to File" makes a PDF.

#include <functional>
#include <string>
#include <vector>

#include "printing/PrintOut.h"

class wxFrame;
class wxMenu;

// Appends the commands to `fileMenu` and handles them on `frame`; `rows`
// gives the runs that Print prints.
void AddPrintCommands(wxFrame & frame, wxMenu & fileMenu,
                      std::function<std::vector<std::string>()> const & rows);

// The run list as pages.
class RunListPrintOut : public PrintOut {
public:
  explicit RunListPrintOut(std::vector<std::string> runs);

  void BeginPrinting() override {}
  std::string GetDocumentName() override;
  bool ContinuePrinting(int page) override;
  void PrintPage(int page, RECT const & printable, DWORD flags) override;
  void GetPageInfo(int & minPage, int & maxPage, int & selectionFrom, int & selectionTo) override;
  void Reserved() override {}
  void PrepareDevice(CDC & dc, wxSize const & pageSize) override;
  void StartDocument(int firstPage, int lastPage, DWORD flags) override;
  void EndDocument() override {}
  void EndPrinting() override {}

  int PageCount() const;

private:
  std::vector<std::string> mRuns;
  CDC * mDc = nullptr;
  int mLineHeight = 1;
  int mRunsPerPage = 1;
  std::string mFooter;
};
