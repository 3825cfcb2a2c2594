#pragma once
// The family's combo box: every item carries 64-bit data, a selection can be
// made by data (exactly, or the nearest value), typing completes from the
// items, and the drop-down fits the widest item and at most a third of the
// monitor's height. An owner-drawn combo with its own popup, since GTK's
// combo box has neither owner draw nor popup hooks.

#include <wx/odcombo.h>

#include <cstdint>
#include <vector>

class VxComboPopup;

class VxComboBox : public wxOwnerDrawnComboBox {
public:
  // What GetCurItemData answers without a selection (CB_ERR in all bits).
  static constexpr uint64_t kNoData = ~uint64_t{0};

  VxComboBox() = default;
  VxComboBox(wxWindow * parent, wxWindowID id, wxPoint const & pos = wxDefaultPosition,
             wxSize const & size = wxDefaultSize, long style = 0);
  // `popup` (owned by the combo from then on) replaces the plain list.
  bool Create(wxWindow * parent, wxWindowID id, wxPoint const & pos, wxSize const & size,
              long style, VxComboPopup * popup = nullptr);

  // Appends `text` with `data`; the new index, or a negative value.
  virtual int AddStringEx(wxString const & text, uint64_t data);
  // Selects the first item with `data`; without one clears the selection
  // and returns -1.
  virtual int SetCurSelEx(uint64_t data);
  // Selects the item with `data`, else the one nearest to it (the earliest
  // on a tie) and writes that item's data to `data`. -1 on an empty list.
  virtual int SetCurSelEx2(uint64_t & data);
  virtual uint64_t GetCurItemData() const;

  uint64_t GetItemData64(int index) const;
  void SetItemData64(int index, uint64_t data);

  void EnableAutoCompletion(bool enable) { mAutoCompletion = enable; }
  void EnableRecalcDropWidth(bool enable) { mRecalcDropWidth = enable; }

  // The item SetCurSelEx2 takes for `data` among `items`: the exact one,
  // else the least difference of the values read as signed 32-bit numbers,
  // the earliest winning a tie. -1 for no items.
  static int FindNearest(std::vector<uint64_t> const & items, uint64_t data);

  struct DropDown {
    int rows;
    int height;
    int width = 0;
  };
  // Rows and height of the drop-down for `count` items of `itemHeight`
  // on a monitor `monitorHeight` high: at least two rows and two rows'
  // margin, at most a third of the monitor in whole rows.
  static DropDown ComputeDropDown(int count, int itemHeight, int monitorHeight);

  // The drop-down about to open with rows `rowHeight` high: its rows and
  // height on this window's monitor and, unless switched off, the width
  // of the widest item.
  DropDown MeasureDropDown(int rowHeight) const;

protected:
  // Typing in the edit field: completes from the first item that begins
  // with the text.
  void OnTextChanged(wxCommandEvent & event);
  void CompleteTypedText();
  // Tells the parent (and handlers of this control) that the selection
  // changed, as a list change by the user does.
  void NotifySelectionChange(int index);

private:
  bool mAutoCompletion = false;
  bool mRecalcDropWidth = true;
  bool mCompleting = false;
  bool mCompletionPending = false;
};
