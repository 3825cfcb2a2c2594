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
  static std::locale German() {
    vx3::TranslationSetup setup;
    setup.domains = {"talvo-test"};
    setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
    setup.localeName = "de_DE.UTF-8";
    return vx3::InstallTranslation(setup);
  }
  static std::locale English() {
    vx3::TranslationSetup setup;
    setup.domains = {"talvo-test"};
    setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
    setup.localeName = "en_GB.UTF-8";
    return vx3::InstallTranslation(setup);
  }
  void TearDown() override { std::locale::global(std::locale::classic()); }
};

TEST_F(Translation, OneMessageIsShownInWhicheverLocaleAsksForIt) {
  ExceptionMessage message = ExceptionMessage::translate("The file {1} does not exist.");
  message % "/data/run.csv";
  std::locale const german = German();
  std::locale const english = English();
  EXPECT_EQ(message.ToString(german), "Die Datei /data/run.csv existiert nicht.");
  EXPECT_EQ(message.ToString(english), "The file /data/run.csv does not exist.");
  // The global locale is the last one installed.
  EXPECT_EQ(Exception(message).Why(), "The file /data/run.csv does not exist.");
}

TEST_F(Translation, TranslatedTextMayReorderPlaceholders) {
  std::locale const german = German();
  ExceptionMessage message = ExceptionMessage::translate("Copy {1} to {2}?");
  message % "a.txt" % "/backup";
  EXPECT_EQ(Exception(message).Why(german), "Nach /backup kopieren: a.txt?");
}

TEST_F(Translation, ContextsSeparateOneWordsTwoTranslations) {
  German();
  EXPECT_EQ(boost::locale::translate("Stop button", "Stop").str(), "Anhalten");
  EXPECT_EQ(boost::locale::translate("Stop").str(), "Halt");
  EXPECT_EQ(vx3::TranslateText("Stop button", "Stop", std::locale()), "Anhalten");
  EXPECT_EQ(vx3::TranslateText("Unknown context", "Stop", std::locale()), "Stop");
}

TEST_F(Translation, MissingCatalogFallsBackToTheEnglishText) {
  vx3::TranslationSetup setup;
  setup.domains = {"no-such-domain"};
  setup.catalogPaths = {"/nonexistent"};
  setup.localeName = "fr_FR.UTF-8";
  std::locale const french = vx3::InstallTranslation(setup);
  EXPECT_EQ(Exception(ExceptionMessage::translate("The file {1} does not exist.") % "x")
                .Why(french),
            "The file x does not exist.");
  // A plain std::locale without catalogs answers the same way.
  EXPECT_EQ(vx3::TranslateText("Ready", std::locale::classic()), "Ready");
}

TEST_F(Translation, LaterDomainsAreSearchedWhenTheFirstLacksAText) {
  vx3::TranslationSetup setup;
  setup.domains = {"application-domain", "talvo-test"};
  setup.catalogPaths = {std::string(std::getenv("TALVO_TEST_BUILD")) + "/locale"};
  setup.localeName = "de_AT.UTF-8";
  std::locale const austrian = vx3::InstallTranslation(setup);
  EXPECT_EQ(vx3::TranslateText("Ready", austrian), "Bereit");
}

}  // namespace
