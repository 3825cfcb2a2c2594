#pragma once
// The sample's "Tools > Property list...": a run's settings in the
// library's property list, one row for every kind of property item, names
// long enough to wrap, a category that starts collapsed and the details
// pane under the rows. Each value committed shows in the status line.

#include <wx/dialog.h>

class PropertyListCtrl;
class SampleRunSettings;
class wxMenu;
class wxStaticText;

class PropertyListDialog : public wxDialog {
public:
  explicit PropertyListDialog(wxWindow * parent);
  ~PropertyListDialog() override;

  PropertyListCtrl & GetList() const { return *mList; }
  wxString GetStatus() const;

private:
  friend class SampleRunSettings;
  void ShowCommitted(wxString const & text);

  SampleRunSettings * mSettings;
  PropertyListCtrl * mList = nullptr;
  wxStaticText * mStatus = nullptr;
};

// Appends "Property list..." to `menu`; `frame` handles it.
void AddPropertyListCommand(wxMenu & menu, wxWindow & frame);
