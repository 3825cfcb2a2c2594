#pragma once
// A page of a property sheet or wizard (VxPropertySheet).
//
// Life cycle, as a VxDialog's: the object is built with the number of its
// template and may live on the stack. The sheet gives it an empty window
// when the sheet's window is made; the template's controls come at the
// page's first activation (OnInitDialog runs then), and the window goes
// with them at the end of the run. The page object is an event handler in
// front of its window: Bind on the page reaches the page's controls, and
// the page's guard (controls/ExceptionGuarded.h) stops failures of every
// handler of the page and its controls.
//
// Change state: Changed and Unchanged mark the page and keep the helper's
// count of changed pages; SetModified enables the sheet's Apply button.

#include <cstdint>
#include <set>

#include <wx/event.h>
#include <wx/panel.h>
#include <wx/string.h>
#include <wx/weakref.h>

#include "controls/ExceptionGuarded.h"
#include "dialogs/ResizableLayout.h"

class BasePropertyPageHelper;
class VxPropertySheet;
class wxMenu;

class VxPropertyPage : public ExceptionGuarded<wxEvtHandler> {
public:
  // No help topic.
  static constexpr unsigned kNoHelpTopic = static_cast<unsigned>(-1);

  // `captionId` 0 takes the template's title for the tab.
  explicit VxPropertyPage(unsigned templateId, unsigned captionId = 0,
                          BasePropertyPageHelper * helper = nullptr,
                          unsigned helpTopic = kNoHelpTopic);
  VxPropertyPage(VxPropertyPage const &) = delete;
  VxPropertyPage & operator=(VxPropertyPage const &) = delete;
  // Leaves its sheet and takes its window along.
  ~VxPropertyPage() override;

  virtual void Changed();
  virtual void Unchanged();
  virtual bool IsChanged() const { return mChanged; }
  // Shows the page's help topic; the Help button and F1 reach it.
  virtual void OnHelp();
  virtual void SetPropertyPageHelper(BasePropertyPageHelper * helper) { mHelper = helper; }
  virtual BasePropertyPageHelper * GetPropertyPageHelper() const { return mHelper; }
  // References of the modeless sheet's handlers; ReleaseRef stops at 0.
  virtual void AddRef() { ++mRefs; }
  virtual void ReleaseRef() {
    if (mRefs > 0) --mRefs;
  }
  virtual std::uint64_t CountRefs() const { return mRefs; }

  VxPropertySheet * GetSheet() const { return mSheet; }
  bool IsFirstPage() const;
  // The tab's text: the page title when one was set, else the caption
  // string, else the template's title.
  wxString GetPageTitle() const;
  void SetPageTitle(wchar_t const * title);
  // In a wizard, the title shown above every page (the window's title).
  void SetWizardCaption(wchar_t const * caption);
  void SetHelpTopicID(unsigned topic) { mHelpTopic = topic; }
  unsigned GetHelpTopicID() const { return mHelpTopic; }
  bool HasHelp() const { return mHelpTopic != kNoHelpTopic && mHelpTopic != 0; }
  unsigned GetTemplateID() const { return mTemplateId; }

  // Enables (true) the sheet's Apply button; it stays enabled while any
  // page is modified.
  void SetModified(bool modified = true);
  bool IsModified() const { return mModified; }

  // The page's window from the sheet's start to the run's end, else null.
  wxWindow * GetSafeHwnd() const { return mWindow; }
  // A control of the page (built at first activation), or null.
  wxWindow * GetDlgItem(int id) const;
  bool UpdateData(bool saveAndValidate = true) { return DoDataExchange(saveAndValidate); }
  void AddAnchor(int controlId, ANCHOR topLeft, ANCHOR bottomRight = NOANCHOR);

  // Popup menus of the page: items of commands the page registered are
  // enabled, all others disabled (when update-menu-items is on, the
  // default), then update-UI handlers have the last word.
  void RegisterCommand(int id) { mCommands.insert(id); }
  void SetUpdateMenuItems(bool update) { mUpdateMenuItems = update; }
  void PopupMenu(wxMenu & menu, wxPoint const & position = wxDefaultPosition);

  // Called by the sheet.
  virtual bool OnInitDialog();
  virtual bool OnSetActive();
  // Reads the controls (DoDataExchange); false keeps the page active.
  virtual bool OnKillActive();
  virtual void OnOK() {}
  virtual void OnCancel();
  // Applies the page's changes; false keeps the page changed and the sheet
  // open.
  virtual bool OnApply();
  // 0 goes to the neighbouring page, -1 stays, another value is the
  // template id of the page to go to.
  virtual int OnWizardBack() { return 0; }
  virtual int OnWizardNext() { return 0; }
  virtual bool OnWizardFinish();
  virtual bool DoDataExchange(bool) { return true; }

protected:
  // The window's layout keeps anchored controls in place.
  CResizableLayout * Layout() const;
  // The page's window is about to go (end of the run, page removed).
  virtual void OnDestroy() {}

  // The empty window in `parent` (a sheet's book, or a page for an inner
  // page); controls follow at BuildControls.
  wxWindow * CreatePageWindow(wxWindow * parent);
  // First activation: the template's controls and OnInitDialog. False when
  // the template cannot be built (the page stays empty).
  bool BuildControls();
  bool IsBuilt() const { return mBuilt; }
  void DestroyPageWindow();

private:
  friend class VxPropertySheet;
  void Attach(VxPropertySheet * sheet) { mSheet = sheet; }
  wxString CaptionText() const;

  unsigned mTemplateId;
  unsigned mCaptionId;
  unsigned mHelpTopic;
  BasePropertyPageHelper * mHelper;
  VxPropertySheet * mSheet = nullptr;
  wxWeakRef<wxPanel> mWindow;
  // Read from the template when first needed.
  mutable wxSize mTemplateSize = wxDefaultSize;
  mutable wxString mTemplateTitle;
  mutable bool mTemplateRead = false;
  wxString mPageTitle;
  std::set<int> mCommands;
  std::uint64_t mRefs = 0;
  bool mChanged = false;
  bool mModified = false;
  bool mBuilt = false;
  bool mUpdateMenuItems = true;
};
