// The message box on screen: its layout as relations between the measured
// places of its controls, its icon, its keys, and texts that would not fit.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <wx/artprov.h>
#include <wx/checkbox.h>
#include <wx/statbmp.h>

#include "MessageBoxProbe.h"
#include "dialogs/CustomMessageBoxDlg.h"
#include "dialogs/LimitLineLength.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"

namespace {

using gui_test::Click;

// Runs `box`, reads it once it is on screen, then presses `answer`.
MessageBoxProbe RunAndProbe(CustomMessageBoxDlg & box, int answer, int * result = nullptr) {
  MessageBoxProbe probe;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    gui_test::WaitUntilPlaced(d);
    probe = MessageBoxProbe::Of(d);
    Click(d, answer);
  });
  int const returned = box.DoModal();
  if (result != nullptr) *result = returned;
  return probe;
}

std::wstring Words(size_t characters) {
  std::wstring text;
  while (text.size() < characters) text += L"word ";
  text.resize(characters);
  return text;
}

TEST(CustomMessageBox, EachKindShowsItsButtonsInOneCentredRowBelowTheText) {
  struct ButtonRow {
    char const * name;
    unsigned type, helpTopic;
    std::vector<int> order;
  };
  ButtonRow const rows[] = {
      {"OK", MB_OK, 0, {IDOK}},
      {"OK with help", MB_OK, 55, {IDOK, IDHELP}},
      {"OK/Cancel", MB_OKCANCEL, 0, {IDOK, IDCANCEL}},
      {"Yes/No/Cancel", MB_YESNOCANCEL, 0, {IDYES, IDNO, IDCANCEL}},
      {"Yes/No with help", MB_YESNO, 9, {IDYES, IDNO, IDHELP}},
  };
  for (ButtonRow const & row : rows) {
    SCOPED_TRACE(row.name);
    CustomMessageBoxDlg box(row.type, row.helpTopic);
    box.SetText(L"The measurement has been saved.");
    MessageBoxProbe const probe = RunAndProbe(box, row.order.front());

    // Only the row's buttons, and the text and the icon.
    ASSERT_EQ(probe.shown.size(), row.order.size() + 2);
    wxRect const text = probe.Rect(CustomMessageBoxDlg::kTextId);
    wxRect const first = probe.Rect(row.order.front());
    wxRect const last = probe.Rect(row.order.back());
    for (size_t i = 0; i < row.order.size(); ++i) {
      wxRect const button = probe.Rect(row.order[i]);
      EXPECT_EQ(button.y, first.y);
      EXPECT_GT(button.y, text.GetBottom());
      EXPECT_LE(button.GetBottom(), probe.client.y);
      if (i > 0) {
        EXPECT_EQ(button.x, probe.Rect(row.order[i - 1]).GetRight() + 1 + probe.gap);
      }
    }
    // The row starts a gap to the left of the centred place.
    int const rowCentre = (first.x + last.GetRight()) / 2;
    EXPECT_NEAR(rowCentre, probe.client.x / 2.0, 2 * probe.gap);
    EXPECT_GE(first.x, 1);
    EXPECT_LE(last.GetRight(), probe.client.x);
    // The box cannot be made smaller than it opens; Enter answers with the
    // first button of the row.
    EXPECT_EQ(probe.minimum, probe.window);
    EXPECT_EQ(probe.focus, row.order.front());
  }
}

TEST(CustomMessageBox, AWiderBoxWidensTheTextAndKeepsTheRowCentred) {
  CustomMessageBoxDlg box(MB_YESNOCANCEL);
  box.SetText(Words(300));
  box.ShowCheckBox(true);
  MessageBoxProbe before, after;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    before = MessageBoxProbe::Of(d);
    d.SetSize(d.GetSize() + wxSize(200, 100));
    gui_test::WaitUntil([&] { return d.GetClientSize().x >= before.client.x + 200; });
    after = MessageBoxProbe::Of(d);
    Click(d, IDCANCEL);
  });
  box.DoModal();
  int const grownX = after.client.x - before.client.x;
  int const grownY = after.client.y - before.client.y;
  ASSERT_GE(grownX, 200);
  wxRect const textBefore = before.Rect(CustomMessageBoxDlg::kTextId);
  EXPECT_EQ(after.Rect(CustomMessageBoxDlg::kTextId),
            wxRect(textBefore.GetTopLeft(), textBefore.GetSize() + wxSize(grownX, grownY)));
  // The buttons move by half the growth, the check box stays at the left.
  for (int id : {IDYES, IDNO, IDCANCEL, int(CustomMessageBoxDlg::kCheckBoxId)}) {
    int const dx = id == CustomMessageBoxDlg::kCheckBoxId ? 0 : grownX / 2;
    EXPECT_NEAR(after.Rect(id).x, before.Rect(id).x + dx, 1) << id;
    EXPECT_EQ(after.Rect(id).y, before.Rect(id).y + grownY) << id;
  }
}

