// The information dialog with plain and rich text: remembered answers given back
// without showing, the button row laid out from the template's Close
// button, what closing stores, the sizes, and the plain text's control.
#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <map>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/textctrl.h>

#include "controls/VxRichEdit.h"
#include "dialogs/InfoDialog.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

using gui_test::Click;
constexpr char kSection[] = "DontShowAgainMessages";

class InfoDialogs : public testing::Test {
protected:
  void TearDown() override { AppProfile::WriteProfileString(kSection, nullptr, nullptr); }
};

TEST_F(InfoDialogs, OnlyTheFiveButtonBitsCountAsRememberedAnswers) {
  struct Case {
    int stored;    // -1: nothing stored
    int replayed;  // 0: the dialog shows
  } const cases[] = {{-1, 0}, {0, 0},     {1, IDCANCEL}, {2, IDOK}, {3, 0},  {4, IDCANCEL},
                     {6, 0},  {8, IDYES}, {16, IDNO},    {32, 0},   {-16, 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.stored);
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
    if (c.stored != -1) AppProfile::WriteProfileInt(kSection, "Notes", c.stored);
    EXPECT_EQ(InfoDialog::WillShow(L"Notes"), c.replayed == 0);
    InfoDialog dialog(L"Notes");
    dialog.SetText(L"Read me.", InfoDialog::PlainText);
    dialog.EnableDontShowAgain(L"Notes");
    ModalDialogScript script;  // a step only where the dialog must show
    if (c.replayed == 0) script.Answer(IDOK);
    int const result = dialog.DoModal();
    EXPECT_EQ(script.Shown().size(), c.replayed == 0 ? 1U : 0U);
    if (c.replayed != 0) {
      EXPECT_EQ(result, c.replayed);
    }
  }
  EXPECT_TRUE(InfoDialog::WillShow(nullptr));
  EXPECT_TRUE(InfoDialog::WillShow(L""));
}

// Shown buttons right to left, which has the focus and is default, and the
// id each gives.
TEST_F(InfoDialogs, ButtonsStandRightToLeftFromTheTemplatesCloseButton) {
  using B = InfoDialog;
  struct Case {
    char const * name;
    int mask;
    InfoDialog::Buttons defaultButton;
    std::vector<int> rightToLeft;
    std::vector<wxString> labels;
    int focused;
  } const cases[] = {
      {"template", B::Close, B::Close, {IDCANCEL}, {"Close"}, IDCANCEL},
      {"OK Cancel", B::OK | B::Cancel, B::OK, {IDCANCEL, IDOK}, {"Cancel", "OK"}, IDOK},
      {"Yes No", B::Yes | B::No, B::No, {IDNO, IDYES}, {"No", "Yes"}, IDNO},
      {"all",
       B::OK | B::Cancel | B::Yes | B::No,
       B::Yes,
       {IDCANCEL, IDOK, IDNO, IDYES},
       {"Cancel", "OK", "No", "Yes"},
       IDYES},
      {"Close OK", B::Close | B::OK, B::Close, {IDCANCEL, IDOK}, {"Close", "OK"}, IDCANCEL},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    InfoDialog dialog(L"Buttons");
    dialog.SetText(L"Text", InfoDialog::PlainText);
    dialog.SetButtons(c.mask, c.defaultButton);
    ModalDialogScript script;
    int rightEdge = 0;
    script.Act([&](wxDialog & d) {
      std::vector<std::pair<int, int>> shown;  // x, id
      for (int id : {IDOK, IDCANCEL, IDYES, IDNO})
        if (wxWindow * w = d.FindWindow(id); w != nullptr && w->IsShown())
          shown.emplace_back(w->GetPosition().x, id);
      std::sort(shown.rbegin(), shown.rend());
      ASSERT_EQ(shown.size(), c.rightToLeft.size());
      for (size_t i = 0; i < shown.size(); ++i) {
        EXPECT_EQ(shown[i].second, c.rightToLeft[i]) << i;
        EXPECT_EQ(d.FindWindow(shown[i].second)->GetLabel(), c.labels[i]) << i;
      }
      rightEdge = d.FindWindow(shown.front().second)->GetRect().GetRight();
      wxWindow * focus = wxWindow::FindFocus();
      EXPECT_EQ(focus != nullptr ? focus->GetId() : 0, c.focused);
      EXPECT_EQ(d.GetDefaultItem() != nullptr ? d.GetDefaultItem()->GetId() : 0, c.focused);
      Click(d, c.rightToLeft.back());
    });
    EXPECT_EQ(dialog.DoModal(), c.rightToLeft.back());
    EXPECT_GT(rightEdge, 0);
  }
}

