// The answer-to-all dialogs on real windows: which button gives which
// result, which buttons stand and where, where the focus starts, and the
// texts their controls get.
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include "dialogs/LimitLineLength.h"
#include "dialogs/YesNoCancelAll.h"
#include "dialogs/YesNoDialog.h"
#include "dialogs/YesNoToAll.h"
#include "dialogs/YesYesToAllCancelDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"
#include "utl/UserComm.h"

namespace {

using gui_test::Click;
void PressEscape(wxDialog & dialog) { gui_test::PressKey(dialog, WXK_ESCAPE); }
using Button = YesNoCancelAll::ButtonPressed;

constexpr int kRowIds[] = {YesNoCancelAll::kYesId, YesNoCancelAll::kYesToAllId,
                           YesNoCancelAll::kNoId, YesNoCancelAll::kNoToAllId,
                           YesNoCancelAll::kCancelId};

std::set<int> ShownButtons(wxDialog & dialog, std::vector<int> const & ids) {
  std::set<int> shown;
  for (int id : ids)
    if (wxWindow * button = dialog.FindWindow(id); button != nullptr && button->IsShown())
      shown.insert(id);
  return shown;
}

// The shown buttons stand in one row without holes, ending at the same
// right edge whichever are hidden.
void ExpectPackedRow(wxDialog & dialog, std::vector<int> const & ids, int rightEdge) {
  std::vector<wxRect> rects;
  for (int id : ids)
    if (wxWindow * button = dialog.FindWindow(id); button->IsShown())
      rects.push_back(button->GetRect());
  ASSERT_FALSE(rects.empty());
  EXPECT_EQ(rects.back().GetRight(), rightEdge);
  for (size_t i = 1; i < rects.size(); ++i) {
    EXPECT_EQ(rects[i].y, rects[0].y);
    int const gap = rects[i].x - rects[i - 1].GetRight() - 1;
    EXPECT_TRUE(gap >= 0 && gap <= 12) << "gap of " << gap << " before button " << i;
  }
}

TEST(YesNoCancelAll, EachButtonGivesItsResultAndEveryWayOutWithoutOneGivesCancel) {
  struct Case {
    char const * name;
    std::function<void(wxDialog &)> act;
    int modalResult;
    Button result;
  };
  auto click = [](int id) { return [id](wxDialog & d) { Click(d, id); }; };
  Case const cases[] = {
      {"Yes", click(YesNoCancelAll::kYesId), IDOK, YesNoCancelAll::Yes},
      {"No", click(YesNoCancelAll::kNoId), IDOK, YesNoCancelAll::No},
      {"Yes to all", click(YesNoCancelAll::kYesToAllId), IDOK, YesNoCancelAll::YesToAll},
      {"No to all", click(YesNoCancelAll::kNoToAllId), IDOK, YesNoCancelAll::NoToAll},
      {"Cancel", click(YesNoCancelAll::kCancelId), IDCANCEL, YesNoCancelAll::Cancel},
      {"close box", [](wxDialog & d) { d.Close(); }, IDCANCEL, YesNoCancelAll::Cancel},
      {"Escape", PressEscape, IDCANCEL, YesNoCancelAll::Cancel},
  };
  YesNoCancelAll dialog(L"Header", L"Text", L"Caption");
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ModalDialogScript script;
    script.Act(c.act);
    EXPECT_EQ(dialog.DoModal(), c.modalResult);
    EXPECT_EQ(dialog.GetResult(), c.result);
  }
}

TEST(YesNoCancelAll, FlagsHideButtonsAndTheRestCloseUpWhileEscapeStillCancels) {
  struct Case {
    bool yes, yesToAll, no, noToAll, cancel;
    std::set<int> shown;
  };
  Case const cases[] = {
      {true, true, true, true, true, {13095, 13096, 13092, 13093, 2}},
      {true, true, false, false, true, {13095, 13096, 2}},
      {true, false, false, false, true, {13095, 2}},
      {false, false, true, true, false, {13092, 13093}},
  };
  std::vector<int> const row(std::begin(kRowIds), std::end(kRowIds));
  for (Case const & c : cases) {
    SCOPED_TRACE(c.shown.size());
    YesNoCancelAll dialog(L"", L"", L"", YesNoCancelAll::None, nullptr, c.yes, c.yesToAll, c.no,
                          c.noToAll, c.cancel);
    int rightEdge = 0;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      EXPECT_EQ(ShownButtons(d, row), c.shown);
      rightEdge = d.FindWindow(YesNoCancelAll::kTextId)->GetRect().GetRight();
      ExpectPackedRow(d, row, rightEdge);
      PressEscape(d);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetResult(), YesNoCancelAll::Cancel);
  }
}

