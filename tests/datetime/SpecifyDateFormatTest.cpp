// The date format dialog on real windows: what it proposes, how the
// explanation opens and closes, what OK keeps among the recent formats, and
// the loop that asks until a format is valid.
#include <gtest/gtest.h>

#include <boost/format.hpp>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/dcclient.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "BoxRecorder.h"
#include "datetime/RecentDateFormats.h"
#include "datetime/SpecifyDateFormat.h"
#include "datetime/UserFormatString.h"
#include "dialogs/LimitLineLength.h"
#include "frame/AppProfile.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "settings/RegistrySection.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"
#include "utl/VxTimeUtl.h"

using D = SpecifyDateFormat;
using Strings = std::vector<std::string>;

namespace {

wxComboBox & Combo(wxDialog & d) {
  return *wxStaticCast(d.FindWindow(D::kFormatComboId), wxComboBox);
}

Strings Choices(wxDialog & d) {
  Strings choices;
  for (wxString const & item : Combo(d).GetStrings())
    choices.push_back(vx3::WideToUtf8(item.ToStdWstring()));
  return choices;
}

// Types `format` into the combo and presses OK.
void Give(wxDialog & d, wxString const & format) {
  Combo(d).SetValue(format);
  gui_test::Click(d, IDOK);
}

class SpecifyDateFormatTest : public testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("DateFormatDialogTest", "1.0");
    HKEY app = AppProfile::GetAppRegistryKey();
    ASSERT_NE(app, nullptr);
    RegDeleteKeyW(app, L"DateTimeDefaults");
    RegCloseKey(app);
  }

  // What "Settings" holds as text, or "(none)".
  static std::string StoredValue() {
    HKEY app = AppProfile::GetAppRegistryKey();
    RegistrySection section;
    std::string text = "(none)";
    if (section.Open(app, "DateTimeDefaults", KEY_READ, false)) section.ReadKey("Settings", text);
    RegCloseKey(app);
    return text;
  }
};

}  // namespace

