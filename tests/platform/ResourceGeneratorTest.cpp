// talvo-resgen, the build-time generator of resource modules: a folder it
// cannot take stops the build with the file and the reason; what it takes
// comes out as sorted tables with the texts intact.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Generated {
  int status;
  std::string errors;
  std::string output;
};

class ResourceGenerator : public testing::Test {
protected:
  void SetUp() override {
    mRoot = fs::path(std::getenv("TMPDIR") != nullptr ? std::getenv("TMPDIR") : "/tmp") /
            testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::remove_all(mRoot);
    fs::create_directories(mRoot);
    mFiles.clear();
  }

  void Write(std::string const & relative, std::string const & bytes) {
    fs::path const path = mRoot / "module" / relative;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    mFiles.push_back(path.string());
  }

  Generated Generate() {
    std::string command = std::string(TALVO_RESGEN) + " --name test --role application --root " +
                          (mRoot / "module").string() + " --output " + (mRoot / "out.cpp").string();
    for (std::string const & file : mFiles) command += " '" + file + "'";
    command += " 2>" + (mRoot / "errors.txt").string();
    Generated run;
    run.status = std::system(command.c_str());
    run.errors = Read(mRoot / "errors.txt");
    run.output = Read(mRoot / "out.cpp");
    return run;
  }

  static std::string Read(fs::path const & path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
  }

  fs::path mRoot;
  std::vector<std::string> mFiles;
};

std::string const kPng = std::string("\x89PNG\r\n\x1a\n", 8) + "IHDR";

TEST_F(ResourceGenerator, RefusesWhatItCannotTakeNamingFileAndReason) {
  struct Case {
    char const * file;
    std::string bytes;
    char const * reason;
  };
  std::vector<Case> const cases = {
      {"strings/a.txt", "13195 \"no end\n", "a.txt:1: the text has no closing quote"},
      {"strings/a.txt", "# c\n\n1 \"x\" \"y\" \"z\"\n", "a.txt:3: unexpected text after"},
      {"strings/a.txt", "65536 \"big\"\n", "id 65536 is out of 1 to 65535"},
      {"strings/a.txt", "1 \"bad \\q\"\n", "unknown escape \\q"},
      {"strings/a.txt", "1 \"x\"\n1 \"y\"\n", "a.txt:2: string 1 is defined twice"},
      {"dialogs/5.xrc", "<resource><object class=\"wxDialog\" name=\"6\"/></resource>",
       "no object named \"5\""},
      {"dialogs/5.xrc", "<object name=\"5\"><label>A &copy; B</label></object>",
       "entity &copy; in a label"},
      {"bitmaps/7.png", "GIF89a", "7.png: not a PNG file"},
      {"menus/8.xrc", "<object class=\"wxMenu\" name=\"9\"/>", "no object named \"8\""},
      {"menus/8.txt", "", "menus are .xrc files"},
      {"accelerators/9.txt", "# keys\nCtrl+F\n", "9.txt:2: a key and a command id"},
      {"accelerators/9.txt", "Ctrl+F 70000\n", "9.txt:1: id 70000 is out of"},
      {"accelerators/9.txt", "Ctrl+F 5 6\n", "unexpected text after the command id"},
      {"toolbars/6.txt", "100\n", "6.txt:1: `size <width> <height>` must come first"},
      {"toolbars/6.txt", "size 16\n", "6.txt:1: `size <width> <height>` expected"},
      {"toolbars/6.txt", "size 0 16\n1\n", "\"0\" is no image size"},
      {"toolbars/6.txt", "size 16 16\n1 2\n", "6.txt:2: unexpected text \"2\""},
      {"toolbars/6.txt", "size 16 16\n# only a comment\n", "a tool bar without buttons"},
      {"toolbars/6.txt", "size 16 16\nsave\n", "\"save\" is no resource id"},
      {"toolbars/6.txt", "size 16 16\n5\n", "no strip bitmaps/6.png beside it"},
      {"toolbars/6.bar", "", "tool bars are .txt files"},
      {"pictures/7.png", kPng, "unknown resource folder \"pictures\""},
      {"html/page.html", "<p/>", "\"page\" is no resource id"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.file);
    SetUp();
    Write(c.file, c.bytes);
    Generated const run = Generate();
    EXPECT_NE(run.status, 0);
    EXPECT_NE(run.errors.find(c.reason), std::string::npos) << run.errors;
    EXPECT_EQ(run.output, "");  // nothing half written
  }
  SetUp();
  Write("html/3.css", "a{}");
  Write("html/3.xml", "<a/>");
  Generated const run = Generate();
  EXPECT_NE(run.status, 0);
  EXPECT_NE(run.errors.find("the same id as"), std::string::npos) << run.errors;
}

