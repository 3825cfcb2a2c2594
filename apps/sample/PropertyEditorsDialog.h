#pragma once
// The sample's "Tools > Property editors...": one row for each kind of
// property item, its value drawn by the item itself. A click on a value lays
// the item's editor over it; each value the editor hands back shows in the
// log line below the rows.

#include <memory>
#include <vector>

#include <wx/dialog.h>

#include "platform/WinGeometry.h"

class PropertyItem;
class WindowMessageEvent;
class wxMenu;
class wxPanel;
class wxStaticText;

class PropertyEditorsDialog : public wxDialog {
public:
  explicit PropertyEditorsDialog(wxWindow * parent);
  ~PropertyEditorsDialog() override;

  int GetRowCount() const { return static_cast<int>(mItems.size()); }
  PropertyItem & GetItem(int row) { return *mItems[static_cast<size_t>(row)]; }
  // Row `row`'s value cell, in the grid's coordinates.
  RECT ValueCell(int row) const;
  // As a click on the row's value does: the former editor hands its value
  // back and goes, the row's own comes.
  void OpenEditor(int row);
  wxWindow * GetEditor() const { return mEditor; }
  wxPanel * GetGrid() const { return mGrid; }
  wxString GetLog() const;

private:
  void OnPaint(wxPaintEvent & event);
  void OnLeftDown(wxMouseEvent & event);
  void OnWindowMessage(WindowMessageEvent & event);
  void CloseEditor();

  std::vector<std::unique_ptr<PropertyItem>> mItems;
  wxPanel * mGrid = nullptr;
  wxStaticText * mLog = nullptr;
  wxWindow * mEditor = nullptr;
  int mEditorRow = -1;
};

// Appends "Property editors..." to `menu`; `frame` handles it.
void AddPropertyEditorsCommand(wxMenu & menu, wxWindow & frame);
