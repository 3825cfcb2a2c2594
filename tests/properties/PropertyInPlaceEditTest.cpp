// The text editor of a property row with real keys: the keys that hand the
// focus back commit once and reach no dialog, Escape keeps what was typed,
// the list's own Commit call and kill-focus never take one change twice,
// validation runs before the list reads the text, digits-only refuses the
// rest.
#include <gtest/gtest.h>

#include <X11/keysym.h>

#include "EditorHost.h"
#include "harness/GuiTestUtilities.h"
#include "properties/PropertyInPlaceEdit.h"
#include "work/XTestInput.h"

namespace {

void Type(char const * text) {
  for (; *text != 0; ++text) {
    char const name[2] = {*text, 0};
    switch (*text) {
      case '-': FakeKey(XK_minus); break;
      case '.': FakeKey(XK_period); break;
      case ' ': FakeKey(XK_space); break;
      default: FakeKey(XStringToKeysym(name));
    }
  }
}

class PropertyInPlaceEditTest : public testing::Test {
protected:
  void SetUp() override {
    host = new EditorHost;
    ASSERT_TRUE(gui_test::ShowAndWait(*host));
    ASSERT_TRUE(gui_test::WaitUntilPlaced(*host));
    host->Raise();
  }
  void TearDown() override {
    host->Destroy();
    gui_test::Flush();
  }

  PropertyInPlaceEdit * MakeEdit(wxString const & text, unsigned long style = 0,
                                 PropertyInPlaceEdit::ValidateFunction validate = nullptr,
                                 void * context = nullptr) {
    auto * edit = PropertyInPlaceEdit::CreateInPlaceControl(
        text.wc_str(), host->owner, RECT{100, 20, 300, 40}, style, validate, context);
    edit->SetInsertionPointEnd();  // as the items do
    edit->SetFocus();
    // The caret stays at the end: nothing is selected for typing to replace.
    EXPECT_TRUE(gui_test::WaitUntil([&] {
      return edit->HasFocus() && !edit->HasSelection() &&
             edit->GetInsertionPoint() == edit->GetLastPosition();
    }));
    return edit;
  }

  EditorHost * host = nullptr;
};

TEST_F(PropertyInPlaceEditTest, HandingKeysCommitOnceAndNeverReachTheDialog) {
  struct Case {
    KeySym key;
    std::vector<int> passedOn;
  } const cases[] = {
      {XK_Tab, {}},      {XK_Return, {}},
      {XK_KP_Enter, {}}, {XK_Escape, {}},        // commits like Return: no cancelling
      {XK_Up, {WXK_UP}}, {XK_Down, {WXK_DOWN}},  // and the list moves a row
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(XKeysymToString(c.key));
    host->owner->messages.clear();
    host->owner->keys.clear();
    PropertyInPlaceEdit * edit = MakeEdit("12");
    Type("5");
    ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->GetValue() == "125"; }));
    FakeKey(c.key);
    ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
    gui_test::Flush();
    EXPECT_EQ(edit->GetValue(), "125");
    EXPECT_EQ(host->owner->DataChanges(), 1);
    EXPECT_EQ(host->owner->keys, c.passedOn);
    EXPECT_TRUE(host->buttons.empty()) << "the dialog pressed a button";
    EXPECT_TRUE(host->IsShown());
    edit->Destroy();
    gui_test::Flush();
  }
}

TEST_F(PropertyInPlaceEditTest, OneChangeIsTakenOnceWhoeverCommits) {
  PropertyInPlaceEdit * edit = MakeEdit("abc");
  EXPECT_FALSE(edit->Commit()) << "nothing typed, nothing to take";
  FakeKey(XK_Tab);
  ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
  EXPECT_EQ(host->owner->DataChanges(), 0);

  edit->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->HasFocus() && !edit->HasSelection(); }));
  Type("d");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->HasUncommittedChange(); }));
  EXPECT_TRUE(edit->Commit()) << "the list takes it before destroying the edit";
  EXPECT_FALSE(edit->Commit());
  host->owner->SetFocus();  // and then kill-focus finds nothing new
  ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
  gui_test::Flush();
  EXPECT_EQ(host->owner->DataChanges(), 1);

  edit->SetFocus();
  ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->HasFocus() && !edit->HasSelection(); }));
  Type("e");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->GetValue() == "abcde"; }));
  host->owner->SetFocus();  // kill-focus commits the new change
  ASSERT_TRUE(gui_test::WaitUntil([&] { return host->owner->DataChanges() == 2; }));
}

struct ValidationLog {
  std::vector<wxString> seen;
};

void SnapBackUnlessNegative(PropertyInPlaceEdit * edit, void * context) {
  static_cast<ValidationLog *>(context)->seen.push_back(edit->GetValue());
  if (!edit->GetValue().StartsWith("-")) edit->SetText(edit->GetStartText().wc_str());
}

TEST_F(PropertyInPlaceEditTest, ValidationRunsBeforeTheListReadsTheText) {
  ValidationLog log;
  PropertyInPlaceEdit * edit = MakeEdit("-4", 0, &SnapBackUnlessNegative, &log);
  std::vector<wxString> read;
  host->owner->onDataChanged = [&] { read.push_back(edit->GetValue()); };
  edit->SelectAll();
  Type("x");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return edit->GetValue() == "x"; }));
  FakeKey(XK_Return);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return !read.empty(); }));
  EXPECT_EQ(log.seen, std::vector<wxString>{"x"});
  EXPECT_EQ(read, std::vector<wxString>{"-4"}) << "the list read the text put back";
}

TEST_F(PropertyInPlaceEditTest, DigitsOnlyRefusesEverythingElseAndReadOnlyTakesNothing) {
  PropertyInPlaceEdit * number = MakeEdit("", PropertyInPlaceEdit::kNumberStyle);
  Type("1a-2 .3");
  ASSERT_TRUE(gui_test::WaitUntil([&] { return number->GetValue().size() >= 3; }));
  gui_test::Flush();
  EXPECT_EQ(number->GetValue(), "123");
  number->Destroy();

  PropertyInPlaceEdit * fixed = MakeEdit("7", PropertyInPlaceEdit::kReadOnlyStyle);
  Type("8");
  FakeKey(XK_Tab);
  ASSERT_TRUE(gui_test::WaitUntilFocused(*host->owner));
  EXPECT_EQ(fixed->GetValue(), "7");
  EXPECT_EQ(host->owner->DataChanges(), 0);
}

}  // namespace
