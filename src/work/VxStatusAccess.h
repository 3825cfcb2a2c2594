#pragma once
// The road from Progress to a status bar: any main frame whose status bar
// implements this interface shows progress in panes of its own.

class wxString;
class wxWindow;

class VxStatusAccess {
public:
  virtual ~VxStatusAccess() = default;

  // The index of the pane with this id, or -1.
  virtual int CommandToIndex(unsigned int id) const = 0;
  virtual void SetPaneText(int index, wxString const & text, int update) = 0;
  // Shows `window` in the pane `id`; makes that pane (of `width` pixels, at
  // `index`) first when there is none.
  virtual bool InsertWindow(wxWindow * window, int width, int index, unsigned int id) = 0;
  // Hides the pane `id` (hideOnly) or removes it; the window is not deleted.
  virtual void RemoveWindow(wxWindow * window, bool hideOnly, unsigned int id) = 0;
  virtual int GetCount() const = 0;
  virtual unsigned int GetItemID(int index) const = 0;
};
