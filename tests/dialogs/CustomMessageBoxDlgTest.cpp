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
    gui_test::WaitUntil([&] { return d.IsShownOnScreen(); });
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

struct ButtonRow {
  char const * name;
  unsigned type;
  unsigned helpTopic;
  std::vector<int> order;  // left to right
};

TEST(CustomMessageBox, EachKindShowsItsButtonsInOneCentredRowBelowTheText) {
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

    std::vector<int> shownButtons;
    for (int id : {IDOK, IDCANCEL, IDYES, IDNO, IDHELP})
      if (probe.Shows(id)) shownButtons.push_back(id);
    ASSERT_EQ(shownButtons.size(), row.order.size());
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
    EXPECT_NEAR(rowCentre, probe.client.x / 2, 2 * probe.gap);
    EXPECT_GE(first.x, 1);
    EXPECT_LE(last.GetRight(), probe.client.x);
    EXPECT_FALSE(probe.Shows(CustomMessageBoxDlg::kCheckBoxId));
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
  wxRect const textAfter = after.Rect(CustomMessageBoxDlg::kTextId);
  EXPECT_EQ(textAfter.GetTopLeft(), textBefore.GetTopLeft());
  EXPECT_EQ(textAfter.GetSize(), textBefore.GetSize() + wxSize(grownX, grownY));
  for (int id : {IDYES, IDNO, IDCANCEL}) {
    EXPECT_NEAR(after.Rect(id).x, before.Rect(id).x + grownX / 2, 1);
    EXPECT_EQ(after.Rect(id).y, before.Rect(id).y + grownY);
  }
  wxRect const check = after.Rect(CustomMessageBoxDlg::kCheckBoxId);
  EXPECT_EQ(check.x, before.Rect(CustomMessageBoxDlg::kCheckBoxId).x);
  EXPECT_EQ(check.y, before.Rect(CustomMessageBoxDlg::kCheckBoxId).y + grownY);
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
  EXPECT_NEAR(twoLines.client.x, line.client.x, line.client.x / 20);
  EXPECT_GT(twoLines.client.y, line.client.y);
  for (MessageBoxProbe const * probe : {&shortText, &line, &twoLines}) {
    wxRect const text = probe->Rect(CustomMessageBoxDlg::kTextId);
    wxRect const icon = probe->Rect(CustomMessageBoxDlg::kIconId);
    EXPECT_GT(text.x, icon.GetRight());
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

  wxFont const font = relabelled.GetFont();
  int const labelWidth = LimitLineLength::GetBoundsRect(longLabel.wc_str(), font).width;
  wxRect const yes = after.Rect(IDYES);
  wxRect const no = after.Rect(IDNO);
  EXPECT_GE(yes.width, labelWidth + after.x8 - 1);
  EXPECT_GT(yes.width, before.Rect(IDYES).width);
  EXPECT_EQ(no.width, before.Rect(IDNO).width);  // a short label keeps the width
  EXPECT_EQ(no.x, yes.GetRight() + 1 + after.gap);
  EXPECT_GE(after.client.x, 2 * after.marginX + yes.width + after.gap + no.width);
}

TEST(CustomMessageBox, TheCheckBoxStandsUnderTheTextAboveTheButtons) {
  for (size_t characters : {10u, 400u}) {
    SCOPED_TRACE(characters);
    CustomMessageBoxDlg box(MB_OKCANCEL);
    box.SetText(Words(characters));
    box.ShowCheckBox(true);
    box.SetCheckText("&Remember this answer for all the runs of the project");
    MessageBoxProbe const probe = RunAndProbe(box, IDOK);
    ASSERT_TRUE(probe.Shows(CustomMessageBoxDlg::kCheckBoxId));
    wxRect const check = probe.Rect(CustomMessageBoxDlg::kCheckBoxId);
    wxRect const text = probe.Rect(CustomMessageBoxDlg::kTextId);
    wxRect const icon = probe.Rect(CustomMessageBoxDlg::kIconId);
    wxRect const ok = probe.Rect(IDOK);
    EXPECT_EQ(check.x, text.x);
    EXPECT_GT(check.y, text.GetBottom());
    EXPECT_GT(check.y, icon.GetBottom());
    EXPECT_LT(check.GetBottom(), ok.y);
    EXPECT_LE(check.GetRight(), probe.client.x);  // the label is not cut
  }
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
    wxSize iconSize;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * icon = static_cast<wxStaticBitmap *>(d.FindWindow(CustomMessageBoxDlg::kIconId));
      shown = pixels(icon->GetBitmap());
      iconSize = icon->GetSize();
      Click(d, IDOK);
    });
    box.DoModal();
    EXPECT_EQ(shown, pixels(wxArtProvider::GetBitmap(c.art, wxART_MESSAGE_BOX, iconSize)));
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
  Case const cases[] = {{MB_OK, WXK_ESCAPE, true},
                        {MB_OKCANCEL, WXK_ESCAPE, true},
                        {MB_YESNOCANCEL, WXK_ESCAPE, true},
                        {MB_YESNOCANCEL, WXK_CANCEL, true},
                        {MB_YESNO, WXK_ESCAPE, false},
                        {MB_YESNO, WXK_CANCEL, false}};
  for (Case const & c : cases) {
    SCOPED_TRACE(testing::Message() << c.type << " key " << c.key);
    CustomMessageBoxDlg box(c.type);
    box.ShowCheckBox(true);
    bool openAfterKey = false;
    bool openAfterClose = false;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      static_cast<wxCheckBox *>(d.FindWindow(CustomMessageBoxDlg::kCheckBoxId))->SetValue(true);
      gui_test::PressKey(d, c.key);
      openAfterKey = d.IsModal();
      if (openAfterKey) {
        d.Close();  // the close box, as the window manager sends it
        openAfterClose = d.IsModal();
        Click(d, IDNO);
      }
    });
    int const result = box.DoModal();
    EXPECT_EQ(openAfterKey, !c.closes);
    EXPECT_EQ(result, c.closes ? IDCANCEL : IDNO);
    if (!c.closes) {
      EXPECT_TRUE(openAfterClose);
    }
    // Escape exchanges nothing; No read the box.
    EXPECT_EQ(box.GetCheckState(), c.closes ? 0 : 1);
  }
}

