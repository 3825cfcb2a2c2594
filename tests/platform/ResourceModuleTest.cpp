// The resource chain: the test binary's own module (tests/platform/resources)
// is the application's and is searched before the library's; the current
// module, when one is installed, before both.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "controls/GUIUtilities.h"
#include "platform/ResourceModule.h"
#include "platform/SetResourceInstance.h"
#include "utl/Translation.h"

namespace {

std::string FileBytes(std::string const & relative) {
  std::ifstream in(std::string(std::getenv("TALVO_TEST_DATA")) + "/resources/" + relative,
                   std::ios::binary);
  if (!in) ADD_FAILURE() << relative << " cannot be read";
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

HINSTANCE Library() { return FindResourceModule("TALVOutlwin"); }
HINSTANCE Application() { return FindResourceModule("talvo-test-platform"); }

class ResourceChain : public testing::Test {
protected:
  void TearDown() override {
    AfxSetResourceHandle(nullptr);
    std::locale::global(std::locale::classic());
  }
};

TEST_F(ResourceChain, StringsAreFoundApplicationFirstThenLibrary) {
  struct Case {
    unsigned id;
    char const * context;
    char const * text;
  };
  Case const cases[] = {
      {13195, "Menu command", "&About %1%..."},                      // library only
      {13196, nullptr, "Upright\nThe test application's own text"},  // both: the application's
      {4002, nullptr, "Line one\n\tindented \"quoted\" \\ done"},    // escapes of the table
      {4003, nullptr, nullptr},                                      // nowhere
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.id);
    ResourceMessage const message = FindResourceMessage(c.id);
    EXPECT_EQ(message.context == nullptr ? std::string("(none)") : message.context,
              c.context == nullptr ? std::string("(none)") : c.context);
    EXPECT_EQ(message.text == nullptr ? std::string("(none)") : message.text,
              c.text == nullptr ? std::string("(none)") : c.text);
    EXPECT_EQ(LoadResourceString(c.id),
              c.text == nullptr ? wxString() : wxString::FromUTF8(c.text));
  }
}

TEST_F(ResourceChain, StringsAreTranslatedWithTheirContextWhenLoaded) {
  vx3::TranslationSetup setup;
  setup.domains = {"talvo-test"};
  setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
  setup.localeName = "de_DE.UTF-8";
  vx3::InstallTranslation(setup);
  EXPECT_EQ(LoadResourceString(13195), wxString::FromUTF8("Ü&ber %1%..."));
  // The English id stays what the table holds.
  EXPECT_STREQ(FindResourceMessage(13195).text, "&About %1%...");
}

TEST_F(ResourceChain, TheCurrentModuleIsSearchedFirst) {
  AfxSetResourceHandle(Library());
  EXPECT_STREQ(FindResourceMessage(13196).text, "Portrait\nPrint the pages upright");
  // What the current module lacks is still found further down the chain.
  EXPECT_STREQ(FindResourceMessage(4001).text, "Ready");
  AfxSetResourceHandle(nullptr);
  EXPECT_EQ(AfxGetResourceHandle(), Application());
  EXPECT_EQ(GetApplicationResourceModule(), Application());
}

TEST_F(ResourceChain, SetResourceInstanceRestoresAndItsCopiesRestoreToo) {
  {
    SetResourceInstance outer(Library());
    EXPECT_EQ(AfxGetResourceHandle(), Library());
    {
      SetResourceInstance inner(Application());
      EXPECT_EQ(AfxGetResourceHandle(), Application());
    }
    EXPECT_EQ(AfxGetResourceHandle(), Library());
    {
      // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is under test.
      SetResourceInstance copy(outer);  // takes over the saved handle only
      EXPECT_EQ(AfxGetResourceHandle(), Library());
      EXPECT_EQ(copy.SavedHandle(), Application());
    }
    // The copy put back what `outer` had saved.
    EXPECT_EQ(AfxGetResourceHandle(), Application());
    AfxSetResourceHandle(Library());
  }
  EXPECT_EQ(AfxGetResourceHandle(), Application());
}

TEST_F(ResourceChain, ReadResourceGivesTextResourcesByteForByte) {
  EXPECT_EQ(GUIUtilities::ReadResource(4000), FileBytes("html/4000.xml"));
  // Another type under the same number is not a text resource.
  EXPECT_EQ(GUIUtilities::ReadResource(4200), "");
  EXPECT_EQ(LoadResourceBytes(4200, RT_BITMAP), FileBytes("bitmaps/4200.png"));
  // In one module only.
  EXPECT_EQ(LoadResourceBytes(Library(), 4000, RT_HTML), "");
  EXPECT_EQ(LoadResourceBytes(Application(), 4000, RT_HTML), FileBytes("html/4000.xml"));
}

// A module registered while the program runs, as a plug-in's would be.
unsigned char const kPluginPage[] = {'<', 'p', '>'};
ResourceItem const kPluginItems[] = {{RT_HTML, 4000, kPluginPage, sizeof kPluginPage}};
ResourceStringItem const kPluginStrings[] = {{4001, {nullptr, "Plug-in ready"}},
                                             {4500, {nullptr, "Plug-in only"}}};
ResourceModuleData const kPlugin = {"plug-in", kPluginItems, std::size(kPluginItems),
                                    kPluginStrings, std::size(kPluginStrings)};

TEST_F(ResourceChain, ALaterModuleJoinsTheChainAndLeavesIt) {
  HINSTANCE const plugin = RegisterResourceModule(kPlugin, ResourceModuleRole::Library);
  EXPECT_EQ(FindResourceModule("plug-in"), plugin);
  // After the application's module: its own texts only where others have none.
  EXPECT_EQ(GUIUtilities::ReadResource(4000), FileBytes("html/4000.xml"));
  EXPECT_STREQ(FindResourceMessage(4500).text, "Plug-in only");
  EXPECT_STREQ(FindResourceMessage(4001).text, "Ready");
  {
    SetResourceInstance scope(plugin);
    EXPECT_EQ(GUIUtilities::ReadResource(4000), "<p>");
    EXPECT_STREQ(FindResourceMessage(4001).text, "Plug-in ready");
  }
  AfxSetResourceHandle(plugin);
  UnregisterResourceModule(plugin);
  EXPECT_EQ(FindResourceModule("plug-in"), nullptr);
  EXPECT_EQ(AfxGetResourceHandle(), Application());
  EXPECT_EQ(FindResourceMessage(4500).text, nullptr);
}

}  // namespace
