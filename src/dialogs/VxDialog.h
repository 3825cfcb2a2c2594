#pragma once
// The base of every dialog of the library.
//
// Life cycle: the object is built with the number of its template (XRC, see
// platform/ResourceModule.h). DoModal makes the controls from the template,
// runs OnInitDialog before the window shows, runs the dialog modally, then
// destroys the controls and returns a Windows id (IDOK, IDCANCEL...; -1 when
// the template cannot be built). The object lives on and can run again: its
// data members carry what the user entered, pointers to controls do not
// survive a run.
//
// Commands: button 1 (IDOK) reaches OnOK, button 2 (IDCANCEL), Escape and
// the close box reach OnCancel, button 9 (IDHELP) OnHelp. Exceptions out of
// any handler, OnInitDialog included, stop at the dialog's guard
// (controls/ExceptionGuarded.h) by its mask.

#include <wx/dialog.h>
#include <wx/event.h>
#include <wx/weakref.h>

#include "controls/ExceptionGuarded.h"
#include "dialogs/ResizableDialog.h"

class VxDialog : public ExceptionGuarded<CResizableDialog> {
public:
  VxDialog();
  explicit VxDialog(unsigned int templateId, wxWindow * parent = nullptr,
                    unsigned int helpTopicId = 0);
  // `templateName` is the template's number in decimal, optionally after
  // "#" as MAKEINTRESOURCE names were written.
  VxDialog(wchar_t const * templateName, wxWindow * parent, unsigned int helpTopicId);
  ~VxDialog() override;

  virtual int DoModal();
  // Ends a modal run with `result`; called before the dialog shows (from
  // OnInitDialog), the dialog is not shown at all.
  void EndDialog(int result);

  // Moves data between the controls and the members: `saveAndValidate`
  // true reads the controls, false fills them. False when a value is refused.
  bool UpdateData(bool saveAndValidate = true);

  // The control with `id`, or null.
  wxWindow * GetDlgItem(int id) const;

  // Dialog units to pixels. Both scale by the height of 1000 x 1000 units
  // mapped to pixels: horizontal layout of the library is in vertical units.
  int FromDlgX(int units) const;
  int FromDlgY(int units) const;

  void ShowMaximiseButton();

  using ExceptionGuarded::SetExceptionsHandled;
  // Reads the mask (the name is kept from the library's first release).
  int SetExceptionsHandled() const { return GetExceptionsHandled(); }

  unsigned int GetHelpTopicID() const { return mHelpTopicId; }
  void SetHelpTopicID(unsigned int id) { mHelpTopicId = id; }
  unsigned int GetTemplateID() const { return mTemplateId; }

  // Shows the help topic; does nothing without one.
  virtual void OnHelp();
  // Help is enabled when there is a topic (neither 0 nor -1) and help can
  // be shown at all.
  virtual void OnUpdateHelp(wxUpdateUIEvent & event);

protected:
  // The owner of a dialog built without a parent: the dialog running modally
  // above the main window, else the main window; null without either.
  static wxWindow * GetDialogParent();

  // Runs after the controls exist and before the window shows.
  virtual bool OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();
  // The data exchange behind UpdateData; the base has nothing to move.
  virtual bool DoDataExchange(bool saveAndValidate);
  // Sees every key press first; true when it used the key up.
  virtual bool PreTranslateMessage(wxKeyEvent & event);

private:
  void BindCommands();
  bool CreateFromTemplate();
  void SendCommand(int id);
  void OnButton(wxCommandEvent & event);
  void OnCharHook(wxKeyEvent & event);
  void OnClose(wxCloseEvent & event);

  unsigned int mTemplateId = 0;
  unsigned int mHelpTopicId = 0;
  wxWeakRef<wxWindow> mParent;
  long mExtraStyle = kResizableStyle;
  bool mInitialising = false;
  bool mEndedEarly = false;
  int mEarlyResult = 0;
};