TEST(YesNoCancelAll, TheDefaultButtonHasTheFocusAndNoneKeepsTheStoredOne) {
  struct Case {
    Button constructed;
    Button atDoModal;
    int focused;
  };
  Case const cases[] = {
      {YesNoCancelAll::Yes, YesNoCancelAll::None, YesNoCancelAll::kYesId},
      {YesNoCancelAll::No, YesNoCancelAll::None, YesNoCancelAll::kNoId},
      {YesNoCancelAll::YesToAll, YesNoCancelAll::None, YesNoCancelAll::kYesToAllId},
      {YesNoCancelAll::NoToAll, YesNoCancelAll::None, YesNoCancelAll::kNoToAllId},
      {YesNoCancelAll::Cancel, YesNoCancelAll::None, YesNoCancelAll::kCancelId},
      {YesNoCancelAll::Yes, YesNoCancelAll::NoToAll, YesNoCancelAll::kNoToAllId},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.focused);
    YesNoCancelAll dialog(L"", L"", L"", c.constructed);
    int focused = 0;
    wxWindow * defaultItem = nullptr;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      wxWindow * focus = wxWindow::FindFocus();
      focused = focus != nullptr ? focus->GetId() : 0;
      defaultItem = d.GetDefaultItem();
      Click(d, IDCANCEL);
    });
    dialog.DoModal(nullptr, nullptr, nullptr, c.atDoModal);
    EXPECT_EQ(focused, c.focused);
    ASSERT_NE(defaultItem, nullptr);
    EXPECT_EQ(defaultItem->GetId(), c.focused);
  }
}

TEST(YesNoCancelAll, TextsReachTheirControlsAndOnlyNonNullOnesAreReplaced) {
  YesNoCancelAll dialog(L"Overwrite these files?", L"a.txt\nb.txt\r\nc.txt", L"Copying");
  wxString header, text, title;
  auto read = [&](wxDialog & d) {
    header = static_cast<wxStaticText *>(d.FindWindow(YesNoCancelAll::kHeaderId))->GetLabel();
    text = static_cast<wxTextCtrl *>(d.FindWindow(YesNoCancelAll::kTextId))->GetValue();
    title = d.GetTitle();
    Click(d, YesNoCancelAll::kYesId);
  };
  ModalDialogScript script;
  script.Act(read);
  dialog.DoModal();
  EXPECT_EQ(header, "Overwrite these files?");
  EXPECT_EQ(text, "a.txt\r\nb.txt\r\nc.txt");  // an existing "\r\n" is not doubled
  EXPECT_EQ(title, "Copying");

  script.Act(read);
  dialog.DoModal(nullptr, L"d.txt\n", L"Moving", YesNoCancelAll::None);
  EXPECT_EQ(header, "Overwrite these files?");
  EXPECT_EQ(text, "d.txt\r\n");
  EXPECT_EQ(title, "Moving");
}

TEST(YesNoDialog, YesIsOkAndEveryOtherWayOutIsCancel) {
  struct Case {
    char const * name;
    std::function<void(wxDialog &)> act;
    int result;
  };
  Case const cases[] = {
      {"Yes", [](wxDialog & d) { Click(d, IDOK); }, IDOK},
      {"No", [](wxDialog & d) { Click(d, IDCANCEL); }, IDCANCEL},
      {"Escape", PressEscape, IDCANCEL},
      {"close box", [](wxDialog & d) { d.Close(); }, IDCANCEL},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    YesNoDialog dialog(L"Header", L"one\ntwo", L"Caption", UserCommNo);
    wxString text, yesLabel;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      text = static_cast<wxTextCtrl *>(d.FindWindow(YesNoDialog::kTextId))->GetValue();
      yesLabel = d.FindWindow(IDOK)->GetLabel();
      c.act(d);
    });
    EXPECT_EQ(dialog.DoModal(), c.result);
    EXPECT_EQ(text, "one\r\ntwo");
    EXPECT_EQ(yesLabel, "&Yes");
  }
}

