#pragma once
// The sample's run list: the family's list with a flat header whose arrows
// show the sort, widths kept between runs, check boxes, drag selection,
// copying to a spreadsheet (Ctrl+C), a text while nothing is shown, retired
// runs struck out, and a comment cell edited in place (double-click, or a
// second click on a selected run).

#include <map>
#include <set>
#include <string>
#include <vector>

#include "lists/ListCtrlWithDisabledItems.h"

class RunList : public ListCtrlWithDisabledItems {
public:
  explicit RunList(wxWindow * parent);

  // Shows these runs (UTF-8 names), keeping checks and comments by name.
  void ShowRuns(std::vector<std::string> const & runs);
  // Retired runs: they stay in the list, struck out.
  static bool IsRetired(std::string const & run);

  bool IsItemDisabled(int item) override;
  // Only the comment is edited; the list accepts what is typed.
  CInPlaceEdit * EditSubLabel(int row, int column) override;
  bool AcceptEdit(wxString & text, int column, int row) override;

  static constexpr int kNameColumn = 0;
  static constexpr int kStateColumn = 1;
  static constexpr int kCommentColumn = 2;

private:
  std::string NameOf(int row) const;
  void RememberChecks();

  std::vector<std::string> mNames;  // by item data
  std::map<std::string, wxString> mComments;
  std::set<std::string> mChecked;
};
