// The favourites manager with real windows: opening several favourites and
// telling what failed, the icons, tool bar images, importing and saving.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/mdi.h>
#include <wx/mstream.h>
#include <wx/richmsgdlg.h>

#include "favourites/FavouriteCommandItem.h"
#include "favourites/FavouriteFileItem.h"
#include "favourites/FavouriteFolderItem.h"
#include "favourites/FavouriteImportFailedDialog.h"
#include "favourites/FavouriteOpenFailures.h"
#include "favourites/FavouritesManager.h"
#include "favourites/FavouritesTree.h"
#include "harness/ModalDialogScript.h"
#include "platform/ResourceModule.h"
#include "utl/Exception.h"
#include "utl/ExceptionMessage.h"

namespace {

constexpr int kOpensChild = 31001;
constexpr int kThrowsException = 31002;
constexpr int kThrowsRuntimeError = 31003;
constexpr int kDisabled = 31004;  // no update handler enables it
constexpr int kCascade = 57650;

// A main MDI frame whose commands open children or fail.
class Frame : public wxMDIParentFrame {
public:
  Frame() : wxMDIParentFrame(nullptr, wxID_ANY, "favourites") {
    for (int id : {kOpensChild, kThrowsException, kThrowsRuntimeError, kCascade})
      Bind(
          wxEVT_UPDATE_UI, [](wxUpdateUIEvent & e) { e.Enable(true); }, id);
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent &) {
          auto * const child = new wxMDIChildFrame(this, wxID_ANY, "child");
          child->Show();
          child->Activate();
          ++opened;
        },
        kOpensChild);
    Bind(
        wxEVT_MENU,
        [](wxCommandEvent &) {
          throw Exception(ExceptionMessage::translate("The run is locked."));
        },
        kThrowsException);
    Bind(
        wxEVT_MENU, [](wxCommandEvent &) { throw std::runtime_error("disk full"); },
        kThrowsRuntimeError);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent &) { ++cascaded; }, kCascade);
  }
  int opened = 0;
  int cascaded = 0;
};

// Counts its deletions, so that a test sees Open delete every copy.
int gDeleted = 0;
class CountedCommand : public FavouriteCommandItem {
public:
  CountedCommand(wchar_t const * name, int id) : FavouriteCommandItem(name, id) {}
  ~CountedCommand() override { ++gDeleted; }
};

// An application's own classes: a root row, a folder of its own, an item
// beside the library's.
class RootCommand : public FavouriteCommandItem {
public:
  RootCommand() : FavouriteCommandItem(L"Root", 1) {}
  wxString GetType() const override { return "RootItem"; }
};
class AppFolder : public FavouriteFolderItem {
public:
  AppFolder() : FavouriteFolderItem(L"F", L"") {}
};
class AppItem : public FavouriteItem {
public:
  FavouriteItem * Copy() const override { return new AppItem; }
  wxString GetType() const override { return "AppItem"; }
};

class FavouritesManagerTest : public ::testing::Test {
protected:
  void SetUp() override {
    frame = new Frame;
    wxTheApp->SetTopWindow(frame);
    frame->Show();
    gDeleted = 0;
  }
  void TearDown() override {
    wxTheApp->SetTopWindow(nullptr);
    frame->Destroy();
    wxTheApp->ProcessIdle();
  }
  Frame * frame = nullptr;
  FavouritesManager manager;
};

wxImage ImageOf(wxIcon const & icon) {
  wxBitmap bitmap;
  bitmap.CopyFromIcon(icon);
  return bitmap.ConvertToImage();
}

bool SameImage(wxIcon const & a, wxBitmap const & b) {
  wxImage const x = ImageOf(a);
  wxImage const y = b.ConvertToImage();
  if (x.GetSize() != y.GetSize()) return false;
  return std::equal(x.GetData(), x.GetData() + (x.GetWidth() * x.GetHeight() * 3), y.GetData());
}

std::string TempPath(char const * name) {
  char const * const dir = std::getenv("TMPDIR");
  return std::string(dir != nullptr ? dir : "/tmp") + "/" + name;
}

}  // namespace