TEST_F(InfoDialogs, ClosingStoresTheButtonsBitWhenTickedAndZeroOtherwise) {
  using B = InfoDialog;
  struct Case {
    int button;
    bool tick;
    int stored;
  } const cases[] = {{IDOK, true, B::OK}, {IDCANCEL, true, B::Cancel}, {IDYES, true, B::Yes},
                     {IDNO, true, B::No}, {IDYES, false, 0},           {IDCANCEL, false, 0}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.button);
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
    InfoDialog dialog(L"Store");
    dialog.SetText(L"Text", InfoDialog::PlainText);
    dialog.SetButtons(B::OK | B::Cancel | B::Yes | B::No, B::OK);
    dialog.EnableDontShowAgain(L"Stored answer");
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      auto * box = dynamic_cast<wxCheckBox *>(d.FindWindow(InfoDialog::kDontShowId));
      ASSERT_NE(box, nullptr);
      EXPECT_TRUE(box->IsShown());
      box->SetValue(c.tick);
      Click(d, c.button);
    });
    EXPECT_EQ(dialog.DoModal(), c.button);
    EXPECT_EQ(AppProfile::GetProfileInt(kSection, "Stored answer", -1), c.stored);
  }
  // The template's Close, ticked, is remembered as bit 1 and replayed as Cancel.
  AppProfile::WriteProfileString(kSection, nullptr, nullptr);
  InfoDialog dialog(L"Close");
  dialog.SetText(L"Text", InfoDialog::PlainText);
  dialog.EnableDontShowAgain(L"Closed");
  ModalDialogScript script;
  script.Act([](wxDialog & d) {
    dynamic_cast<wxCheckBox *>(d.FindWindow(InfoDialog::kDontShowId))->SetValue(true);
    d.Close();
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(AppProfile::GetProfileInt(kSection, "Closed", -1), InfoDialog::Close);
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(InfoDialogs, SizesScaleTheTemplateInPlace) {
  std::map<int, wxSize> sizes;
  for (auto size : {InfoDialog::Template, InfoDialog::Small, InfoDialog::Large, InfoDialog::Huge}) {
    InfoDialog dialog(L"Size");
    dialog.SetText(L"Text", InfoDialog::PlainText);
    dialog.SetDefaultSize(size);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      sizes[size] = d.GetSize();
      Click(d, IDCANCEL);
    });
    dialog.DoModal();
  }
  ASSERT_EQ(sizes.size(), 4U);
  wxSize const base = sizes[InfoDialog::Template];
  for (auto [size, scale] : {std::pair{InfoDialog::Small, 0.8}, std::pair{InfoDialog::Large, 1.4},
                             std::pair{InfoDialog::Huge, 2.0}}) {
    EXPECT_NEAR(sizes[size].GetWidth(), base.GetWidth() * scale, 1.0) << size;
    EXPECT_NEAR(sizes[size].GetHeight(), base.GetHeight() * scale, 1.0) << size;
  }
}

