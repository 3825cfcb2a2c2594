// The details dialogs on real windows: the panel's two states and its
// button, the message growing the window up to the work area, the texts of
// the panel, the icon fallback, the mute switch and the don't-show memory.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/display.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

#include "dialogs/DetailsDialog.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"

namespace {

using gui_test::Click;
using D = DetailsDialogClass;
constexpr char kSection[] = "DontShowAgainMessages";

wxTextCtrl * DetailsEdit(wxDialog & d) {
  return dynamic_cast<wxTextCtrl *>(d.FindWindow(D::kDetailsEditId));
}

class DetailsDialogs : public testing::Test {
protected:
  void TearDown() override {
    MuteDetailsDialog::Instance().Mute(false);
    MuteDetailsDialog::Instance().disconnect_all_slots();
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
  }
};

// Also: the button keeps its label in both states, and the closed window
// ends 2 pixels above the details.
TEST_F(DetailsDialogs, PanelStartsAsAskedAndTheButtonTogglesItWithoutRelabelling) {
  for (bool showDetails : {true, false}) {
    SCOPED_TRACE(showDetails ? "open at start" : "closed at start");
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      wxTextCtrl * edit = DetailsEdit(d);
      ASSERT_NE(edit, nullptr);
      auto * button = dynamic_cast<wxButton *>(d.FindWindow(D::kDetailsButtonId));
      ASSERT_NE(button, nullptr);
      wxString const label = button->GetLabel();
      EXPECT_EQ(label, "&Details >>");
      EXPECT_EQ(edit->IsShown(), showDetails);
      int const firstHeight = d.GetClientSize().GetHeight();
      Click(d, D::kDetailsButtonId);
      EXPECT_EQ(edit->IsShown(), !showDetails);
      EXPECT_EQ(button->GetLabel(), label);
      int const secondHeight = d.GetClientSize().GetHeight();
      int const closedHeight = showDetails ? secondHeight : firstHeight;
      int const openHeight = showDetails ? firstHeight : secondHeight;
      EXPECT_EQ(closedHeight, edit->GetPosition().y - 2);
      EXPECT_GE(openHeight, edit->GetRect().GetBottom());
      Click(d, IDOK);
    });
    DetailsDialog(L"The import stopped.", L"Line 1\nLine 2", L"Import", 48, showDetails);
    EXPECT_EQ(script.Pending(), 0U);
  }
}

TEST_F(DetailsDialogs, PanelShowsSingleCrLfLineEndsOrANoteWhenEmpty) {
  struct Case {
    wchar_t const * details;
    wchar_t const * shown;
  } const cases[] = {
      {L"", L"No further information available."},
      {nullptr, L"No further information available."},
      {L"a\nb", L"a\r\nb"},
      {L"a\r\nb\nc\r\n", L"a\r\nb\r\nc\r\n"},
  };
  for (Case const & c : cases) {
    ModalDialogScript script;
    wxString value;
    script.Act([&](wxDialog & d) {
      if (wxTextCtrl * edit = DetailsEdit(d)) value = edit->GetValue();
      Click(d, IDOK);
    });
    DetailsDialog(L"Text", c.details, 64, true);
    // GTK's text view keeps "\r" as a character, so the value is compared as given.
    EXPECT_EQ(value, wxString(c.shown)) << (c.details != nullptr ? c.details : L"(null)");
  }
}

// A message taller than its place makes the window taller and moves what is
// below it down; a megabyte without breaks never grows the window past the
// work area and shows in a text that scrolls.
TEST_F(DetailsDialogs, LongMessagesGrowTheWindowUpToTheWorkArea) {
  std::wstring lines;
  for (int i = 0; i < 12; ++i) lines += L"Run " + std::to_wstring(i) + L" has no reference.\n";
  std::wstring manyLines;
  for (int i = 0; i < 2000; ++i) manyLines += L"Run " + std::to_wstring(i) + L" failed.\n";
  std::wstring const megabyte(1 << 20, L'x');
  struct Case {
    char const * name;
    std::wstring text;
    bool grows;
    bool scrolls;
  } const cases[] = {
      {"short", L"One line.", false, false},
      {"twelve lines", lines, true, false},
      {"2,000 lines", manyLines, true, true},
      {"megabyte without breaks", megabyte, false, true},
  };
  int shortHeight = 0;  // client heights and button places of the short message
  int shortButtonY = 0;
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      int const height = d.GetClientSize().GetHeight();
      int const buttonY = d.FindWindow(D::kDetailsButtonId)->GetPosition().y;
      if (shortHeight == 0) {
        shortHeight = height;
        shortButtonY = buttonY;
      } else {
        EXPECT_EQ(height > shortHeight, c.grows);
        if (!c.scrolls) {
          EXPECT_EQ(buttonY - shortButtonY, height - shortHeight);
        }
      }
      wxRect const area = wxDisplay(0U).GetClientArea();
      EXPECT_LE(d.GetSize().GetHeight(), area.GetHeight());
      EXPECT_EQ(dynamic_cast<wxTextCtrl *>(d.FindWindow(D::kTextId)) != nullptr, c.scrolls);
      Click(d, IDOK);
    });
    DetailsDialog(c.text.c_str(), L"", 48, false);
  }
}

