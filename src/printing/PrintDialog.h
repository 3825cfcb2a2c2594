#pragma once
// The print dialog and its data in the vocabulary of Windows' PrintDlg:
// flags, page ranges, copies, the device names and mode, and the device
// context it makes. The dialog itself is the desktop's (GTK's print
// dialog, where printing to a file is the road to PDF) behind a replaceable
// function, so that tests and unattended runs answer it.

#include <functional>
#include <memory>
#include <string>

#include "controls/CDC.h"
#include "printing/PageDevice.h"

class wxWindow;

// PRINTDLG flags.
constexpr DWORD PD_ALLPAGES = 0x00000000;
constexpr DWORD PD_SELECTION = 0x00000001;
constexpr DWORD PD_PAGENUMS = 0x00000002;
constexpr DWORD PD_NOSELECTION = 0x00000004;
constexpr DWORD PD_NOPAGENUMS = 0x00000008;
constexpr DWORD PD_COLLATE = 0x00000010;
constexpr DWORD PD_PRINTTOFILE = 0x00000020;
constexpr DWORD PD_PRINTSETUP = 0x00000040;
constexpr DWORD PD_NOWARNING = 0x00000080;
constexpr DWORD PD_RETURNDC = 0x00000100;
constexpr DWORD PD_RETURNIC = 0x00000200;
constexpr DWORD PD_RETURNDEFAULT = 0x00000400;
constexpr DWORD PD_USEDEVMODECOPIESANDCOLLATE = 0x00040000;
constexpr DWORD PD_DISABLEPRINTTOFILE = 0x00080000;
constexpr DWORD PD_HIDEPRINTTOFILE =
    0x00100000;  // not honoured: printing to a file is the road to PDF

// CommDlgExtendedError: the printer the device names name is not there.
constexpr DWORD PDERR_PRINTERNOTFOUND = 0x100C;

constexpr short DMORIENT_PORTRAIT = 1;
constexpr short DMORIENT_LANDSCAPE = 2;

// The printer's settings.
struct DEVMODEW {
  PaperFormat paper;  // its landscape flag follows dmOrientation
  short dmOrientation = DMORIENT_PORTRAIT;
  short dmCopies = 1;
  short dmCollate = 0;
};

// Which device: driver "PDF" writes the file named by output; driver
// "CUPS" prints to the queue named by device.
struct DEVNAMES {
  std::wstring driver;
  std::wstring device;
  std::wstring output;
};

struct PRINTDLGW {
  wxWindow * hwndOwner = nullptr;
  std::shared_ptr<DEVMODEW> hDevMode;   // null: the defaults
  std::shared_ptr<DEVNAMES> hDevNames;  // null: the default printer
  CDC * hDC = nullptr;                  // the dialog's, until taken
  DWORD Flags = 0;
  WORD nFromPage = 0;
  WORD nToPage = 0;
  WORD nMinPage = 0;
  WORD nMaxPage = 0;
  WORD nCopies = 1;
};
using PDW = PRINTDLGW;

// The paper of `mode`, turned as its orientation says.
PaperFormat PaperOf(DEVMODEW const & mode);

// The dialog: IDOK with `data` filled in (flags, pages, copies, device
// names and mode) or IDCANCEL with `data` as it was.
using PrintDialogFunction = std::function<int(PRINTDLGW & data)>;
// Installs `function` (empty: GTK's print dialog) and returns the former.
PrintDialogFunction SetPrintDialogFunction(PrintDialogFunction function);
// GTK's print dialog, modal over the owner's window: its printers, "Print
// to File" for PDF (no other format), pages unless PD_NOPAGENUMS, the
// selection unless PD_NOSELECTION, copies and collation.
int RunDesktopPrintDialog(PRINTDLGW & data);

// A new device for the names and mode; null when the printer is unknown.
std::unique_ptr<PageDevice> CreateDC(DEVNAMES const & names, DEVMODEW const * mode);

class CPrintDialog {
public:
  CPrintDialog(bool printSetupOnly, DWORD flags, wxWindow * parent);
  ~CPrintDialog();  // deletes a DC nobody took
  CPrintDialog(CPrintDialog const &) = delete;
  CPrintDialog & operator=(CPrintDialog const &) = delete;

  // IDOK or IDCANCEL; 0 when the dialog could not run (CommDlgExtendedError
  // says why). With PD_RETURNDC a device for the choice is in m_pd.hDC
  // (null if it could not be made); with PD_RETURNDEFAULT no dialog shows
  // and the default printer is chosen.
  int DoModal();
  DWORD CommDlgExtendedError() const { return mExtendedError; }

  // The copies of the choice: the device mode's with
  // PD_USEDEVMODECOPIESANDCOLLATE, else nCopies.
  int GetCopies() const;
  bool PrintCollate() const;
  // The dialog's device; the caller owns it. Null when there is none.
  std::unique_ptr<CDC> TakeDC();

  PRINTDLGW m_pd;

private:
  DWORD mExtendedError = 0;
};
