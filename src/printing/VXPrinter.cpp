#include "printing/VXPrinter.h"

#include <algorithm>
#include <climits>

#include <wx/app.h>
#include <wx/utils.h>
#include <wx/window.h>
#include <boost/locale/encoding_utf.hpp>

#include "dialogs/PrinterList.h"
#include "platform/WinUser.h"
#include "printing/PrinterDeviceDefaults.h"
#include "utl/Exception.h"

namespace {

// The wait cursor until the device is known; gone on every way out.
class WaitCursor {
public:
  WaitCursor() { wxBeginBusyCursor(); }
  ~WaitCursor() { Restore(); }
  WaitCursor(WaitCursor const &) = delete;
  WaitCursor & operator=(WaitCursor const &) = delete;
  void Restore() {
    if (mOn) {
      wxEndBusyCursor();
      mOn = false;
    }
  }

private:
  bool mOn = true;
};

// The parent takes no input while pages are made.
class DisabledWindow {
public:
  explicit DisabledWindow(wxWindow * window)
      : mWindow(window != nullptr && window->IsEnabled() ? window : nullptr) {
    if (mWindow != nullptr) {
      mWindow->Disable();
    }
  }
  ~DisabledWindow() {
    if (mWindow != nullptr) {
      mWindow->Enable();
    }
  }
  DisabledWindow(DisabledWindow const &) = delete;
  DisabledWindow & operator=(DisabledWindow const &) = delete;

private:
  wxWindow * mWindow;
};

WORD Clamp(int value, int low, int high) {
  return static_cast<WORD>(std::clamp(value, low, std::max(low, high)));
}

}  // namespace

VXPrinter::VXPrinter()
    : mDialog(new CPrintDialog(false,
                               PD_NOSELECTION | PD_NOPAGENUMS | PD_COLLATE | PD_HIDEPRINTTOFILE,
                               wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr)) {}

VXPrinter::VXPrinter(VXPrinter const & other) = default;
VXPrinter & VXPrinter::operator=(VXPrinter const & other) = default;
VXPrinter::~VXPrinter() = default;

bool VXPrinter::ExecPrintDialog(wxWindow * parent) {
  mDialog->m_pd.hwndOwner = parent != nullptr ? parent : mDialog->m_pd.hwndOwner;
  return DoPrintDialog(*mDialog) == IDOK;
}

bool VXPrinter::PrinterSetup(wxWindow * parent) { return ExecPrintDialog(parent); }

PDW VXPrinter::GetSetup() const { return mDialog->m_pd; }

int VXPrinter::GetSetupError() const { return mSetupError; }

std::unique_ptr<CDC> VXPrinter::TransferDC() { return mDialog->TakeDC(); }

void VXPrinter::ClearDevice() {
  mDialog->m_pd.hDevMode.reset();
  mDialog->m_pd.hDevNames.reset();
}

