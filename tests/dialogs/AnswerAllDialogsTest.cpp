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

// Also: the default button has the focus, and None at DoModal keeps the one
// given at construction.
TEST(YesNoCancelAll, EachButtonGivesItsResultAndEveryWayOutWithoutOneGivesCancel) {
  using D = YesNoCancelAll;
  struct Case {
    char const * name;
    std::function<void(wxDialog &)> act;
    int modalResult;
    Button result, constructed, atDoModal;
    int focused;
  };
  auto click = [](int id) { return [id](wxDialog & d) { Click(d, id); }; };
  auto close = [](wxDialog & d) { d.Close(); };
  Case const cases[] = {
      {"Yes", click(D::kYesId), IDOK, D::Yes, D::Yes, D::None, D::kYesId},
      {"No", click(D::kNoId), IDOK, D::No, D::No, D::None, D::kNoId},
      {"Yes to all", click(D::kYesToAllId), IDOK, D::YesToAll, D::YesToAll, D::None,
       D::kYesToAllId},
      {"No to all", click(D::kNoToAllId), IDOK, D::NoToAll, D::NoToAll, D::None, D::kNoToAllId},
      {"Cancel", click(D::kCancelId), IDCANCEL, D::Cancel, D::Cancel, D::None, D::kCancelId},
      {"close box", close, IDCANCEL, D::Cancel, D::Yes, D::NoToAll, D::kNoToAllId},
      {"Escape", PressEscape, IDCANCEL, D::Cancel, D::No, D::None, D::kNoId}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    YesNoCancelAll dialog(L"Header", L"Text", L"Caption", c.constructed);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      wxWindow * focus = wxWindow::FindFocus();
      EXPECT_EQ(focus != nullptr ? focus->GetId() : 0, c.focused);
      EXPECT_EQ(d.GetDefaultItem() != nullptr ? d.GetDefaultItem()->GetId() : 0, c.focused);
      c.act(d);
    });
    EXPECT_EQ(dialog.DoModal(nullptr, nullptr, nullptr, c.atDoModal), c.modalResult);
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
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      EXPECT_EQ(ShownButtons(d, row), c.shown);
      ExpectPackedRow(d, row, d.FindWindow(YesNoCancelAll::kTextId)->GetRect().GetRight());
      PressEscape(d);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetResult(), YesNoCancelAll::Cancel);
  }
}

TEST(YesNoCancelAll, TextsReachTheirControlsAndOnlyNonNullOnesAreReplaced) {
  YesNoCancelAll dialog(L"Overwrite these files?", L"a.txt\nb.txt\r\nc.txt", L"Copying");
  auto expectShown = [](char const * text, char const * title) {
    return [=](wxDialog & d) {
      EXPECT_EQ(static_cast<wxStaticText *>(d.FindWindow(YesNoCancelAll::kHeaderId))->GetLabel(),
                "Overwrite these files?");
      EXPECT_EQ(static_cast<wxTextCtrl *>(d.FindWindow(YesNoCancelAll::kTextId))->GetValue(), text);
      EXPECT_EQ(d.GetTitle(), title);
      Click(d, YesNoCancelAll::kYesId);
    };
  };
  ModalDialogScript script;
  // An existing "\r\n" is not doubled.
  script.Act(expectShown("a.txt\r\nb.txt\r\nc.txt", "Copying"));
  dialog.DoModal();
  script.Act(expectShown("d.txt\r\n", "Moving"));
  dialog.DoModal(nullptr, L"d.txt\n", L"Moving", YesNoCancelAll::None);
}

TEST(YesNoDialog, YesIsOkAndNoIsCancel) {
  for (int press : {IDOK, IDCANCEL}) {
    SCOPED_TRACE(press);
    YesNoDialog dialog(L"Header", L"one\ntwo", L"Caption", UserCommNo);
    wxString text, yesLabel;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      text = static_cast<wxTextCtrl *>(d.FindWindow(YesNoDialog::kTextId))->GetValue();
      yesLabel = d.FindWindow(IDOK)->GetLabel();
      Click(d, press);
    });
    EXPECT_EQ(dialog.DoModal(), press);
    EXPECT_EQ(text, "one\r\ntwo");
    EXPECT_EQ(yesLabel, "&Yes");
  }
}

