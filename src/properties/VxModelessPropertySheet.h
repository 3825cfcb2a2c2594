#pragma once
// The application's one Properties window: a modeless sheet whose pages
// follow the current selection. The selection's handler
// (VxPropertiesHandler) adds its pages with AddRefCountedPage; a page that
// the old and the new handler share is kept as it is (its controls and
// state stay), the others come and go by their reference counts.
//
//   VxModelessPropertySheet::Instance()->Create();   // shows it
//   VxModelessPropertySheet::Instance()->ChangePropertiesHandler(&runHandler);
//
// OK, Cancel and closing hide it and release the handler's pages; the
// object lives until the library's shutdown module deletes it, before wx
// deletes the remaining top-level windows.

#include <vector>

#include "properties/PropertyPageListener.h"
#include "properties/VxPropertySheet.h"

class VxPropertiesHandler;

class VxModelessPropertySheet : public VxPropertySheet, public PropertyPageListener {
public:
  // Made on first use, without a parent.
  static VxModelessPropertySheet * Instance();
  // Whether Instance has made it (and it was not deleted since).
  static bool Exists();
  // Deletes the sheet (shutdown); its pages stay with their owners.
  static void Release();

  // Adds a reference to `page` and queues it for the sheet unless the sheet
  // has it already. Null is ignored.
  void AddRefCountedPage(VxPropertyPage * page);
  // Swaps the pages for those of `handler` (null: none).
  void ChangePropertiesHandler(VxPropertiesHandler * handler);
  VxPropertiesHandler * GetPropertiesHandler() const { return mHandler; }

  // The helper updated: the present handler's pages are asked for again.
  void ListenerUpdate() override;

  void OnOK() override;
  void OnCancel() override;

  // A tool window: it does not keep the application running.
  bool ShouldPreventAppExit() const override { return false; }

protected:
  bool OnInitDialog() override;
  void OnClose() override;

private:
  VxModelessPropertySheet();
  ~VxModelessPropertySheet() override;
  // After the window hid: the pages go back to their owners.
  void ReleaseIfHidden();

  std::vector<VxPropertyPage *> mQueued;
  VxPropertiesHandler * mHandler = nullptr;
};