TEST_F(DetailsDialogs, AnIconThatIsNoResourceShowsTheWarning) {
  ModalDialogScript script;
  wxImage shown;
  wxSize size;
  script.Act([&](wxDialog & d) {
    auto * icon = dynamic_cast<wxStaticBitmap *>(d.FindWindow(D::kIconId));
    if (icon != nullptr) {
      shown = icon->GetBitmap().ConvertToImage();
      size = icon->GetSize();
    }
    Click(d, IDOK);
  });
  DetailsDialog(L"Text", L"", 59999, false);
  ASSERT_TRUE(shown.IsOk());
  wxImage const warning =
      wxArtProvider::GetBitmap(wxART_WARNING, wxART_MESSAGE_BOX, size).ConvertToImage();
  ASSERT_EQ(shown.GetSize(), warning.GetSize());
  EXPECT_EQ(0, memcmp(shown.GetData(), warning.GetData(),
                      static_cast<size_t>(shown.GetWidth() * shown.GetHeight() * 3)));
}

// Muted, nothing shows (no script step is used) and the signal gets what
// would have shown, the stored answer of the don't-show form notwithstanding.
TEST_F(DetailsDialogs, MutedTheSignalGetsEveryFormsTexts) {
  struct Caught {
    std::wstring text, details, caption;
    bool hasCaption;
  };
  std::vector<Caught> caught;
  MuteDetailsDialog & mute = MuteDetailsDialog::Instance();
  mute.connect([&](wchar_t const * t, wchar_t const * d, wchar_t const * c) {
    caught.push_back({t, d, c != nullptr ? c : L"", c != nullptr});
  });
  mute.Mute(true);
  AppProfile::WriteProfileInt(kSection, "Stored", 1);
  ModalDialogScript script;  // no step: any dialog shown fails the test
  DetailsDialog(L"first", L"d1", 16, true);
  DetailsDialog(L"second", L"d2", L"c2", 16, true);
  DetailsDialog(nullptr, L"third", L"d3", L"c3", 16, true);
  DetailsDialogDontShowAgain(L"fourth", L"d4", L"c4", L"Stored", 16, true);
  EXPECT_TRUE(script.Shown().empty());
  ASSERT_EQ(caught.size(), 4U);
  EXPECT_FALSE(caught[0].hasCaption);
  EXPECT_EQ(caught[0].text, L"first");
  EXPECT_EQ(caught[1].caption, L"c2");
  EXPECT_EQ(caught[2].details, L"d3");
  EXPECT_EQ(caught[3].text, L"fourth");
  EXPECT_EQ(caught[3].caption, L"c4");
}

TEST_F(DetailsDialogs, DontShowAgainStoresOneOnTickedOkAndAnyStoredValueKeepsItAway) {
  struct Case {
    char const * name;
    int stored;  // -1: nothing stored
    bool tick;
    bool shows;
    int afterwards;
  } const cases[] = {
      {"unticked", -1, false, true, -1},         {"ticked", -1, true, true, 1},
      {"stored 0", 0, false, false, 0},          {"stored 3", 3, false, false, 3},
      {"stored negative", -7, false, false, -7},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.name);
    AppProfile::WriteProfileString(kSection, nullptr, nullptr);
    if (c.stored != -1) AppProfile::WriteProfileInt(kSection, "Key", c.stored);
    ModalDialogScript script;
    if (c.shows)
      script.Act([&](wxDialog & d) {
        auto * box = dynamic_cast<wxCheckBox *>(d.FindWindow(D::kCheckBoxId));
        ASSERT_NE(box, nullptr);
        box->SetValue(c.tick);
        Click(d, IDOK);
      });
    DetailsDialogDontShowAgain(L"Text", L"Details", L"Caption", L"Key", 48, false);
    EXPECT_EQ(script.Shown().size(), c.shows ? 1U : 0U);
    EXPECT_EQ(AppProfile::GetProfileInt(kSection, "Key", -1), c.afterwards);
  }
}

}  // namespace