TEST_F(SpecifyDateFormatTest, ProposesTheFormatThenTheRecentOnesThatDiffer) {
  struct Case {
    char const * name;
    Strings recent;
    std::string format;
    Strings choices;
  };
  std::string const regional =
      (boost::format("%1% %2%") % VxTimeUtl::GetUserLocaleDate(false, VxTimeUtl::UserLocale) %
       VxTimeUtl::GetUserLocaleTime(VxTimeUtl::UserLocale))
          .str();
  Case const cases[] = {
      {"no recent", {}, "yyyy", {"yyyy"}},
      {"recent after it", {"dd", "HH"}, "yyyy", {"yyyy", "dd", "HH"}},
      {"itself not twice", {"dd", "yyyy", "HH"}, "yyyy", {"yyyy", "dd", "HH"}},
      {"case-sensitive", {"YYYY"}, "yyyy", {"yyyy", "YYYY"}},
      {"empty: regional", {"dd"}, "", {regional, "dd"}},
  };
  for (Case const & c : cases) {
    VxTimeUtl::WriteRecentDateFormats(c.recent);
    SpecifyDateFormat dialog("Heading", "2024-05-06", c.format);
    ModalDialogScript script;
    Strings shown;
    int selection = -1;
    script.Act([&](wxDialog & d) {
      shown = Choices(d);
      selection = Combo(d).GetSelection();
      d.EndModal(IDCANCEL);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL) << c.name;
    EXPECT_EQ(shown, c.choices) << c.name;
    EXPECT_EQ(selection, 0) << c.name;
  }
}

TEST_F(SpecifyDateFormatTest, OpensShortAndTheButtonTogglesTheExplanation) {
  SpecifyDateFormat dialog("", "12/31/2024 23:59", "MM/dd/yyyy HH:mm");
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    gui_test::WaitUntilPlaced(d);
    wxWindow * details = d.FindWindow(D::kDetailsId);
    wxWindow * button = d.FindWindow(D::kDetailsButtonId);
    int const detailsTop = details->GetPosition().y;
    EXPECT_FALSE(details->IsShown());
    EXPECT_EQ(button->GetLabel(), "Show details >>");
    gui_test::WaitUntil([&] { return d.GetClientSize().y == detailsTop - D::kShortGap; });
    EXPECT_EQ(d.GetClientSize().y, detailsTop - D::kShortGap);
    int const width = d.GetClientSize().x;

    gui_test::Click(d, D::kDetailsButtonId);
    gui_test::Flush();
    EXPECT_TRUE(details->IsShown());
    EXPECT_EQ(button->GetLabel(), "Hide details <<");
    // The window manager resizes the dialog in its own time.
    EXPECT_TRUE(
        gui_test::WaitUntil([&] { return d.GetClientSize().y > details->GetRect().GetBottom(); }));
    EXPECT_EQ(d.GetClientSize().x, width);
    EXPECT_GE(d.GetMinSize().y, d.GetSize().y);  // cannot be dragged over the text
    // All sixteen items are explained, one a line.
    wxString const text = wxStaticCast(details, wxTextCtrl)->GetValue();
    for (char const * item :
         {"yyyy - ", "yy - ", "MMM - ", "MM - ", "M - ", "ddd - ", "dd - ", "d - ", "HH - ", "H - ",
          "hh - ", "h - ", "mm - ", "ss - ", "fff - ", "tt - "})
      EXPECT_TRUE(text.StartsWith(item) || text.Contains(wxString("\n") + item)) << item;

    gui_test::Click(d, D::kDetailsButtonId);
    gui_test::Flush();
    EXPECT_FALSE(details->IsShown());
    EXPECT_EQ(button->GetLabel(), "Show details >>");
    gui_test::WaitUntil([&] { return d.GetClientSize().y == detailsTop - D::kShortGap; });
    EXPECT_EQ(d.GetClientSize().y, detailsTop - D::kShortGap);
    EXPECT_LE(d.GetMinSize().y, d.GetSize().y);
    d.EndModal(IDCANCEL);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(SpecifyDateFormatDetails, SixteenLinesWithCrLfInTheEdit) {
  wxString const details = SpecifyDateFormat::GetFormatDetails();
  EXPECT_EQ(details.Freq('\n'), 16U);
  EXPECT_EQ(details.Freq('\r'), 0U);
  EXPECT_TRUE(details.StartsWith("yyyy - year using four digits (ex. 2005)\n"));
  EXPECT_TRUE(details.EndsWith("tt - AM or PM\n"));
}

TEST_F(SpecifyDateFormatTest, TheSampleGetsTheHeightOfTheWrappedHint) {
  for (bool noDate : {false, true}) {
    SpecifyDateFormat dialog("Heading", "31.12.2024", "dd.MM.yyyy");
    if (noDate) dialog.SetNoDate();
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      wxWindow * sample = d.FindWindow(D::kSampleId);
      wxClientDC dc(sample);
      dc.SetFont(sample->GetFont());
      std::wstring const hint = LimitLineLength::ByPixels(
          L"The date could not be parsed automatically. Specify the format to use.", dc,
          static_cast<size_t>(sample->GetClientSize().x));
      EXPECT_EQ(sample->GetSize().y,
                LimitLineLength::GetBoundsRect(hint.c_str(), sample->GetFont()).height);
      // What lay below the sample lies below it still.
      EXPECT_GT(d.FindWindow(D::kFormatLabelId)->GetPosition().y, sample->GetRect().GetBottom());
      EXPECT_EQ(sample->GetLabel(), noDate ? "" : "31.12.2024");
      EXPECT_EQ(d.FindWindow(D::kSampleLabelId)->GetLabel().empty(), noDate);
      d.EndModal(IDCANCEL);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  }
}

TEST_F(SpecifyDateFormatTest, OkIsEnabledExactlyWithAFormat) {
  SpecifyDateFormat dialog("Heading", "x", "yyyy");
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    wxWindow * ok = d.FindWindow(IDOK);
    d.UpdateWindowUI(wxUPDATE_UI_RECURSE);
    EXPECT_TRUE(ok->IsEnabled());
    Combo(d).SetValue("");
    d.UpdateWindowUI(wxUPDATE_UI_RECURSE);
    EXPECT_FALSE(ok->IsEnabled());
    Combo(d).SetValue("d");
    d.UpdateWindowUI(wxUPDATE_UI_RECURSE);
    EXPECT_TRUE(ok->IsEnabled());
    d.EndModal(IDCANCEL);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(SpecifyDateFormatTest, OkPutsTheFormatFirstAndWritesNothingWhenItIsFirst) {
  struct Case {
    char const * name;
    std::string stored;  // raw, as another program may have left it
    std::string given;
    std::string after;
  };
  Case const cases[] = {
      {"nothing stored", "(none)", "yyyy", "yyyy"},
      {"new in front", "a;b", "yyyy", "yyyy;a;b"},
      {"moved up", "a;yyyy;b", "yyyy", "yyyy;a;b"},
      // Ten entries stay ten: had OK written, there would be nine.
      {"first already", "yyyy;1;2;3;4;5;6;7;8;9", "yyyy", "yyyy;1;2;3;4;5;6;7;8;9"},
      {"full", "1;2;3;4;5;6;7;8;9", "yyyy", "yyyy;1;2;3;4;5;6;7;8"},
  };
  for (Case const & c : cases) {
    SetUp();
    if (c.stored != "(none)") {
      HKEY app = AppProfile::GetAppRegistryKey();
      RegistrySection section(app, "DateTimeDefaults", KEY_READ | KEY_WRITE, true);
      section.WriteKey("Settings", c.stored.c_str());
      RegCloseKey(app);
    }
    SpecifyDateFormat dialog("Heading", "x", "HH");
    ModalDialogScript script;
    script.Act([&](wxDialog & d) { Give(d, c.given); });
    EXPECT_EQ(dialog.DoModal(), IDOK) << c.name;
    EXPECT_EQ(dialog.GetDateFormatW(), c.given) << c.name;
    EXPECT_EQ(StoredValue(), c.after) << c.name;
  }
}

TEST_F(SpecifyDateFormatTest, CancelKeepsTheProposalAndTheStore) {
  SpecifyDateFormat dialog("Heading", "x", "HH");
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    Combo(d).SetValue("yyyy");
    gui_test::PressKey(d, WXK_ESCAPE);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.GetDateFormatW(), "HH");
  EXPECT_EQ(StoredValue(), "(none)");
}

TEST_F(SpecifyDateFormatTest, GetUserFormatStringAsksAgainWithWhatWasTyped) {
  BoxRecorder boxes;
  ModalDialogScript script;
  std::vector<wxString> proposed;
  auto give = [&](wxString const & format) {
    return [&proposed, format](wxDialog & d) {
      proposed.push_back(Combo(d).GetValue());
      Give(d, format);
    };
  };
  script.Act(give("h:mm")).Act(give("yy yy")).Act(give("h:mm tt"));
  std::string result = "untouched";
  EXPECT_TRUE(VxTimeUtl::GetUserFormatString("Heading", "1:05 PM", "HH:mm", result));
  EXPECT_EQ(result, "h:mm tt");
  EXPECT_EQ(proposed, (std::vector<wxString>{"HH:mm", "h:mm", "yy yy"}));
  ASSERT_EQ(boxes.Boxes().size(), 2U);  // one for each invalid format
  EXPECT_NE(boxes.Boxes()[0].text.find("'tt'"), std::string::npos);
  EXPECT_NE(boxes.Boxes()[1].text.find("year"), std::string::npos);

  // Cancel, also after an invalid format, gives false and leaves the result.
  script.Act(give("h")).Act([](wxDialog & d) { d.EndModal(IDCANCEL); });
  EXPECT_FALSE(VxTimeUtl::GetUserFormatString("Heading", "", "", result));
  EXPECT_EQ(result, "h:mm tt");
}