TEST(CustomMessageBox, TheTextSetsTheWidthUpToALineOfAHundredAndFortyCharacters) {
  auto measure = [](size_t characters) {
    CustomMessageBoxDlg box(MB_OK);
    box.SetText(Words(characters));
    return RunAndProbe(box, IDOK);
  };
  MessageBoxProbe const shortText = measure(20);
  MessageBoxProbe const line = measure(140);
  MessageBoxProbe const twoLines = measure(280);
  EXPECT_GT(line.client.x, shortText.client.x);
  EXPECT_NEAR(twoLines.client.x, line.client.x, line.client.x / 20.0);
  EXPECT_GT(twoLines.client.y, line.client.y);
  for (MessageBoxProbe const * probe : {&shortText, &line, &twoLines}) {
    wxRect const text = probe->Rect(CustomMessageBoxDlg::kTextId);
    EXPECT_GT(text.x, probe->Rect(CustomMessageBoxDlg::kIconId).GetRight());
    EXPECT_LE(text.GetRight(), probe->client.x);
    EXPECT_FALSE(probe->scrolls);
  }
  EXPECT_EQ(twoLines.textShown, Words(280));  // shown unwrapped; the label wraps it
}

TEST(CustomMessageBox, ALabelWiderThanItsButtonWidensItAndTheRow) {
  wxString const longLabel = "&Replace every measurement of the run";
  CustomMessageBoxDlg plain(MB_YESNO);
  plain.SetText(L"Replace?");
  MessageBoxProbe const before = RunAndProbe(plain, IDNO);

  CustomMessageBoxDlg relabelled(MB_YESNO);
  relabelled.SetText(L"Replace?");
  relabelled.SetButtonText(IDYES, longLabel);
  relabelled.SetButtonText(IDNO, "&Keep");
  int result = 0;
  MessageBoxProbe const after = RunAndProbe(relabelled, IDYES, &result);
  EXPECT_EQ(result, IDYES);
  EXPECT_EQ(after.buttonLabel[IDYES], longLabel);
  EXPECT_EQ(after.buttonLabel[IDNO], "&Keep");

  int const labelWidth =
      LimitLineLength::GetBoundsRect(longLabel.wc_str(), relabelled.GetFont()).width;
  wxRect const yes = after.Rect(IDYES);
  wxRect const no = after.Rect(IDNO);
  EXPECT_GE(yes.width, labelWidth + after.x8 - 1);
  EXPECT_GT(yes.width, before.Rect(IDYES).width);
  EXPECT_EQ(no.width, before.Rect(IDNO).width);  // a short label keeps the width
  EXPECT_EQ(no.x, yes.GetRight() + 1 + after.gap);
  EXPECT_GE(after.client.x, 2 * after.marginX + yes.width + after.gap + no.width);
}

TEST(CustomMessageBox, TheIconFollowsTheIconBitsAndDefaultsToTheExclamationMark) {
  struct Case {
    unsigned type;
    wxArtID art;
  };
  Case const cases[] = {{MB_ICONHAND, wxART_ERROR},
                        {MB_ICONQUESTION, wxART_QUESTION},
                        {MB_ICONASTERISK, wxART_INFORMATION},
                        {MB_ICONEXCLAMATION, wxART_WARNING},
                        {0, wxART_WARNING},
                        {MB_USERICON, wxART_WARNING}};
  auto pixels = [](wxBitmap const & bitmap) {
    wxImage const image = bitmap.ConvertToImage();
    return std::string(reinterpret_cast<char const *>(image.GetData()),
                       size_t(image.GetWidth()) * image.GetHeight() * 3);
  };
  std::vector<std::string> distinct;
  for (Case const & c : cases) {
    SCOPED_TRACE(c.type);
    CustomMessageBoxDlg box(c.type);
    std::string shown;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * icon = static_cast<wxStaticBitmap *>(d.FindWindow(CustomMessageBoxDlg::kIconId));
      shown = pixels(icon->GetBitmap());
      EXPECT_EQ(shown, pixels(wxArtProvider::GetBitmap(c.art, wxART_MESSAGE_BOX, icon->GetSize())));
      Click(d, IDOK);
    });
    box.DoModal();
    if (std::find(distinct.begin(), distinct.end(), shown) == distinct.end())
      distinct.push_back(shown);
  }
  EXPECT_EQ(distinct.size(), 4u);  // four different pictures, not one fallback
}

