// VxAppCore::GetAppSettings with all three sources present: the user's
// settings, an all-users file and a defaults document, each of realistic
// size (twenty subsystems of ten keys). The call parses the all-users file
// and the defaults document every time, so the baseline is bare Xerces-C
// parsing those same two documents.
#include <benchmark/benchmark.h>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "Figures.h"
#include "frame/VxAppCore.h"
#include "utl/ConfigurationSection.h"
#include "utl/Paths.h"
#include "utl/VxSystemInfo.h"

namespace {

TALVO_TIME_LIMIT("AppSettingsThreeSources", 2e6);

std::string BenchRoot() {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-appsettings";
}

// <Settings><Section name="AppSettings"> with `sections` subsystems.
std::string SettingsDocument(char const * prefix, int sections) {
  std::string xml =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Settings>\n"
      "  <Section name=\"AppSettings\">\n";
  for (int s = 0; s < sections; ++s) {
    xml += "    <Section name=\"" + std::string(prefix) + std::to_string(s) + "\">\n";
    for (int k = 0; k < 10; ++k)
      xml += "      <Key name=\"Key" + std::to_string(k) + "\">value " + std::to_string(k) +
             "</Key>\n";
    xml += "    </Section>\n";
  }
  return xml + "  </Section>\n</Settings>\n";
}

std::string const & DefaultsDocument() {
  static std::string const text = SettingsDocument("Defaults", 20);
  return text;
}

// Points the data folders at the bench's own and writes the user's and the
// all-users file.
void PrepareFolders() {
  std::string const root = BenchRoot();
  ::setenv("XDG_CONFIG_HOME", (root + "/user").c_str(), 1);
  ::setenv("XDG_CONFIG_DIRS", (root + "/system").c_str(), 1);
  VxSystemInfo::SetApplication("talvo-bench", "1.0");
  VxAppCore const folders;
  std::ofstream(VxPathAppend(folders.GetAppDataDirectory(), "talvo-bench.kvxml"))
      << SettingsDocument("User", 20);
  std::ofstream(VxPathAppend(folders.GetCommonAppDataDirectory(), "talvo-bench.kvxml"))
      << SettingsDocument("Common", 20);
}

void AppSettingsThreeSources_candidate(benchmark::State & state) {
  PrepareFolders();
  VxAppCore core;
  core.SetRegistryLocation();
  core.SetDefaultsReader([](unsigned int) { return DefaultsDocument(); });
  for (auto _ : state) {
    std::unique_ptr<ConfigurationSection> section(core.GetAppSettings("Defaults7", 5000));
    benchmark::DoNotOptimize(section.get());
  }
}
BENCHMARK(AppSettingsThreeSources_candidate)
    ->Name("AppSettingsThreeSources/candidate")
    ->Unit(benchmark::kMicrosecond);

void AppSettingsThreeSources_baseline(benchmark::State & state) {
  using namespace xercesc;
  PrepareFolders();
  std::string const common =
      VxPathAppend(VxAppCore().GetCommonAppDataDirectory(), "talvo-bench.kvxml");
  XMLPlatformUtils::Initialize();
  for (auto _ : state) {
    XercesDOMParser fileParser;
    fileParser.parse(common.c_str());
    XercesDOMParser textParser;
    MemBufInputSource source(reinterpret_cast<XMLByte const *>(DefaultsDocument().data()),
                             DefaultsDocument().size(), "defaults");
    textParser.parse(source);
    benchmark::DoNotOptimize(fileParser.getDocument());
    benchmark::DoNotOptimize(textParser.getDocument());
  }
  XMLPlatformUtils::Terminate();
}
BENCHMARK(AppSettingsThreeSources_baseline)
    ->Name("AppSettingsThreeSources/baseline")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