TEST(YesNoToAll, TheValueNamesTheAnswerWhateverOrderTheButtonsStandIn) {
  struct Case {
    bool yesFirst;
    int clicked, result;
  };
  Case const cases[] = {{true, 1, YesNoToAll::kYes},          {true, 13029, YesNoToAll::kYesToAll},
                        {true, 13027, YesNoToAll::kNo},       {false, 1, YesNoToAll::kNo},
                        {false, 13029, YesNoToAll::kNoToAll}, {false, 13027, YesNoToAll::kYes}};
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.yesFirst << " " << c.clicked);
    YesNoToAll dialog(nullptr, c.yesFirst);
    std::vector<wxString> labels;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      for (int id : {1, 13029, 13027}) labels.push_back(d.FindWindow(id)->GetLabel());
      EXPECT_EQ(ShownButtons(d, {1, 13029, 13027, 2}), (std::set<int>{1, 13029, 13027}));
      EXPECT_EQ(d.FindWindow(YesNoToAll::kTextId)->GetLabel(), "Delete run 7?");
      Click(d, c.clicked);
    });
    EXPECT_EQ(dialog.NewDoModal(L"Delete run 7?", L"Runs"), c.result);
    EXPECT_EQ(labels, (c.yesFirst ? std::vector<wxString>{"Yes", "Yes to All", "No"}
                                  : std::vector<wxString>{"No", "No to All", "Yes"}));
    EXPECT_EQ(script.Shown().at(0).title, "Runs");
  }
}

TEST(YesNoToAll, ALongQuestionWrapsAndTheDialogGrowsUntilEveryLineShows) {
  std::wstring question;
  for (int i = 0; i < 12; ++i) question += L"The file of run 7 was changed after the last import. ";
  YesNoToAll dialog;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    wxWindow * text = d.FindWindow(YesNoToAll::kTextId);
    wxString const shown = text->GetLabel();
    wxRect const needed = LimitLineLength::GetBoundsRect(shown.wc_str(), text->GetFont());
    EXPECT_GT(shown.Freq('\n'), 3u);
    EXPECT_LE(needed.width, text->GetRect().width);
    EXPECT_LE(needed.height, text->GetRect().height);
    EXPECT_GT(d.FindWindow(1)->GetRect().y, text->GetRect().GetBottom());
    Click(d, 1);
  });
  EXPECT_EQ(dialog.NewDoModal(question.c_str(), L""), YesNoToAll::kYes);
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
  std::vector<int> const row{1, 13029, 13027, 2};
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    EXPECT_EQ(ShownButtons(d, row), (std::set<int>{1, 13029, 2}));
    ExpectPackedRow(d, row, d.FindWindow(YesYesToAllCancelDialog::kTextId)->GetRect().GetRight());
    Click(d, YesYesToAllCancelDialog::kYesToAllId);
  });
  EXPECT_EQ(dialog.NewDoModal(L"Replace the picture?", L"Pictures", nullptr), IDOK);
  EXPECT_TRUE(dialog.YesToAllClicked());
  EXPECT_FALSE(dialog.SpecialClicked());

  script.Act([&](wxDialog & d) {
    EXPECT_EQ(d.FindWindow(YesYesToAllCancelDialog::kSpecialId)->GetLabel(), "Keep both pictures");
    Click(d, YesYesToAllCancelDialog::kSpecialId);
  });
  EXPECT_EQ(dialog.NewDoModal(L"Replace the picture?", L"Pictures", L"Keep both pictures"),
            YesYesToAllCancelDialog::kSpecialId);
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
