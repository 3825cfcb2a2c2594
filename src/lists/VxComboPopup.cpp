#include "lists/VxComboPopup.h"

#include "lists/VxComboBox.h"

#include <algorithm>

int VxComboPopup::GetRowHeight() const {
  int const measured = OnMeasureItem(0);
  return measured > 0 ? measured : m_itemHeight;
}

wxSize VxComboPopup::GetAdjustedSize(int minWidth, int prefHeight, int maxHeight) {
  // Asked just before the list opens: the combo sizes it by its rules.
  VxComboBox::DropDown const drop =
      static_cast<VxComboBox *>(m_combo)->MeasureDropDown(GetRowHeight());
  wxSize size =
      wxVListBoxComboPopup::GetAdjustedSize(std::max(minWidth, drop.width), prefHeight, maxHeight);
  // The list's own answer shrinks to its rows; the combo's rule wants at
  // least two rows and a margin, the room on screen permitting.
  size.y = maxHeight > 0 ? std::min(drop.height, maxHeight) : drop.height;
  return size;
}