TEST(CustomMessageBox, YesAndNoEndWithTheirIdsAndReadTheCheckBoxCancelDoesNot) {
  struct Case {
    unsigned type;
    int button;
    int stateAfter;
  };
  Case const cases[] = {{MB_YESNOCANCEL, IDYES, 1}, {MB_YESNOCANCEL, IDNO, 1},
                        {MB_YESNOCANCEL, IDCANCEL, 0}, {MB_OKCANCEL, IDOK, 1},
                        {MB_OKCANCEL, IDCANCEL, 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.button);
    CustomMessageBoxDlg box(c.type);
    box.ShowCheckBox(true);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      static_cast<wxCheckBox *>(d.FindWindow(CustomMessageBoxDlg::kCheckBoxId))->SetValue(true);
      Click(d, c.button);
    });
    EXPECT_EQ(box.DoModal(), c.button);
    EXPECT_EQ(box.GetCheckState(), c.stateAfter);
  }
}

std::wstring Repeat(std::wstring const & piece, size_t times) {
  std::wstring text;
  for (size_t i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(CustomMessageBox, TextsThatCannotFitStillGiveABoxOnTheScreen) {
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
    MessageBoxProbe const probe = RunAndProbe(box, IDNO);
    EXPECT_EQ(probe.scrolls, c.scrolls);
    EXPECT_TRUE(probe.workArea.Contains(probe.screen))
        << probe.screen.x << "," << probe.screen.y << " " << probe.screen.width << "x"
        << probe.screen.height;
    EXPECT_LE(probe.minimum.x, probe.workArea.width);
    EXPECT_LE(probe.minimum.y, probe.workArea.height);
    // Everything stays inside the box, the buttons below the text.
    wxRect const text = probe.Rect(CustomMessageBoxDlg::kTextId);
    EXPECT_LE(text.GetRight(), probe.client.x);
    EXPECT_LT(text.GetBottom(), probe.Rect(CustomMessageBoxDlg::kCheckBoxId).y);
    EXPECT_LE(probe.Rect(IDCANCEL).GetBottom(), probe.client.y);
    if (c.scrolls) {  // the whole text, in lines of its own
      wxString shown = probe.textShown;
      shown.Replace("\n", "");
      EXPECT_EQ(shown, wxString(c.text));
    }
  }
}

}  // namespace