bool VXPrinter::Print(wxWindow * parent, PrintOut & out, bool showDialog) {
  mSetupError = 1;
  WaitCursor cursor;
  PRINTDLGW & pd = mDialog->m_pd;

  int minPage = 0;
  int maxPage = 0;
  int first = 0;
  int last = 0;
  out.GetPageInfo(minPage, maxPage, first, last);
  pd.nMinPage = static_cast<WORD>(minPage);
  pd.nMaxPage = static_cast<WORD>(maxPage);
  pd.Flags = first == 0 ? pd.Flags | PD_NOSELECTION : pd.Flags & ~PD_NOSELECTION;
  if (minPage == 0) {
    pd.Flags |= PD_NOPAGENUMS;
  } else {
    pd.Flags &= ~PD_NOPAGENUMS;
    pd.nFromPage = Clamp(pd.nFromPage, minPage, maxPage);
    pd.nToPage = Clamp(pd.nToPage, minPage, maxPage);
  }

  std::unique_ptr<CDC> dc;
  if (!showDialog) {
    if (!pd.hDevNames) {
      PrinterListing const printers = ListPrinters();
      if (!printers.names.empty()) {
        pd.hDevNames = std::make_shared<DEVNAMES>(DEVNAMES{
            L"CUPS", boost::locale::conv::utf_to_utf<wchar_t>(printers.names.front()), L""});
      }
    }
    if (!pd.hDevMode) {
      pd.hDevMode = std::make_shared<DEVMODEW>();
      ApplyPrinterDeviceDefaults(*pd.hDevMode);
    }
    if (pd.hDevNames) {
      dc = CreateDC(*pd.hDevNames, pd.hDevMode.get());
    }
  } else {
    pd.Flags = (pd.Flags & ~(PD_RETURNDEFAULT | PD_PRINTSETUP)) | PD_RETURNDC;
    pd.hwndOwner = parent != nullptr ? parent : pd.hwndOwner;
    if (DoPrintDialog(*mDialog) != IDOK) {
      if (mDialog->CommDlgExtendedError() != PDERR_PRINTERNOTFOUND) {
        return false;
      }
      ClearDevice();  // the printer chosen last time is gone: choose again
      if (DoPrintDialog(*mDialog) != IDOK) {
        return false;
      }
    }
    dc = TransferDC();
  }
  if (!dc) {
    throw Exception();
  }

  mWidth = dc->GetDeviceCaps(HORZRES);
  mHeight = dc->GetDeviceCaps(VERTRES);
  out.PrepareDevice(*dc, wxSize(mWidth, mHeight));
  cursor.Restore();
  DisabledWindow const disabled(parent);
  mPrintable = RECT{0, 0, mWidth, mHeight};

  int deviceCopies = 1;
  if ((pd.Flags & PD_COLLATE) == 0) {
    int asked = mDialog->GetCopies();
    int taken = 0;
    if (dc->Escape(GETSETCOPYCOUNT, sizeof asked, &asked, &taken) > 0) {
      deviceCopies = std::max(taken, 1);
    }
  }
  int const devicesOwn = deviceCopies;

  if ((pd.Flags & PD_SELECTION) != 0 && first != 0) {
    // the selection's pages, as GetPageInfo gave them
  } else if ((pd.Flags & PD_PAGENUMS) != 0) {
    first = pd.nFromPage;
    last = pd.nToPage;
  } else {
    first = pd.nMinPage != 0 ? pd.nMinPage : 1;
    last = INT_MAX;
  }

  out.BeginPrinting();
  mCopiesLeft = mDialog->GetCopies();
  std::wstring const port = pd.hDevNames ? pd.hDevNames->output : std::wstring();
  while (mCopiesLeft >= 1 && mSetupError > 0) {
    if (deviceCopies > 1 && mCopiesLeft < deviceCopies) {
      int asked = mCopiesLeft;
      int taken = 0;
      dc->Escape(GETSETCOPYCOUNT, sizeof asked, &asked, &taken);
      deviceCopies = std::max(taken, 1);
    }
    std::wstring const name = boost::locale::conv::utf_to_utf<wchar_t>(out.GetDocumentName());
    DOCINFOW const info{sizeof(DOCINFOW), name.c_str(), port.empty() ? nullptr : port.c_str(),
                        nullptr, 0};
    mSetupError = dc->StartDoc(info);
    out.StartDocument(first, last, pd.Flags);
    for (int page = first; mSetupError > 0; ++page) {
      if (page > last || !out.ContinuePrinting(page)) {
        break;
      }
      mSetupError = dc->StartPage();
      if (mSetupError > 0 && mPrintable.right > mPrintable.left &&
          mPrintable.bottom > mPrintable.top) {
        out.PrintPage(page, mPrintable, pd.Flags);
      }
      if (mSetupError > 0) {
        int const ended = dc->EndPage();
        mSetupError = ended == 0 ? 1 : ended;
      }
      if (page == INT_MAX) {
        break;
      }
    }
    if (mSetupError > 0) {
      dc->EndDoc();
    } else {
      dc->AbortDoc();  // nothing half printed reaches the medium
    }
    out.EndDocument();
    mCopiesLeft -= deviceCopies;
  }
  out.EndPrinting();
  if (devicesOwn > 1) {
    int one = 1;
    dc->Escape(GETSETCOPYCOUNT, sizeof one, &one, nullptr);
  }
  auto * device = dynamic_cast<PageDevice *>(dc.get());
  if (device != nullptr && !device->Close() && mSetupError > 0) {
    mSetupError = SP_ERROR;
  }
  return mSetupError > 0;
}
