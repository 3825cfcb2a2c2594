// Texts are translated when shown, in the locale asked for; a missing
// catalog or entry falls back to the English id.
#include <gtest/gtest.h>

#include <boost/locale/message.hpp>
#include <cstdlib>

#include "utl/Exception.h"
#include "utl/Translation.h"

namespace {

class Translation : public testing::Test {
protected:
  static std::locale Install(char const * localeName,
                             std::vector<std::string> domains = {"talvo-test"}) {
    vx3::TranslationSetup setup;
    setup.domains = std::move(domains);
    setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
    setup.localeName = localeName;
    return vx3::InstallTranslation(setup);
  }
  void TearDown() override { std::locale::global(std::locale::classic()); }
};

TEST_F(Translation, OneMessageIsShownInWhicheverLocaleAsksForIt) {
  ExceptionMessage message = ExceptionMessage::translate("The file {1} does not exist.");
  message % "/data/run.csv";
  std::locale const german = Install("de_DE.UTF-8");
  std::locale const english = Install("en_GB.UTF-8");
  EXPECT_EQ(message.ToString(german), "Die Datei /data/run.csv existiert nicht.");
  // The global locale is the last one installed.
  EXPECT_EQ(Exception(message).Why(), "The file /data/run.csv does not exist.");
  ExceptionMessage reordered = ExceptionMessage::translate("Copy {1} to {2}?");
  reordered % "a.txt" % "/backup";
  EXPECT_EQ(Exception(reordered).Why(german), "Nach /backup kopieren: a.txt?");
}

TEST_F(Translation, ContextsSeparateOneWordsTwoTranslations) {
  Install("de_DE.UTF-8");
  EXPECT_EQ(boost::locale::translate("Stop").str(), "Halt");
  EXPECT_EQ(vx3::TranslateText("Stop button", "Stop", std::locale()), "Anhalten");
  EXPECT_EQ(vx3::TranslateText("Unknown context", "Stop", std::locale()), "Stop");
}

TEST_F(Translation, MissingCatalogFallsBackToTheEnglishText) {
  std::locale const french = Install("fr_FR.UTF-8", {"no-such-domain"});
  EXPECT_EQ(
      Exception(ExceptionMessage::translate("The file {1} does not exist.") % "x").Why(french),
      "The file x does not exist.");
  EXPECT_EQ(vx3::TranslateText("Ready", std::locale::classic()), "Ready");
}

TEST_F(Translation, LaterDomainsAreSearchedWhenTheFirstLacksAText) {
  std::locale const austrian = Install("de_AT.UTF-8", {"application-domain", "talvo-test"});
  EXPECT_EQ(vx3::TranslateText("Ready", austrian), "Bereit");
}

}  // namespace
