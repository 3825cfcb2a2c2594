#pragma once
// The live preview of the backstage print page: the pages of a printout,
// drawn by the page device into pictures at the resolution that fits the
// pane, on a grey ground with a shadow, one page by default. A small tool
// bar above them switches between one page and several.
//
// Render draws the pages anew with the printer settings of the moment (the
// paper and its orientation); painting only shows what was drawn.

#include <memory>

#include <wx/image.h>
#include <wx/window.h>

#include "platform/MenuCommandIds.h"

class PageDevice;
class PrintOut;
class wxPrintData;
class wxToolBar;

class PrintPreviewPane : public wxWindow {
public:
  // The preview tool bar's command 59394 as a window id (wx takes ids
  // below 0x7fff).
  static constexpr int kToolBarId = MenuItemIdFromCommand(59394);
  enum ToolId : int { kOnePageTool = 1, kPageCountTool = 2 };
  // The numbers of pages the page-count tool offers.
  static constexpr int kMaxPagesShown = 4;

  PrintPreviewPane(wxWindow * parent, wxWindowID id, std::unique_ptr<PrintOut> printOut);
  ~PrintPreviewPane() override;

  // Draws the pages shown with `printer`'s paper and orientation. False
  // when the printout drew nothing (no page, or the device failed).
  bool Render(wxPrintData const & printer);

  void SetPagesShown(int count);
  int GetPagesShown() const { return mPagesShown; }
  // The pages drawn by the last Render, at the pane's resolution.
  int PageCount() const { return mPageCount; }
  wxSize PageSize() const { return mPageSize; }
  // Page `index` as drawn; an empty picture for no such page.
  wxImage PageImage(int index) const;
  wxToolBar * GetToolBar() const { return mToolBar; }
  PrintOut & GetPrintOut() const { return *mPrintOut; }
  // Takes a new printout of the same view (its settings changed); Render
  // draws it.
  void SetPrintOut(std::unique_ptr<PrintOut> printOut);

private:
  void OnPaint(wxPaintEvent & event);
  void OnSize(wxSizeEvent & event);
  void OnPageCountTool();
  // Where the pages go: the client area below the tool bar.
  wxRect PageArea() const;

  std::unique_ptr<PrintOut> mPrintOut;
  std::unique_ptr<wxPrintData> mPrinter;  // of the last Render
  wxToolBar * mToolBar = nullptr;
  std::unique_ptr<PageDevice> mDevice;  // holds the pictures of the pages
  int mPageCount = 0;
  wxSize mPageSize;
  int mPagesShown = 1;
  wxSize mRenderedFor;
};