TEST(CustomMessageBox, EscapeCancelsEveryBoxButYesNoWhichMustBeAnswered) {
  struct Case {
    unsigned type;
    int key;
    bool closes;
  };
  Case const cases[] = {{MB_OK, WXK_ESCAPE, true},          {MB_OKCANCEL, WXK_ESCAPE, true},
                        {MB_YESNOCANCEL, WXK_ESCAPE, true}, {MB_YESNOCANCEL, WXK_CANCEL, true},
                        {MB_YESNO, WXK_ESCAPE, false},      {MB_YESNO, WXK_CANCEL, false}};
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.type << " key " << c.key);
    CustomMessageBoxDlg box(c.type);
    box.ShowCheckBox(true);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      static_cast<wxCheckBox *>(d.FindWindow(CustomMessageBoxDlg::kCheckBoxId))->SetValue(true);
      gui_test::PressKey(d, c.key);
      EXPECT_EQ(d.IsModal(), !c.closes);
      if (!d.IsModal()) return;
      d.Close();  // the close box, as the window manager sends it
      EXPECT_TRUE(d.IsModal());
      Click(d, IDNO);
    });
    EXPECT_EQ(box.DoModal(), c.closes ? IDCANCEL : IDNO);
    // Escape exchanges nothing; No read the box.
    EXPECT_EQ(box.GetCheckState(), c.closes ? 0 : 1);
  }
}

std::wstring Repeat(std::wstring const & piece, size_t times) {
  std::wstring text;
  for (size_t i = 0; i < times; ++i) text += piece;
  return text;
}

// Short, long and odd texts; the check box stands under the text, above
// the buttons, its long label not cut.
TEST(CustomMessageBox, EveryTextGivesABoxOnTheScreenWithTheCheckBoxBetweenTextAndButtons) {
  struct Case {
    char const * name;
    std::wstring text;
    bool scrolls;
  };
  std::wstring withBadValues = L"before ";
  withBadValues += wchar_t(0xD800);
  withBadValues += L" after ";
  withBadValues += wchar_t(0x110000);
  Case const cases[] = {
      {"empty", L"", false},
      {"short", Words(10), false},
      {"400 characters", Words(400), false},
      {"100,000 characters of words", Words(100000), true},
      {"100,000 characters without a break", std::wstring(100000, L'x'), true},
      {"a line without a break of 140", std::wstring(140, L'x'), false},
      {"combining sequences", Repeat(L"e\u0301\u0323 ", 6000), true},
      {"outside the basic plane", Repeat(L"\U0001F600\U00010348 ", 200), false},
      {"wide characters, wrapped at the screen", Repeat(L"\u6E2C\u5B9A", 300), false},
      {"values that are no characters", withBadValues, false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    CustomMessageBoxDlg box(MB_YESNOCANCEL);
    box.SetText(c.text);
    box.ShowCheckBox(true);
    box.SetCheckText("&Remember this answer for all the runs of the project");
    MessageBoxProbe const probe = RunAndProbe(box, IDNO);
    EXPECT_EQ(probe.scrolls, c.scrolls);
    EXPECT_TRUE(probe.workArea.Contains(probe.screen));
    EXPECT_LE(probe.minimum.x, probe.workArea.width);
    EXPECT_LE(probe.minimum.y, probe.workArea.height);
    // Everything stays inside the box.
    wxRect const text = probe.Rect(CustomMessageBoxDlg::kTextId);
    wxRect const check = probe.Rect(CustomMessageBoxDlg::kCheckBoxId);
    EXPECT_LE(text.GetRight(), probe.client.x);
    EXPECT_EQ(check.x, text.x);
    EXPECT_GT(check.y, text.GetBottom());
    EXPECT_GT(check.y, probe.Rect(CustomMessageBoxDlg::kIconId).GetBottom());
    EXPECT_LT(check.GetBottom(), probe.Rect(IDNO).y);
    EXPECT_LE(check.GetRight(), probe.client.x);
    EXPECT_LE(probe.Rect(IDCANCEL).GetBottom(), probe.client.y);
    if (c.scrolls) {  // the whole text, in lines of its own
      wxString shown = probe.textShown;
      shown.Replace("\n", "");
      EXPECT_EQ(shown, wxString(c.text));
    }
  }
}

}  // namespace