TEST(YesNoToAll, TheValueNamesTheAnswerWhateverOrderTheButtonsStandIn) {
  struct Case {
    bool yesFirst;
    int clicked;
    int result;
  };
  Case const cases[] = {
      {true, 1, YesNoToAll::kYes},     {true, 13029, YesNoToAll::kYesToAll},
      {true, 13027, YesNoToAll::kNo},  {false, 1, YesNoToAll::kNo},
      {false, 13029, YesNoToAll::kNoToAll}, {false, 13027, YesNoToAll::kYes},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.yesFirst << " " << c.clicked);
    YesNoToAll dialog(nullptr, c.yesFirst);
    std::vector<wxString> labels;
    std::set<int> shown;
    wxString text;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      for (int id : {1, 13029, 13027}) labels.push_back(d.FindWindow(id)->GetLabel());
      shown = ShownButtons(d, {1, 13029, 13027, 2});
      text = d.FindWindow(YesNoToAll::kTextId)->GetLabel();
      Click(d, c.clicked);
    });
    EXPECT_EQ(dialog.NewDoModal(L"Delete run 7?", L"Runs"), c.result);
    std::vector<wxString> const expected =
        c.yesFirst ? std::vector<wxString>{"Yes", "Yes to All", "No"}
                   : std::vector<wxString>{"No", "No to All", "Yes"};
    EXPECT_EQ(labels, expected);
    EXPECT_EQ(shown, (std::set<int>{1, 13029, 13027}));
    EXPECT_EQ(text, "Delete run 7?");
    EXPECT_EQ(script.Shown().at(0).title, "Runs");
  }
}

TEST(YesNoToAll, ALongQuestionWrapsAndTheDialogGrowsUntilEveryLineShows) {
  std::wstring question;
  for (int i = 0; i < 12; ++i) question += L"The file of run 7 was changed after the last import. ";
  YesNoToAll dialog;
  wxString shown;
  wxRect text, button;
  wxFont font;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    shown = d.FindWindow(YesNoToAll::kTextId)->GetLabel();
    font = d.FindWindow(YesNoToAll::kTextId)->GetFont();
    text = d.FindWindow(YesNoToAll::kTextId)->GetRect();
    button = d.FindWindow(1)->GetRect();
    Click(d, 1);
  });
  EXPECT_EQ(dialog.NewDoModal(question.c_str(), L""), YesNoToAll::kYes);
  wxRect const needed = LimitLineLength::GetBoundsRect(shown.wc_str(), font);
  EXPECT_GT(shown.Freq('\n'), 3u);
  EXPECT_LE(needed.width, text.width);
  EXPECT_LE(needed.height, text.height);
  EXPECT_GT(button.y, text.GetBottom());
}

TEST(YesNoToAll, EscapeGivesCancelNotAnAnswer) {
  YesNoToAll dialog(nullptr, false);
  ModalDialogScript script;
  script.Act(PressEscape);
  EXPECT_EQ(dialog.NewDoModal(L"Delete?", L""), IDCANCEL);
  EXPECT_EQ(script.Shown().at(0).title, "Question");  // an empty caption keeps the template's
}

TEST(YesYesToAllCancelDialog, ThreeButtonsWithoutSpecialTextAndTheSpecialFlagOutlivesARun) {
  YesYesToAllCancelDialog dialog;
  std::set<int> shown;
  std::vector<int> const row{1, 13029, 13027, 2};
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    shown = ShownButtons(d, row);
    ExpectPackedRow(d, row, d.FindWindow(YesYesToAllCancelDialog::kTextId)->GetRect().GetRight());
    Click(d, YesYesToAllCancelDialog::kYesToAllId);
  });
  EXPECT_EQ(dialog.NewDoModal(L"Replace the picture?", L"Pictures", nullptr), IDOK);
  EXPECT_EQ(shown, (std::set<int>{1, 13029, 2}));
  EXPECT_TRUE(dialog.YesToAllClicked());
  EXPECT_FALSE(dialog.SpecialClicked());

  wxString specialLabel;
  script.Act([&](wxDialog & d) {
    specialLabel = d.FindWindow(YesYesToAllCancelDialog::kSpecialId)->GetLabel();
    Click(d, YesYesToAllCancelDialog::kSpecialId);
  });
  EXPECT_EQ(dialog.NewDoModal(L"Replace the picture?", L"Pictures", L"Keep both pictures"),
            YesYesToAllCancelDialog::kSpecialId);
  EXPECT_EQ(specialLabel, "Keep both pictures");
  EXPECT_FALSE(dialog.YesToAllClicked());  // cleared by the run
  EXPECT_TRUE(dialog.SpecialClicked());

  script.Act([](wxDialog & d) { Click(d, IDOK); });
  EXPECT_EQ(dialog.NewDoModal(L"Replace?", L"", L"Keep"), IDOK);
  EXPECT_FALSE(dialog.YesToAllClicked());
  EXPECT_TRUE(dialog.SpecialClicked());  // cleared only at construction

  script.Act(PressEscape);
  EXPECT_EQ(dialog.NewDoModal(L"Replace?", L"", L""), IDCANCEL);
}

}  // namespace
