#pragma once
// What the application's current selection offers to the Properties window
// (VxModelessPropertySheet): its pages, the page to show, and the helper
// behind them.

class BasePropertyPageHelper;
class VxModelessPropertySheet;
class VxPropertyPage;

class VxPropertiesHandler {
public:
  virtual ~VxPropertiesHandler() = default;

  // Hands every page the selection wants to sheet.AddRefCountedPage; pages
  // the previous handler had too stay as they are.
  virtual void AddPropertyPages(VxModelessPropertySheet & sheet) = 0;
  // The page to show, given the one shown before (null if none, or one
  // this handler does not have).
  virtual VxPropertyPage * ChooseActivePage(VxPropertyPage * previous) = 0;
  // The helper whose updates refresh the sheet, or null.
  virtual BasePropertyPageHelper * GetPropertyPageHelper() = 0;
};
