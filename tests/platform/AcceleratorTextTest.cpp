// Accelerator tables in their text form: what a line means, where a bad
// line stops the reading, and which pressed keys find a command.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <wx/accel.h>
#include <wx/defs.h>

#include "platform/AcceleratorText.h"
#include "platform/ResourceMenus.h"

namespace {

TEST(AcceleratorText, LinesGiveModifiersKeyAndCommand) {
  struct Case {
    char const * text;
    int flags;
    int keyCode;
    unsigned command;
  };
  Case const cases[] = {
      {"Ctrl+F 57636", wxACCEL_CTRL, 'F', 57636},
      {"ctrl+f\t57636\r", wxACCEL_CTRL, 'F', 57636},
      {"  Shift+F10 16", wxACCEL_SHIFT, WXK_F10, 16},
      {"Alt+Shift+Ctrl+9 65535", wxACCEL_ALT | wxACCEL_SHIFT | wxACCEL_CTRL, '9', 65535},
      {"F24 1", wxACCEL_NORMAL, WXK_F24, 1},
      {"Ctrl+PgDn 7", wxACCEL_CTRL, WXK_PAGEDOWN, 7},
      {"+ 8", wxACCEL_NORMAL, 0, 0},  // a lone "+" is no key name either
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    std::vector<AcceleratorLine> lines;
    std::string error;
    bool const read = ParseAcceleratorText(c.text, lines, error);
    if (c.command == 0) {
      EXPECT_FALSE(read);
      continue;
    }
    ASSERT_TRUE(read) << error;
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].flags, c.flags);
    EXPECT_EQ(lines[0].keyCode, c.keyCode);
    EXPECT_EQ(lines[0].command, c.command);
  }
}

TEST(AcceleratorText, ABadLineStopsTheReadingKeepingTheLinesBefore) {
  struct Case {
    char const * text;
    size_t kept;
    char const * reason;
  };
  Case const cases[] = {
      {"Ctrl+A 1\n# note\n\nCtrl+Q", 1, "line 4: a command id"},
      {"Ctrl+A 1\nCtrl+B 0", 1, "line 2: a command id"},
      {"Ctrl+A 65536", 0, "line 1: a command id"},
      {"Ctrl+A 12x", 0, "line 1: a command id"},
      {"Ctrl+A 1 2", 0, "unexpected text"},
      {"Meta+A 1", 0, "\"Meta+A\" is no key"},
      {"F25 1", 0, "\"F25\" is no key"},
      {"Ctrl+ 1", 0, "is no key"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.text);
    std::vector<AcceleratorLine> lines;
    std::string error;
    EXPECT_FALSE(ParseAcceleratorText(c.text, lines, error));
    EXPECT_EQ(lines.size(), c.kept);
    EXPECT_NE(error.find(c.reason), std::string::npos) << error;
  }
}

TEST(AcceleratorText, PressedKeysFindTheirCommandWithExactModifiers) {
  std::vector<AcceleratorLine> lines;
  std::string error;
  ASSERT_TRUE(ParseAcceleratorText("Ctrl+F 57636\nCtrl+Shift+F 2\nF5 3\n", lines, error));
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_CTRL, 'F'), 57636u);
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_CTRL, 'f'), 57636u);
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_CTRL | wxACCEL_SHIFT, 'F'), 2u);
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_NORMAL, WXK_F5), 3u);
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_ALT, WXK_F5), 0u);
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_NORMAL, 'F'), 0u);
}

TEST(AcceleratorText, TablesComeFromTheResourceChain) {
  std::vector<AcceleratorLine> lines;
  std::string error;
  ASSERT_TRUE(LoadResourceAccelerators(4400, lines, &error)) << error;
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(FindAccelerator(lines, wxACCEL_CTRL | wxACCEL_SHIFT, WXK_DELETE), 4401u);
  // A key the loader cannot read: the table is refused with the line.
  lines.clear();
  EXPECT_FALSE(LoadResourceAccelerators(4401, lines, &error));
  EXPECT_NE(error.find("line 2"), std::string::npos) << error;
  EXPECT_FALSE(LoadResourceAccelerators(4499, lines, &error));
  EXPECT_NE(error.find("4499"), std::string::npos);
}

}  // namespace