TEST_F(FavouritesManagerTest, ReportsWhatFailedInOneDialog) {
  struct Case {
    char const * what;
    std::vector<FavouriteItem *> items;
    char const * headline;  // empty: no dialog
    char const * details;
  };
  std::vector<Case> cases = {
      {"one disabled command",
       {new CountedCommand(L"Export", kDisabled)},
       "The selected favorite could not be opened.",
       "Export: Not available."},
      {"three, one fails",
       {new CountedCommand(L"A", kOpensChild), new CountedCommand(L"Locked", kThrowsException),
        new CountedCommand(L"B", kOpensChild)},
       "Not all favorites could be opened.",
       "Locked: The run is locked."},
      {"all fail, a null entry first",
       {nullptr, new CountedCommand(L"Disk", kThrowsRuntimeError),
        new FavouriteFileItem(L"Gone", L"/no/such/file.kvd")},
       "The selected favorites could not be opened.",
       "'Open Favorites' was canceled. The item number 1 became invalid.\n\r\nDisk: disk "
       "full\r\nGone: Not available."},
      {"all open", {new CountedCommand(L"A", kOpensChild)}, "", ""},
  };
  for (Case & c : cases) {
    wxString headline;
    wxString details;
    int shown = 0;
    FavouriteOpenFailuresDisplay const former =
        SetFavouriteOpenFailuresDisplay([&](wxWindow *, wxString const & h, wxString const & d) {
          headline = h;
          details = d;
          ++shown;
        });
    int const counted =
        static_cast<int>(std::count_if(c.items.begin(), c.items.end(), [](FavouriteItem * i) {
          return dynamic_cast<CountedCommand *>(i) != nullptr;
        }));
    gDeleted = 0;
    manager.Open(&c.items);
    EXPECT_EQ(gDeleted, counted) << c.what;
    for (FavouriteItem * item : c.items) EXPECT_EQ(item, nullptr) << c.what;
    SetFavouriteOpenFailuresDisplay(former);
    EXPECT_EQ(shown, *c.headline != '\0' ? 1 : 0) << c.what;
    EXPECT_EQ(headline, c.headline) << c.what;
    EXPECT_EQ(details, wxString::FromUTF8(c.details)) << c.what;
  }
}

TEST_F(FavouritesManagerTest, CommandItemsOpenThroughTheFrame) {
  FavouriteCommandItem opens(L"Open", kOpensChild);
  EXPECT_TRUE(opens.Enable());
  wxWindow * const child = opens.Open();
  EXPECT_NE(child, nullptr);
  EXPECT_EQ(child, frame->GetActiveChild());
  // A command that opens no window returns null; id 0 sends nothing.
  FavouriteCommandItem cascade(L"Cascade", kCascade);
  EXPECT_EQ(cascade.Open(), nullptr);
  EXPECT_EQ(frame->cascaded, 1);
  FavouriteCommandItem none(L"None", 0);
  EXPECT_FALSE(none.Enable());
  EXPECT_EQ(none.Open(), nullptr);
  EXPECT_FALSE(FavouriteCommandItem(L"Disabled", kDisabled).Enable());
  EXPECT_EQ(frame->opened, 1);
}

TEST_F(FavouritesManagerTest, ArrangementCommandsAndDocumentsStillOpen) {
  std::vector<FavouriteItem *> items = {new FavouriteCommandItem(L"Cascade", kCascade),
                                        new FavouriteCommandItem(L"A", kOpensChild),
                                        new FavouriteCommandItem(L"B", kOpensChild)};
  ModalDialogScript script;
  manager.Open(&items);
  EXPECT_EQ(frame->cascaded, 1);
  EXPECT_EQ(frame->opened, 2);
  EXPECT_TRUE(script.Shown().empty());
  // The client is thawed again whatever happened.
  EXPECT_FALSE(frame->GetClientWindow()->IsFrozen());
}

TEST_F(FavouritesManagerTest, IconsFollowTheIndexTable) {
  wxImageList & standard = manager.GetStandardImageList();
  ASSERT_GE(standard.GetImageCount(), 9);
  wxIcon normal;
  wxIcon expanded;
  struct Case {
    char const * what;
    std::unique_ptr<FavouriteItem> item;
    int normal;
    int expanded;
  };
  auto folderAsItem = std::make_unique<FavouriteFolderItem>(L"F", L"");
  folderAsItem->SetTreatAsItem(true);
  Case cases[] = {
      {"placeholder", nullptr, 0, 0},
      {"folder", std::make_unique<FavouriteFolderItem>(L"F", L""), 1, 2},
      {"folder as item", std::move(folderAsItem), 5, 5},
      {"command", std::make_unique<FavouriteCommandItem>(L"C", kDisabled), 7, 7},
      {"derived command", std::make_unique<CountedCommand>(L"C", kDisabled), 7, 7},
      {"root row: the global item's", std::make_unique<RootCommand>(), 4, 4},
      {"derived folder", std::make_unique<AppFolder>(), 1, 2},
      {"other, not global", std::make_unique<AppItem>(), 3, 3},
  };
  for (Case const & c : cases) {
    manager.GetIcon(c.item.get(), normal, expanded);
    EXPECT_TRUE(SameImage(normal, standard.GetBitmap(c.normal))) << c.what;
    EXPECT_TRUE(SameImage(expanded, standard.GetBitmap(c.expanded))) << c.what;
  }
  // The strip draws them apart: a wrong index shows.
  EXPECT_FALSE(SameImage(standard.GetIcon(1), standard.GetBitmap(2)));
  EXPECT_FALSE(SameImage(standard.GetIcon(3), standard.GetBitmap(4)));
}

