#pragma once
// Lets the user pick one item of a list, or tick several, optionally with
// up to six option buttons below the list. Template 16261; the three
// functions at the end run it.

#include <wx/string.h>

#include <vector>

#include "dialogs/VxDialog.h"

class VxListCtrl;
class wxContextMenuEvent;

class SelectItemDialog : public VxDialog {
public:
  enum Control : int { kPrompt = 16239, kList = 16242 };
  // The option buttons, in their order.
  static constexpr int kOptionButtons[] = {16260, 16261, 16266, 16267, 16268, 16270};
  // The context menu's commands.
  enum Command : int {
    kSelectMarked = 100,
    kUnselectMarked,
    kSelectAll,
    kUnselectAll,
    kSelectComplement,
  };

  // Single select: `single` is the starting row and the result. Otherwise
  // `selection` holds the ticked rows, in and out. `option` (1-based) is the
  // ticked option, in and out; null without options.
  SelectItemDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * column,
                   std::vector<wxString> const & items, std::vector<wxString> options, int * option,
                   std::vector<int> * selection, int single, bool singleSelect, bool allowNone,
                   wxWindow * parent);

  int GetSingleIndex() const { return mSingle; }
  VxListCtrl * GetList() const { return mList; }
  // Runs one of the context menu's commands.
  void RunCommand(int command);

protected:
  bool OnInitDialog() override;
  void OnOK() override;

private:
  void OnListContextMenu(wxContextMenuEvent & event);

  wxString mTitle;
  wxString mPrompt;
  wxString mColumn;
  std::vector<wxString> const * mItems;
  std::vector<wxString> mOptions;
  int * mOption;
  std::vector<int> * mSelection;
  int mSingle;
  bool mSingleSelect;
  bool mAllowNone;
  VxListCtrl * mList = nullptr;
};

int VxSingleSelectItemDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * column,
                             std::vector<wxString> const & items, int * selected, bool allowNone,
                             wxWindow * parent);
int VxMultiSelectItemDialog(wchar_t const * title, wchar_t const * prompt, wchar_t const * column,
                            std::vector<wxString> const & items, std::vector<int> * selected,
                            bool allowNone, wxWindow * parent);
// Options past the sixth are left out.
int VxOptionMultiSelectItemDialog(wchar_t const * title, wchar_t const * prompt,
                                  wchar_t const * column, std::vector<wxString> const & items,
                                  std::vector<int> * selected,
                                  std::vector<wxString> const & options, int * option,
                                  bool singleSelect, bool allowNone, wxWindow * parent);