// A NUL ends the text as it ends any C string; bare "\n" line ends.
TEST_F(InfoDialogs, PlainTextIsAReadOnlyEditWithRoomBesideTheText) {
  InfoDialog dialog(L"Plain");
  dialog.SetText(L"first\nsecond\0hidden", InfoDialog::PlainText);
  ModalDialogScript script;
  script.Act([](wxDialog & d) {
    auto * edit = dynamic_cast<wxTextCtrl *>(d.FindWindow(InfoDialog::kTextPlaceId));
    ASSERT_NE(edit, nullptr);
    EXPECT_FALSE(edit->IsEditable());
    EXPECT_TRUE(edit->IsMultiLine());
    EXPECT_EQ(edit->GetValue().Find("hidden"), wxNOT_FOUND);
    EXPECT_NE(edit->GetValue().Find("second"), wxNOT_FOUND);
    GtkWidget * view = edit->GetConnectWidget();
    ASSERT_TRUE(GTK_IS_TEXT_VIEW(view));
    EXPECT_EQ(gtk_text_view_get_left_margin(GTK_TEXT_VIEW(view)), 4);
    EXPECT_EQ(gtk_text_view_get_right_margin(GTK_TEXT_VIEW(view)), 8);
    Click(d, IDCANCEL);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

// What the rich edit holds once the dialog shows.
struct RichShown {
  bool readOnly = false;
  wxString text;
  bool boldAt = false;  // the character at `boldIndex` is bold
};

RichShown ShowRich(InfoDialog & dialog, wxString const & boldWord) {
  RichShown shown;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    auto * rich = dynamic_cast<VxRichEdit *>(d.FindWindow(InfoDialog::kTextPlaceId));
    ASSERT_NE(rich, nullptr);
    shown.readOnly = !rich->IsEditable();
    shown.text = rich->GetValue();
    int const at = shown.text.Find(boldWord);
    wxRichTextAttr style;
    if (at != wxNOT_FOUND && rich->GetStyle(at, style))
      shown.boldAt = style.GetFontWeight() == wxFONTWEIGHT_BOLD;
    Click(d, IDCANCEL);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  return shown;
}

// Rich text given as text (characters beyond 7 bits included) and from a
// resource shows with its formatting; damaged rich text shows what could be
// read, and plain words read as rich text stay words.
TEST_F(InfoDialogs, RichTextShowsWithItsFormatting) {
  struct Case {
    char const * name;
    wchar_t const * text;  // null: resource 4310
    wxString shows;
    wxString bold;
  } const cases[] = {
      {"text", L"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Due: \\b R-12\\b0  caf\\'e9 \u20ac}",
       wxString::FromUTF8("Due: R-12 caf\xc3\xa9 \xe2\x82\xac"), "R-12"},
      {"resource", nullptr, "Release 6.3: runs sort by their numbers.", "6.3"},
      {"damaged", L"{\\rtf1 Cut \\b short", "Cut short", "short"},
      {"plain words", L"No rich text here.", "No rich text here.", ""},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    InfoDialog dialog(L"Rich");
    if (c.text != nullptr)
      dialog.SetText(c.text, InfoDialog::RichText);
    else
      dialog.SetResource(4310, InfoDialog::RichText);
    EXPECT_EQ(dialog.GetFormat(), InfoDialog::RichText);
    RichShown const shown = ShowRich(dialog, c.bold.empty() ? c.shows : c.bold);
    EXPECT_TRUE(shown.readOnly);
    EXPECT_NE(shown.text.Find(c.shows), wxNOT_FOUND) << shown.text;
    EXPECT_EQ(shown.boldAt, !c.bold.empty());
  }
  // The constructor with a resource, run twice: the second run rebuilds it.
  InfoDialog dialog(L"Rich", 4310U, InfoDialog::RichText);
  for (int run = 0; run < 2; ++run)
    EXPECT_NE(ShowRich(dialog, "6.3").text.Find("15-second steps"), wxNOT_FOUND) << run;
}

// A resource id the module lacks shows an empty page, and a megabyte of
// rich text without a break is cut at the edit's limit, not refused.
TEST_F(InfoDialogs, MissingOrHugeRichTextStillShows) {
  InfoDialog missing(L"Rich", 4999U, InfoDialog::RichText);
  EXPECT_TRUE(ShowRich(missing, "x").text.empty());
  std::wstring const huge = L"{\\rtf1 " + std::wstring(2'000'000, L'x') + L"}";
  InfoDialog big(L"Rich");
  big.SetText(huge.c_str(), InfoDialog::RichText);
  RichShown const shown = ShowRich(big, "x");
  EXPECT_GT(shown.text.size(), 1'000'000U);
  EXPECT_LE(shown.text.size(), 1'048'576U);
}

}  // namespace