TEST_F(FavouritesManagerTest, FileIconsComeFromTheContentTypeOnce) {
  FileTypeIcons icons;
  wxIcon const a = icons.Get("/data/a.txt");
  wxIcon const b = icons.Get("/elsewhere/b.TXT");
  wxIcon const png = icons.Get("/data/c.png");
  ASSERT_TRUE(a.IsOk());
  EXPECT_EQ(a.GetWidth(), FileTypeIcons::kSize);
  EXPECT_EQ(FileTypeIcons::ContentType("/x/a.txt"), "text/plain");
  EXPECT_EQ(FileTypeIcons::ContentType("/x/c.png"), "image/png");
  EXPECT_EQ(icons.CachedTypes(), 2U);
  EXPECT_TRUE(a.IsSameAs(b));

  // A file item always has an icon, the same for normal and expanded.
  FavouriteFileItem file(L"Notes", L"/nowhere/notes.txt");
  wxIcon normal;
  wxIcon expanded;
  manager.GetIcon(&file, normal, expanded);
  EXPECT_TRUE(normal.IsOk());
  EXPECT_TRUE(normal.IsSameAs(expanded));
}

TEST_F(FavouritesManagerTest, TheDesktopNamesTheSameContentType) {
  std::string const path = TempPath("check.csv");
  std::ofstream(path) << "a,b\n1,2\n";
  std::string const command = "gio info -a standard::content-type '" + path + "' 2>/dev/null";
  FILE * const pipe = ::popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string output;
  char buffer[256];
  while (std::fgets(buffer, sizeof buffer, pipe) != nullptr) output += buffer;
  int const status = ::pclose(pipe);
  if (status != 0) GTEST_SKIP() << "gio is not installed";
  EXPECT_NE(output.find("standard::content-type: " + FileTypeIcons::ContentType(path)),
            std::string::npos)
      << output;
}

