// The about dialog and the maker's page, shown for real and answered by
// script: what shows when, where details and pictures come from, and which
// links may leave the application.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/html/htmlwin.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "dialogs/DetailsDialog.h"
#include "frame/AboutDialog.h"
#include "frame/AboutKarvinelDialog.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/WinUser.h"
#include "settings/LaunchURL.h"
#include "utl/VxSystemInfo.h"

namespace {

class AboutTest : public ::testing::Test {
protected:
  void SetUp() override {
    VxSystemInfo::SetApplication("Analyzer", "6.3.2.1234");
    mFormer = VxSetUrlLauncher([this](std::string const & target) {
      launched.push_back(target);
      return true;
    });
  }
  void TearDown() override { VxSetUrlLauncher(mFormer); }

  static wxHtmlWindow * Page(wxDialog & dialog) {
    wxWindow * place = dialog.FindWindow(AboutKarvinelDialog::kPageId);
    if (place == nullptr || place->GetChildren().empty()) return nullptr;
    return dynamic_cast<wxHtmlWindow *>(place->GetChildren().front());
  }

  std::vector<std::string> launched;

private:
  VxUrlLauncher mFormer;
};

size_t Count(std::string const & text, std::string const & part) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST_F(AboutTest, ButtonsShowForDetailsAndTheMakerAndNoticesShareAFont) {
  struct Case {
    wchar_t const * details;
    bool companyButton;
  } const cases[] = {{nullptr, true}, {L"Licensed to: Lab 4", true}, {L"x", false}};
  for (Case const & c : cases) {
    SCOPED_TRACE(c.details != nullptr ? "with details" : "without details");
    AboutDialog dialog(nullptr, "Analyzer", 13024, nullptr, L"Second notice.", c.companyButton);
    if (c.details != nullptr) dialog.SetDetailsText(c.details);
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      EXPECT_EQ(d.GetTitle(), "About Analyzer");
      EXPECT_EQ(d.FindWindow(AboutDialog::kDetailsButtonId)->IsShown(), c.details != nullptr);
      EXPECT_EQ(d.FindWindow(AboutDialog::kCompanyButtonId)->IsShown(), c.companyButton);
      EXPECT_EQ(d.FindWindow(AboutDialog::kVersionId)->GetLabel(), "Version 6.3.2 (build 1234)");
      wxWindow * first = d.FindWindow(AboutDialog::kFirstNoticeId);
      wxWindow * second = d.FindWindow(AboutDialog::kSecondNoticeId);
      EXPECT_FALSE(first->GetLabel().empty());
      EXPECT_EQ(second->GetLabel(), "Second notice.");
      EXPECT_EQ(first->GetFont(), second->GetFont());
      EXPECT_TRUE(d.FindWindow(AboutDialog::kPictureId)->IsShown());
      d.EndModal(IDOK);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
  }
}

TEST_F(AboutTest, DetailsOpenInTheDetailsDialogAndTheMakersPageByDefault) {
  AboutDialog dialog(nullptr, nullptr, 13024);
  dialog.SetDetailsText(L"Licensed to: Lab 4");
  dialog.SetDetailsButtonText(L"&Licence...");
  // Details the user asks for show even while a batch run mutes the
  // details dialogs.
  MuteDetailsDialog::Instance().Mute(true);
  ModalDialogScript script;
  wxString details;
  std::string page;
  script
      .Act([&](wxDialog & d) {
        EXPECT_EQ(d.FindWindow(AboutDialog::kDetailsButtonId)->GetLabel(), "&Licence...");
        gui_test::Snapshot(d, "about-dialog");
        gui_test::Click(d, AboutDialog::kDetailsButtonId);
        gui_test::Click(d, AboutDialog::kCompanyButtonId);
        d.EndModal(IDOK);
      })
      .Act([&](wxDialog & d) {
        if (auto * text = dynamic_cast<wxTextCtrl *>(d.FindWindow(13041)))
          details = text->GetValue();
        d.EndModal(IDOK);
      })
      .Act([&](wxDialog & d) {
        EXPECT_EQ(d.GetTitle(), "About Us");
        if (auto * company = dynamic_cast<AboutKarvinelDialog *>(&d)) page = company->GetPageHtml();
        gui_test::Snapshot(d, "about-company");
        d.EndModal(IDOK);
      });
  dialog.DoModal();
  MuteDetailsDialog::Instance().Mute(false);
  EXPECT_EQ(details, "Licensed to: Lab 4");
  // The library's own page, with its picture from the resources.
  EXPECT_NE(page.find("Karvinel"), std::string::npos);
  EXPECT_EQ(Count(page, "<img src=\"memory:"), 1u) << page;
}

TEST_F(AboutTest, OnlyWebAndMailLinksLeaveAsTheyAre) {
  AboutKarvinelDialog dialog(nullptr);
  struct Case {
    char const * url;
    bool opens;
  } const cases[] = {
      {"https://example.org/a?b=c&d=%20", true},
      {"http://example.org", true},
      {"mailto:support@example.org?subject=Hi", true},
      {"HTTPS://EXAMPLE.ORG", true},
      {"javascript:alert(1)", false},
      {"file:///etc/passwd", false},
      {"data:text/html,<b>x</b>", false},
      {"app:exit", false},
      {"/usr/bin/xterm", false},
      {"", false},
      {" https://example.org", false},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.url);
    launched.clear();
    EXPECT_EQ(dialog.OnHyperlinkClick(c.url), c.opens);
    EXPECT_EQ(launched, c.opens ? std::vector<std::string>{c.url} : std::vector<std::string>{});
  }
}

TEST_F(AboutTest, PagePicturesLinksAndBadMarkup) {
  VxImageManager images;
  wxBitmap icon(16, 16);
  images.AddIcon(3, icon);
  AboutKarvinelDialog dialog(nullptr);
  dialog.SetMarkupText(
      L"<StackPanel><Image Source='3'/><Image Source='res://#3'/>"
      L"<Image Source='file://missing.png'/><Image Source='res://#99999'/>"
      L"<TextBlock><Hyperlink NavigateUri='file:///etc/passwd'>x</Hyperlink>"
      L"</TextBlock></StackPanel>",
      &images);
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    wxHtmlWindow * page = Page(d);
    ASSERT_NE(page, nullptr);
    // A click never loads anything into the window; the refused link opens nothing.
    page->OnLinkClicked(wxHtmlLinkInfo("file:///etc/passwd"));
    page->OnLinkClicked(wxHtmlLinkInfo("https://example.org/"));
    EXPECT_TRUE(page->GetOpenedPage().empty());
    d.EndModal(IDOK);
  });
  dialog.DoModal();
  EXPECT_EQ(Count(dialog.GetPageHtml(), "<img src=\"memory:"), 2u) << dialog.GetPageHtml();
  EXPECT_EQ(launched, std::vector<std::string>{"https://example.org/"});

  // Markup that cannot be read still gives a page, which says why.
  dialog.SetMarkupText(L"<!DOCTYPE x [<!ENTITY a 'b'>]><TextBlock>&a;</TextBlock>", nullptr);
  script.Act([](wxDialog & d) { d.EndModal(IDOK); });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_NE(dialog.GetPageHtml().find("cannot be shown"), std::string::npos);
}

}  // namespace
