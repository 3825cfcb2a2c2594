// Pop-up help for the controls of a real dialog: the table follows the
// dialog's children in order, and a destroyed control's identifier is gone.
#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/dialog.h>

#include "html/VxHtmlHelp.h"
#include "html/WindowContextHelpId.h"

namespace {

class TableHelp : public VxHtmlHelp {
public:
  std::vector<ContextHelpPair> TableOf(wxWindow * dialog) {
    FillContextHelpLookUpTable(dialog);
    return GetContextHelpTable().Pairs();
  }
};

TEST(ContextHelpDialog, TableFollowsTheChildrenAndForgetsDestroyedOnes) {
  wxDialog dialog(nullptr, wxID_ANY, "Pop-ups");
  wxButton * ok = new wxButton(&dialog, wxID_OK, "OK");
  new wxButton(&dialog, wxID_HELP, "Help");
  wxButton * first = new wxButton(&dialog, 1001, "First");
  wxButton * plain = new wxButton(&dialog, 1002, "No help id");
  wxButton * last = new wxButton(&dialog, 1003, "Last");
  ASSERT_TRUE(VxSetWindowContextHelpId(ok, 50));
  ASSERT_TRUE(VxSetWindowContextHelpId(first, 501));
  ASSERT_TRUE(VxSetWindowContextHelpId(last, 503));
  EXPECT_FALSE(VxSetWindowContextHelpId(nullptr, 1));
  EXPECT_EQ(VxGetWindowContextHelpId(plain), 0u);

  TableHelp help;
  EXPECT_EQ(help.TableOf(&dialog),
            (std::vector<ContextHelpPair>{{1001, 501}, {1002, 0}, {1003, 503}, {}}));

  ASSERT_TRUE(VxSetWindowContextHelpId(&dialog, 7));
  wxWindow const * lastAddress = last;
  last->Destroy();
  EXPECT_EQ(VxGetWindowContextHelpId(lastAddress), 0u);
  EXPECT_EQ(VxGetWindowContextHelpId(&dialog), 7u) << "a child's end is not its parent's";
  wxButton * reborn = new wxButton(&dialog, 1004, "Maybe at the same address");
  EXPECT_EQ(VxGetWindowContextHelpId(reborn), 0u);
  EXPECT_EQ(help.TableOf(&dialog),
            (std::vector<ContextHelpPair>{{1001, 501}, {1002, 0}, {1004, 0}, {}}));

  ASSERT_TRUE(VxSetWindowContextHelpId(first, 0));
  EXPECT_EQ(VxGetWindowContextHelpId(first), 0u);
}

}  // namespace