// A PNG header of the given size; the generator reads no further.
std::string PngHeader(unsigned width, unsigned height) {
  std::string png = std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16);
  for (unsigned const value : {width, height})
    for (int shift = 24; shift >= 0; shift -= 8) png += static_cast<char>((value >> shift) & 0xFF);
  return png;
}

TEST_F(ResourceGenerator, ToolBarsBecomeWordsBesideAStripOfTheirSize) {
  Write("toolbars/300.txt", "# view\r\nsize 16 15\r\n57600\r\nseparator\r\n  258 # open\r\n");
  Write("bitmaps/300.png", PngHeader(32, 15));
  Generated const run = Generate();
  ASSERT_EQ(run.status, 0) << run.errors;
  // Little-endian words: version 1, 16 x 15, three entries, 57600 (0xE100),
  // a separator, 258 (0x0102).
  EXPECT_NE(run.output.find("0x01, 0x00, 0x10, 0x00, 0x0f, 0x00, 0x03, 0x00, 0x00, 0xe1, 0x00, "
                            "0x00, 0x02, 0x01,\n};"),
            std::string::npos)
      << run.output;
  EXPECT_NE(run.output.find("{241, 300, "), std::string::npos);

  // A strip that does not hold one image per button stops the build.
  struct Case {
    std::string png;
    char const * reason;
  };
  for (Case const & c :
       {Case{PngHeader(48, 15), "the strip is 48x15, 2 images of 16x15 need 32x15"},
        Case{PngHeader(32, 16), "the strip is 32x16"}}) {
    SetUp();
    Write("toolbars/300.txt", "size 16 15\n57600\nseparator\n258\n");
    Write("bitmaps/300.png", c.png);
    Generated const bad = Generate();
    EXPECT_NE(bad.status, 0);
    EXPECT_NE(bad.errors.find(c.reason), std::string::npos) << bad.errors;
  }
}

TEST_F(ResourceGenerator, TablesComeOutSortedWithTextsEscapedForTheCatalog) {
  Write("html/30.css", "a{}");
  Write("bitmaps/9.png", kPng);
  Write("html/4.xml", "");
  Write("dialogs/20.xrc",
        "<object class=\"wxDialog\" name=\"20\"><title>Save &amp; _close</title>"
        "<label>A__b\\nc</label></object>");
  Write("strings/b.txt", "7 \"ctx\" \"Tab\\there\"\n");
  Write("menus/12.xrc", "<object class=\"wxMenu\" name=\"12\"><label>_Find</label></object>");
  Write("accelerators/11.txt", "Ctrl+F 57636\r\n");
  Write("strings/a.txt", "2 \"Say \\\"hi\\\" \\\\ bye\"\r\n");
  Write("README.md", "ignored");
  Generated const run = Generate();
  ASSERT_EQ(run.status, 0) << run.errors;
  // Bitmaps (2), menus (4), dialogs (5), accelerators (9), text resources
  // (23); ids ascending.
  size_t const bitmap = run.output.find("{2, 9, ");
  size_t const menu = run.output.find("{4, 12, ");
  size_t const dialog = run.output.find("{5, 20, ");
  size_t const accelerators = run.output.find("{9, 11, ");
  size_t const small = run.output.find("{23, 4, ");
  size_t const large = run.output.find("{23, 30, ");
  ASSERT_NE(large, std::string::npos) << run.output;
  EXPECT_LT(bitmap, menu);
  EXPECT_LT(menu, dialog);
  EXPECT_LT(dialog, accelerators);
  EXPECT_LT(accelerators, small);
  EXPECT_LT(small, large);
  EXPECT_NE(run.output.find(", 0},"), std::string::npos);  // the empty file
  EXPECT_NE(run.output.find("{2, translate(\"Say \\\"hi\\\" \\\\ bye\")}"), std::string::npos);
  EXPECT_NE(run.output.find("{7, translate(\"ctx\", \"Tab\\there\")}"), std::string::npos);
  // Dialog texts as wx reads them: "_c" a mnemonic, "__" an underscore.
  EXPECT_NE(run.output.find("translate(\"Save & &close\")"), std::string::npos);
  EXPECT_NE(run.output.find("translate(\"A_b\\nc\")"), std::string::npos);
  EXPECT_NE(run.output.find("translate(\"&Find\")"), std::string::npos);  // menu labels too
}

}  // namespace
