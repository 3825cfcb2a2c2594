// A dialog template holding lists: styles, extended styles and columns come
// from the template, a bare entry makes an empty report list.
#include <gtest/gtest.h>

#include <wx/dialog.h>

#include "platform/ResourceModule.h"
#include "platform/commctrl/CListCtrl.h"

namespace {

TEST(ListCtrlTemplate, StylesAndColumnsComeFromTheTemplate) {
  wxDialog dialog;
  ASSERT_TRUE(LoadDialogTemplate(dialog, nullptr, 4300));
  auto * list = dynamic_cast<CListCtrl *>(dialog.FindWindow(1030));
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->GetStyle(), LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS);
  EXPECT_EQ(list->GetExtendedStyle(), LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES);
  ASSERT_EQ(list->GetHeaderCtrl()->GetItemCount(), 3);
  EXPECT_EQ(list->GetHeaderCtrl()->GetItemText(1), "Size");
  EXPECT_EQ(list->GetColumnWidth(0), 120);
  LVCOLUMNW column;
  column.mask = LVCF_FMT;
  ASSERT_TRUE(list->GetColumn(1, &column));
  EXPECT_EQ(column.fmt, LVCFMT_RIGHT);
  // A bad width is not taken: the heading's own width stands.
  EXPECT_EQ(list->GetColumnWidth(2), list->GetStringWidth("Unsized") + 12);

  auto * bare = dynamic_cast<CListCtrl *>(dialog.FindWindow(1031));
  ASSERT_NE(bare, nullptr);
  EXPECT_EQ(bare->GetStyle(), LVS_REPORT);
  EXPECT_EQ(bare->GetHeaderCtrl()->GetItemCount(), 0);
}

}  // namespace
