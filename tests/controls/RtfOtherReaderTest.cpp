// What the writer saves must read in other RTF readers too, not only in
// ours: unrtf, when installed, turns a saved document into HTML that keeps
// its bold, underline, colour, faces and \u characters. Skipped without
// unrtf (scripts/install-deps installs it).
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <unistd.h>

#include "controls/RtfWriter.h"

namespace {

bool HaveUnrtf() { return std::system("command -v unrtf >/dev/null 2>&1") == 0; }

std::string RunUnrtf(std::string const & path) {
  std::string const command = "unrtf --html '" + path + "' 2>/dev/null";
  std::string html;
  if (FILE * const pipe = popen(command.c_str(), "r")) {
    char buffer[4096];
    size_t n = 0;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) html.append(buffer, n);
    pclose(pipe);
  }
  return html;
}

TEST(RtfWriter, SavedTextReadsInUnrtf) {
  if (!HaveUnrtf()) GTEST_SKIP() << "unrtf is not installed";
  RichTextDocument document;
  document.paragraphs.clear();
  RichTextParagraph & runs = document.paragraphs.emplace_back();
  auto add = [&runs](std::wstring const & text, auto && format) {
    RichTextRun run;
    run.text = text;
    format(run.format);
    runs.push_back(run);
  };
  add(L"plain ", [](RichTextFormat &) {});
  add(L"heavy", [](RichTextFormat & f) { f.bold = true; });
  add(L" lined", [](RichTextFormat & f) { f.underline = true; });
  add(L" red", [](RichTextFormat & f) {
    f.autoColour = false;
    f.colour = 0x0000C0;  // COLORREF: blue, green, red from the top
  });
  add(L" mono", [](RichTextFormat & f) { f.face = L"Courier New"; });
  add(L" \u20AC \u00E9 \u03BC", [](RichTextFormat &) {});

  char path[] = "/tmp/talvo-unrtf-XXXXXX";
  int const fd = mkstemp(path);
  ASSERT_GE(fd, 0);
  close(fd);
  std::ofstream(path, std::ios::binary) << WriteRtf(document);
  std::string const html = RunUnrtf(path);
  std::remove(path);

  ASSERT_NE(html.find("<body>"), std::string::npos) << html;
  std::string const body = html.substr(html.find("<body>"));
  for (char const * part : {"plain ", "<b>", "heavy", "<u>", " lined", "color=\"#c00000\"", " red",
                            "face=\"Courier New\"", " mono", "&euro;", "&eacute;"})
    EXPECT_NE(body.find(part), std::string::npos) << part << " in " << body;
  // Greek small mu: unrtf names it or writes its number.
  EXPECT_TRUE(body.find("&mu;") != std::string::npos || body.find("&#956;") != std::string::npos)
      << body;
}

}  // namespace
