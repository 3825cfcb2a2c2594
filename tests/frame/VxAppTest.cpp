// The application object with a display: the process's VxApp, its about
// command, the main window, the profile through it, and the customization
// package with real pictures.
#include <gtest/gtest.h>

#include <wx/frame.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/wfstream.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

#include "frame/AboutDialog.h"
#include "frame/VxApp.h"
#include "frame/VxAppCustomization.h"
#include "frame/ZipPackageBuilder.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "platform/MessageBoxes.h"
#include "utl/CollectingUserComm.h"
#include "utl/ConfigurationSection.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/VxSystemInfo.h"

namespace {

namespace fs = std::filesystem;
using frame_test::WriteZip;
using frame_test::ZipEntries;

std::string Png(int width, int height, unsigned char red) {
  wxImage image(width, height);
  image.SetRGB(wxRect(0, 0, width, height), red, 20, 30);
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
  wxMemoryOutputStream out;
  image.SaveFile(out, wxBITMAP_TYPE_PNG);
  std::string bytes(out.GetSize(), '\0');
  out.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

fs::path FreshFolder() {
  fs::path folder = fs::path(std::getenv("TMPDIR")) /
                    testing::UnitTest::GetInstance()->current_test_info()->name();
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

// Puts the application's name back after a test that renamed it.
struct NameGuard {
  std::string name = VxSystemInfo::GetApplicationName();
  std::string version = VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull);
  ~NameGuard() {
    VxSystemInfo::SetApplication(name, version);
    wxTheApp->SetAppName(wxString::FromUTF8(name));
  }
};

TEST(VxApp, TheAboutCommandOfTheMainWindowShowsTheAboutDialogAboveIt) {
  auto * frame = new wxFrame(nullptr, wxID_ANY, "main");
  wxTheApp->SetTopWindow(frame);
  EXPECT_EQ(VxGetMainWnd(), frame);
  ModalDialogScript script;
  script.Act([frame](wxDialog & d) {
    EXPECT_NE(dynamic_cast<AboutDialog *>(&d), nullptr);
    EXPECT_EQ(d.GetParent(), frame);
    d.EndModal(wxID_OK);
  });
  // Sent from a menu of the main window, the command reaches the application.
  wxCommandEvent command(wxEVT_MENU, VxApp::kAboutCommand);
  command.SetEventObject(frame);
  frame->GetEventHandler()->ProcessEvent(command);
  ASSERT_EQ(script.Shown().size(), 1u);
  EXPECT_NE(script.Shown()[0].title.Find("VxApp Test"), wxNOT_FOUND) << script.Shown()[0].title;
  frame->Destroy();
  gui_test::Flush();
}

// The framework's boxes reach the application's: muted information is not
// shown. (What else muting does is checked with the message-box functions.)
TEST(VxApp, TheFrameworksBoxesAreTheApplicationsAndHonourTheMute) {
  VxGetApp()->MuteInfoMessages(true);
  ModalDialogScript script;  // any box shown fails the test
  EXPECT_EQ(AfxMessageBox(wxString("Something happened"), MB_OK | MB_ICONINFORMATION), IDOK);
  EXPECT_TRUE(script.Shown().empty());
  VxGetApp()->MuteInfoMessages(false);
}

TEST(VxApp, DefaultsComeFromTheApplicationsResources) {
  VxApp & app = *VxGetApp();
  app.SetRegistryLocation();
  std::unique_ptr<ConfigurationSection> section(app.GetAppSettings("Gauges", 31000));
  std::string interval;
  EXPECT_TRUE(section->ReadKey("Interval", interval));
  EXPECT_EQ(interval, "250");
  std::unique_ptr<ConfigurationSection> none(app.GetAppSettings("Other", 31001));
  EXPECT_TRUE(none->IsEmpty());
}

TEST(VxAppCustomization, APackageRenamesAndGivesPicturesAndMarkup) {
  NameGuard const guard;
  fs::path const folder = FreshFolder();
  WriteZip((folder / "brand.appconfig").string(),
           {{"AppConfig.XML",
             "<AppConfig><AppName>Branded</AppName>"
             "<SupportPage>https://help.example.org/branded</SupportPage></AppConfig>"},
            {"first.png", Png(16, 16, 200)},
            {"Splash.PNG", Png(120, 60, 10)},
            {"second.png", Png(32, 24, 100)},
            {"about_us.xaml",
             "<Image Source=\"file://second.png\"/><Image Source=\"file://first.png\"/>"},
            {"help_backstage_page.xaml", "<Page>file://first.png</Page>"}});
  std::unique_ptr<VxAppCustomization> const custom =
      VxAppCustomization::ReadFromFolder(folder.string());

  EXPECT_EQ(custom->GetPackagePath(), (folder / "brand.appconfig").string());
  EXPECT_EQ(VxSystemInfo::GetApplicationName(), "Branded");
  EXPECT_EQ(wxTheApp->GetAppName(), "Branded");
  EXPECT_EQ(VxSystemInfo::GetSupportPage(), "https://help.example.org/branded");

  ASSERT_TRUE(custom->GetSplashBitmap().IsOk()) << "Splash.PNG is the splash, not icon 1";
  EXPECT_EQ(custom->GetSplashBitmap().GetSize(), wxSize(120, 60));
  EXPECT_EQ(custom->GetIconIds(), (std::vector<int>{1, 2}));
  EXPECT_EQ(custom->GetBitmap(2).ConvertToImage().GetRed(3, 3), 100);

  EXPECT_EQ(custom->GetAboutDialogMarkupSource(), "<Image Source=\"2\"/><Image Source=\"1\"/>");
  EXPECT_EQ(custom->GetBackstageAboutMarkupSource(), "<Page>1</Page>");

  std::unique_ptr<VxImageManager> copy(custom->GetImageManagerCopy());
  copy->RemoveIcon(1);
  EXPECT_TRUE(custom->HasIcon(1)) << "the copy is the caller's own";
  EXPECT_TRUE(copy->GetBitmapBundle(2).IsOk());
}

TEST(VxAppCustomization, ARefusedPackageIsNotUsedAtAllAndTheUserIsToldOnce) {
  NameGuard const guard;
  std::string const png = Png(8, 8, 1);
  std::string huge = png;  // IHDR declares 100000 x 100000
  for (int at : {16, 20}) {
    huge[at] = 0, huge[at + 1] = 1, huge[at + 2] = char(0x86), huge[at + 3] = char(0xA0);
  }
  std::string const renaming =
      "<AppConfig><AppName>Renamed</AppName>"
      "<SupportPage>https://help.example.org/renamed</SupportPage></AppConfig>";
  struct Case {
    char const * what;
    ZipEntries entries;
    size_t keep;          // bytes of the archive that stay; 0: all
    char const * reason;  // part of the message
  };
  Case const cases[] = {
      {"text as an icon",
       {{"appconfig.xml", renaming}, {"icon.png", "not a picture"}},
       0,
       "icon.png"},
      {"an enormous picture", {{"appconfig.xml", renaming}, {"icon.png", huge}}, 0, "icon.png"},
      {"a bad splash", {{"appconfig.xml", renaming}, {"splash.png", "GIF89a"}}, 0, "splash.png"},
      {"a support page that is no web address",
       {{"appconfig.xml", "<AppConfig><SupportPage>file:///bin/sh</SupportPage></AppConfig>"},
        {"icon.png", png}},
       0,
       "file:///bin/sh"},
      {"truncated",
       {{"appconfig.xml", renaming}, {"icon.png", png}},
       60,
       "not a readable ZIP archive"},
  };
  std::string const supportPage = VxSystemInfo::GetSupportPage();
  for (Case const & c : cases) {
    SCOPED_TRACE(c.what);
    CollectingUserComm channel;
    fs::path const folder = FreshFolder();
    std::string const path = (folder / "bad.appconfig").string();
    std::string const bytes = WriteZip(path, c.entries);
    if (c.keep != 0) frame_test::WriteBytes(path, bytes.substr(0, c.keep));
    for (int read = 0; read < 2; ++read) {
      std::unique_ptr<VxAppCustomization> custom;
      ASSERT_NO_THROW(custom = VxAppCustomization::ReadFromFolder(folder.string()));
      EXPECT_EQ(custom->GetPackagePath(), "");
      EXPECT_TRUE(custom->GetIconIds().empty());
      EXPECT_FALSE(custom->GetSplashBitmap().IsOk());
      EXPECT_TRUE(custom->GetReplacements().empty());
      EXPECT_EQ(custom->ReadFile("appconfig.xml"), "");
    }
    EXPECT_EQ(VxSystemInfo::GetApplicationName(), guard.name);
    EXPECT_EQ(VxSystemInfo::GetSupportPage(), supportPage);
    ASSERT_EQ(channel.told.size(), 1u) << "told once, however often the package is read";
    EXPECT_NE(channel.told[0].find(path), std::string::npos) << channel.told[0];
    EXPECT_NE(channel.told[0].find(c.reason), std::string::npos) << channel.told[0];
    std::string const log = frame_test::ReadBytes(Log::GetLogFilePath());
    EXPECT_NE(log.find("The customization package " + path + " is not used"), std::string::npos);
  }
}

}  // namespace