namespace {

std::string PngStrip(int images, int width) {
  wxImage image(width * images, 16);
  image.SetRGB(wxRect(0, 0, width * images, 16), 0xC0, 0xC0, 0xC0);
  for (int i = 0; i < images; ++i) image.SetRGB(wxRect(i * width + 4, 4, 4, 4), 200, 10 * i, 0);
  wxMemoryOutputStream out;
  image.SaveFile(out, wxBITMAP_TYPE_PNG);
  std::string bytes(out.GetLength(), '\0');
  out.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

std::string Words(std::initializer_list<int> values) {
  std::string out;
  for (int v : values) {
    out += static_cast<char>(v & 0xFF);
    out += static_cast<char>((v >> 8) & 0xFF);
  }
  return out;
}

}  // namespace

// Tool bars 700 and 701 with their strips come from resources/ through the
// resource generator, as an application's bars do. What the generator
// refuses (a count past the data, a narrow strip, a strip without a bar)
// can still come from a foreign module; those are built by hand here.
TEST_F(FavouritesManagerTest, ToolBarsMapCommandsToTheirFirstImage) {
  wxInitAllImageHandlers();
  static std::string const strip3 = PngStrip(3, 16);
  static std::string const narrow = PngStrip(1, 8);
  static std::string const past = Words({1, 16, 16, 9, 103});
  static std::string const narrowBar = Words({1, 16, 16, 1, 104});
  auto bytes = [](std::string const & s) {
    return reinterpret_cast<unsigned char const *>(s.data());
  };
  static ResourceItem const items[] = {
      {RT_BITMAP, 702, bytes(strip3), strip3.size()},
      {RT_BITMAP, 703, bytes(strip3), strip3.size()},
      {RT_BITMAP, 704, bytes(narrow), narrow.size()},
      {RT_TOOLBAR, 703, bytes(past), past.size()},
      {RT_TOOLBAR, 704, bytes(narrowBar), narrowBar.size()},
  };
  static ResourceModuleData const data{"favourites-test", items, std::size(items), nullptr, 0};
  HINSTANCE const module = RegisterResourceModule(data, ResourceModuleRole::Library);

  wxImageList images(16, 16, true, 10);
  CommandImageMap map;
  EXPECT_TRUE(FavouritesManager::LoadToolBar(700, images, map));
  EXPECT_TRUE(FavouritesManager::LoadToolBar(701, images, map));
  EXPECT_FALSE(FavouritesManager::LoadToolBar(702, images, map));  // no tool bar resource
  EXPECT_FALSE(FavouritesManager::LoadToolBar(703, images, map));  // count past the data
  EXPECT_FALSE(FavouritesManager::LoadToolBar(705, images, map));  // nothing at all
  EXPECT_TRUE(FavouritesManager::LoadToolBar(704, images, map));   // narrow: no image
  EXPECT_EQ(images.GetImageCount(), 5);
  // 100 keeps the first image though shown twice; its second place still
  // used up index 2, so 101 of the second bar is not moved either.
  EXPECT_EQ(map, (CommandImageMap{{100, 0}, {101, 1}, {102, 4}, {104, 5}}));
  // Without alpha the button face is transparent; with alpha the strip's
  // own transparency counts.
  wxImage const first = images.GetBitmap(0).ConvertToImage();
  EXPECT_TRUE(first.IsTransparent(0, 0));
  EXPECT_FALSE(first.IsTransparent(5, 5));
  wxImage const withAlpha = images.GetBitmap(3).ConvertToImage();
  EXPECT_TRUE(withAlpha.IsTransparent(0, 0));
  EXPECT_FALSE(withAlpha.IsTransparent(5, 5));
  UnregisterResourceModule(module);
}

TEST_F(FavouritesManagerTest, ImportOfABadFileIsToldWithItsNameOnly) {
  std::string const path = TempPath("broken favourites.xml");
  std::ofstream(path) << "<Settings><Section name=\"Favourites\">";
  ModalDialogScript script;
  FavouriteImportFailedDialog * seen = nullptr;
  wxString label;
  script.Act([&](wxDialog & dialog) {
    seen = dynamic_cast<FavouriteImportFailedDialog *>(&dialog);
    if (seen != nullptr) {
      EXPECT_EQ(seen->GetInstruction(), "Could not import favorites");
      EXPECT_EQ(seen->GetContent(), "broken favourites.xml is not a valid favorites file.");
      EXPECT_TRUE(seen->GetDetails().Contains("broken favourites.xml"));
      EXPECT_TRUE(seen->IsExpanded());
      EXPECT_EQ(seen->GetExpanderLabel(), "Hide details");
      seen->SetExpanded(false);
      label = seen->GetExpanderLabel();
    }
    dialog.EndModal(wxID_OK);
  });
  EXPECT_TRUE(manager.LoadFavourites(path, -1));
  EXPECT_NE(seen, nullptr);
  EXPECT_EQ(label, "Show details");
}

TEST_F(FavouritesManagerTest, SavedFileIsXmlAndWithoutATreeNothingIsForwarded) {
  std::string const path = TempPath("saved.xml");
  EXPECT_TRUE(manager.SaveFavourites(path, -1));
  std::string const command = "xmllint --xpath 'count(/Settings)' '" + path + "' 2>&1";
  FILE * const pipe = ::popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  char buffer[64] = {};
  std::string const out = std::fgets(buffer, sizeof buffer, pipe) != nullptr ? buffer : "";
  int const status = ::pclose(pipe);
  if (status == 127 << 8) GTEST_SKIP() << "xmllint is not installed";
  EXPECT_EQ(out.substr(0, 1), "1") << out;

  ModalDialogScript script;  // a good file shows nothing
  EXPECT_TRUE(manager.LoadFavourites(path, -1));
  EXPECT_FALSE(manager.LoadFavouriteNode(nullptr, -1));
  EXPECT_FALSE(manager.SaveFavouriteNode(nullptr, -1));
  EXPECT_EQ(manager.GetFavouritesTree(), nullptr);
  EXPECT_STREQ(FavouritesManager::GetRootSectionKey(), "Favourites");
  EXPECT_STREQ(FavouritesManager::GetFavouriteItemSectionKey(), "FavouriteItem");
  int id = 5;
  EXPECT_TRUE(manager.OnAddToFavourites(nullptr, id));
  EXPECT_EQ(id, -1);
}

// A top-level window's children die at idle time, so the tree may outlive
// its manager as well as the other way round: neither keeps a dead partner.
TEST_F(FavouritesManagerTest, TreeAndManagerForgetEachOtherWhicheverGoesFirst) {
  auto * const outlived = new FavouritesTree(frame, wxID_ANY);
  {
    FavouritesManager shortLived;
    outlived->SetFavouritesManager(&shortLived);
  }
  EXPECT_EQ(outlived->GetFavouritesManager(), nullptr);
  outlived->Destroy();  // would tell the dead manager

  auto * const tree = new FavouritesTree(frame, wxID_ANY);
  tree->SetFavouritesManager(&manager);
  ASSERT_EQ(manager.GetFavouritesTree(), tree);
  tree->Destroy();
  EXPECT_EQ(manager.GetFavouritesTree(), nullptr);
}
