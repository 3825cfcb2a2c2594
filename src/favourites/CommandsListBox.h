#pragma once
// The commands list of the add-command dialog: rows drawn by hand (GTK's
// list box cannot be), each with the command's icon, its text, and an arrow
// for a sub-menu. The list owns its rows.

#include <wx/icon.h>
#include <wx/vlbox.h>

#include <vector>

class CommandsListBox : public wxVListBox {
public:
  struct CommandRow {
    wxString text;
    wxIcon icon;             // may be invalid
    unsigned int commandId;  // 0 for a sub-menu
    int position;            // the index in the parent menu
  };

  CommandsListBox() = default;
  CommandsListBox(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
                  wxSize const & size = wxDefaultSize);

  void ResetContent();
  void AddRow(CommandRow row);
  // Replaces every row at once (one count change, one refresh).
  void SetRows(std::vector<CommandRow> rows);
  CommandRow const * GetRow(int index) const;
  int GetRowCount() const { return static_cast<int>(mRows.size()); }

  bool SetFont(wxFont const & font) override;
  wxCoord OnMeasureItem(size_t n) const override;
  void OnDrawItem(wxDC & dc, wxRect const & rect, size_t n) const override;
  void OnDrawBackground(wxDC & dc, wxRect const & rect, size_t n) const override;

private:
  std::vector<CommandRow> mRows;
  mutable wxCoord mRowHeight = 0;  // of every row; 0 until first asked
};
