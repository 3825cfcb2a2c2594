#pragma once
// The family's tabbed dialog and wizard.
//
// Pages (VxPropertyPage) are added before the run and belong to the caller.
// The sheet's window has a notebook (a plain book in a wizard) over the
// buttons OK (1), Cancel (2), Apply (12321) and Help (9), or Back (12323),
// Next (12324), Finish (12325), Cancel and Help. A page's controls come at
// its first activation; ApplyAllNow still applies pages that were never
// opened but hold changes. Apply is enabled while a page is modified.
//
//   VxPropertySheet sheet(L"Run settings");
//   GeneralPage general;  LimitsPage limits;       // on the stack
//   sheet.AddPage(&general);  sheet.AddPage(&limits);
//   if (sheet.DoModal() == IDOK) ...
//
// The sheet's and its pages' handlers run under the guard of
// controls/ExceptionGuarded.h.

#include <vector>

#include <wx/string.h>
#include <wx/weakref.h>

#include "controls/ExceptionGuarded.h"
#include "dialogs/ResizableDialog.h"

class VxPropertyPage;
class wxBookCtrlBase;
class wxBookCtrlEvent;
class wxBoxSizer;
class wxButton;

// The buttons of the sheet beside IDOK, IDCANCEL and IDHELP.
constexpr int ID_APPLY_NOW = 12321;
constexpr int ID_WIZBACK = 12323;
constexpr int ID_WIZNEXT = 12324;
constexpr int ID_WIZFINISH = 12325;

// SetWizardButtons flags.
constexpr unsigned long PSWIZB_BACK = 0x1;
constexpr unsigned long PSWIZB_NEXT = 0x2;
constexpr unsigned long PSWIZB_FINISH = 0x4;
constexpr unsigned long PSWIZB_DISABLEDFINISH = 0x8;

class VxPropertySheet : public ExceptionGuarded<CResizableDialog> {
public:
  // The caption is string `captionId`, translated.
  explicit VxPropertySheet(unsigned captionId, wxWindow * parent = nullptr,
                           unsigned selectPage = 0);
  explicit VxPropertySheet(wchar_t const * caption, wxWindow * parent = nullptr,
                           unsigned selectPage = 0);
  VxPropertySheet(VxPropertySheet const &) = delete;
  VxPropertySheet & operator=(VxPropertySheet const &) = delete;
  // Its pages live on: they are taken out first.
  ~VxPropertySheet() override;

  // Before the window is made: the sheet runs as a wizard.
  void SetWizardMode() { mWizard = true; }
  bool IsWizard() const { return mWizard; }
  bool IsModeless() const { return mModeless; }

  // Runs modally; IDOK, IDCANCEL or ID_WIZFINISH (-1 when the window
  // cannot be made). The pages' windows go at the end; the objects stay.
  virtual int DoModal();
  // Makes and shows the window without a modal run. False if it exists.
  bool Create(wxWindow * parent = nullptr);
  // Ends the run with `result`; a modeless sheet is hidden.
  void EndDialog(int result);

  void AddPage(VxPropertyPage * page);
  void RemovePage(VxPropertyPage * page);
  void RemovePage(int index);
  int GetPageCount() const { return static_cast<int>(mPages.size()); }
  // Throws CInvalidArgException (as a CException *) for an index out of range.
  VxPropertyPage * GetPage(int index) const;
  int GetPageIndex(VxPropertyPage const * page) const;
  VxPropertyPage * GetActivePage() const;
  int GetActiveIndex() const;
  // Kills the active page (it may refuse: false) and activates the other.
  bool SetActivePage(int index);
  bool SetActivePage(VxPropertyPage * page);

  // Back, Next, Finish: PSWIZB_... flags; Finish shows with PSWIZB_FINISH
  // or PSWIZB_DISABLEDFINISH and is enabled with PSWIZB_FINISH.
  virtual void SetWizardButtons(unsigned long flags);
  // Applies every page that holds changes, and, unless modeless, every page
  // that was opened; a page's apply may change others, so the search starts
  // over after each. False when a page refused (the rest are not applied).
  virtual bool ApplyAllNow();
  virtual void OnOK();
  virtual void OnCancel();
  virtual void OnApply();
  // Marks every page unchanged.
  void ClearChanged();
  bool IsChanged() const;

  // The window's place and size are kept in the profile section `name`
  // (e.g. "WindowPos\Properties") and come back at the next start.
  void EnableSaveRestore(wchar_t const * name);

  // Called by pages.
  void UpdateApplyButton();
  void ShowPageTitle(VxPropertyPage * page);

protected:
  // Runs after the window and the active page exist, before it shows.
  virtual bool OnInitDialog();
  // Whether OK, Cancel and Apply show in a modeless sheet (they do not by
  // default: a modeless sheet is closed by its owner).
  void SetKeepModalLayout(bool keep) { mKeepModalLayout = keep; }
  virtual void OnClose();
  // While on, adding or removing pages activates none: the caller chooses
  // the active page afterwards (SetActivePage).
  void DeferActivation(bool defer) { mSwitching = defer; }

private:
  bool MakeWindow(wxWindow * parent);
  void AddButtons(wxBoxSizer & row);
  void AddTab(VxPropertyPage * page);
  void GrowToPages();
  void Activate(int index);
  void WizardStep(int direction);
  void Finish();
  void OnButton(wxCommandEvent & event);
  void OnCharHook(wxKeyEvent & event);
  void OnPageChanging(wxBookCtrlEvent & event);
  void SaveWindowPlace();
  void RestoreWindowPlace();
  void ReleasePageWindows();

  std::vector<VxPropertyPage *> mPages;  // not owned
  wxString mCaption;
  wxWeakRef<wxWindow> mParent;
  wxBookCtrlBase * mBook = nullptr;
  wxString mSaveName;
  unsigned mSelectPage;
  int mActive = -1;
  unsigned long mWizardFlags = PSWIZB_BACK | PSWIZB_NEXT;
  bool mWizard = false;
  bool mModeless = false;
  bool mKeepModalLayout = false;
  bool mSwitching = false;
};
