// The backstage panes' helpers: numbers grouped with the locale's
// separator inside the caller's buffer, the clipboard copy with the user
// told what failed (a busy clipboard put in by the test), and the fonts.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <locale>
#include <string>
#include <vector>

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/font.h>
#include <wx/frame.h>
#include <wx/settings.h>

#include "harness/ModalDialogScript.h"
#include "printing/BackstagePaneUtils.h"

namespace {

// A locale whose separator is a dot, to see that it is the locale's.
struct DotGrouping : std::numpunct<wchar_t> {
  wchar_t do_thousands_sep() const override { return L'.'; }
};

class GlobalLocale {
public:
  explicit GlobalLocale(std::locale const & locale) : mFormer(std::locale::global(locale)) {}
  ~GlobalLocale() { std::locale::global(mFormer); }
  GlobalLocale(GlobalLocale const &) = delete;
  GlobalLocale & operator=(GlobalLocale const &) = delete;

private:
  std::locale mFormer;
};

std::wstring Commas(std::int64_t value, unsigned size = 64) {
  std::vector<wchar_t> buffer(size + 1, L'#');
  BackstagePaneUtils::InsertCommas(value, buffer.data(), size);
  EXPECT_EQ(buffer[size], L'#') << "written past the buffer";
  return buffer.data();
}

TEST(InsertCommasTest, GroupsEveryThreeDigitsFromTheRightInsideTheBuffer) {
  GlobalLocale const classic(std::locale::classic());
  struct Case {
    std::int64_t value;
    unsigned size;
    wchar_t const * expected;
  };
  for (Case const & c : std::vector<Case>{
           {0, 64, L"0"},
           {999, 64, L"999"},
           {1000, 64, L"1,000"},
           {-1000, 64, L"-1,000"},
           {-999999, 64, L"-999,999"},
           {1234567, 64, L"1,234,567"},
           {std::numeric_limits<std::int64_t>::max(), 64, L"9,223,372,036,854,775,807"},
           {std::numeric_limits<std::int64_t>::min(), 64, L"-9,223,372,036,854,775,808"},
           {1234567, 6, L"1,234"},  // cut: five characters and the zero
           {1234567, 1, L""},
       })
    EXPECT_EQ(Commas(c.value, c.size), c.expected) << c.value << " in " << c.size;

  std::wstring untouched = L"kept";
  BackstagePaneUtils::InsertCommas(1234, untouched.data(), 0);
  EXPECT_EQ(untouched, L"kept");
}

TEST(InsertCommasTest, TakesTheSeparatorOfTheGlobalLocale) {
  GlobalLocale const dots(std::locale(std::locale::classic(), new DotGrouping));
  EXPECT_EQ(Commas(-12345678), L"-12.345.678");
}

class CopyTextTest : public testing::Test {
protected:
  void SetUp() override { owner = new wxFrame(nullptr, wxID_ANY, "owner"); }
  void TearDown() override {
    BackstagePaneUtils::SetClipboardAccess({});
    owner->Destroy();
  }
  wxFrame * owner = nullptr;
};

TEST_F(CopyTextTest, PutsTheTextOnTheClipboard) {
  ASSERT_TRUE(BackstagePaneUtils::CopyTextToClipboard(owner, L"Run 12\t3,5 mg/l"));
  ASSERT_TRUE(wxTheClipboard->Open());
  wxTextDataObject text;
  bool const got = wxTheClipboard->GetData(text);
  wxTheClipboard->Close();
  ASSERT_TRUE(got);
  EXPECT_EQ(text.GetText(), L"Run 12\t3,5 mg/l");
}

TEST_F(CopyTextTest, EachFailureIsToldAndTheClipboardIsNotLeftOpen) {
  struct Case {
    bool open, empty, set;
    char const * message;
    bool closed;
  };
  for (Case const & c : std::vector<Case>{
           {false, true, true,
            "Cannot open the Clipboard. Another program might be using the Clipboard.", false},
           {true, false, true,
            "Cannot empty the Clipboard. Another program might be using the Clipboard.", true},
           {true, true, false, "Unable to set Clipboard data.", true},
       }) {
    int closes = 0;
    BackstagePaneUtils::SetClipboardAccess({[&] { return c.open; }, [&] { return c.empty; },
                                            [&](wxString const &) { return c.set; },
                                            [&] { ++closes; }});
    ModalDialogScript script;
    script.Answer(wxID_OK);
    EXPECT_FALSE(BackstagePaneUtils::CopyTextToClipboard(owner, L"lost"));
    ASSERT_EQ(script.Shown().size(), 1u) << c.message;
    EXPECT_EQ(script.Shown()[0].title, "Copy text");
    EXPECT_EQ(script.Shown()[0].message, c.message);
    EXPECT_EQ(closes, c.closed ? 1 : 0) << c.message;
  }
}

TEST(InitFontsTest, TheCaptionIsTheLargerFontOfTheSameFace) {
  wxFont regular;
  wxFont caption;
  BackstagePaneUtils::InitFonts(regular, caption);
  ASSERT_TRUE(regular.IsOk());
  ASSERT_TRUE(caption.IsOk());
  EXPECT_EQ(caption.GetFaceName(), regular.GetFaceName());
  EXPECT_GT(caption.GetFractionalPointSize(), regular.GetFractionalPointSize());
  // None of the panes' faces is on this system: the desktop's GUI font.
  EXPECT_EQ(regular.GetFractionalPointSize(),
            wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFractionalPointSize());
}

}  // namespace
