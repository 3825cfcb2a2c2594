#pragma once
// The edit that selects rows of a report list while the user types: when the
// typing has stopped, the rows whose cell in the find-in column matches the
// text are selected and, unless the matches add to the selection, the first
// of them is scrolled to the top.

#include "controls/VxTimedEdit.h"

class CListCtrl;

class VxFindAndSelectEdit : public VxTimedEdit {
public:
  static constexpr int kTimerId = 76354;

  // How a cell matches the typed text. The numbers are kept in settings.
  enum HowToFind {
    FindWildCard = 0,   // "*" and "?" as in file names; the whole cell must match
    FindContains = 1,   // the cell contains the text, without regard to case
    FindByPattern = 2,  // wildcard when the text holds "*" or "?", else contains
    FindEquals = 3,     // the cell equals the text, without regard to case
  };

  VxFindAndSelectEdit(int delay, CListCtrl * list, HowToFind how);

  void SetListCtrl(CListCtrl * list) { mList = list; }
  CListCtrl * GetListCtrl() const { return mList; }
  // On: matches are added to the rows already selected, and nothing scrolls.
  void SetSelectionMode(bool add) { mAddToSelection = add; }
  bool GetSelectionMode() const { return mAddToSelection; }
  // With `searchNow` the current text is searched again at once.
  void SetFindInColumn(int column, bool searchNow);
  int GetFindInColumn() const { return mColumn; }
  void SetHowToFind(HowToFind how, bool searchNow);
  HowToFind GetHowToFind() const { return mHow; }

  // Selects the matching rows; the empty text leaves the selection alone.
  void EditTriggered(wchar_t const * text) override;

private:
  void SearchNow();

  bool mAddToSelection = false;
  int mColumn = 0;
  HowToFind mHow;
  CListCtrl * mList;
};
