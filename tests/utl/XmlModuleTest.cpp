// The XML module: loaded only when XML is used, kept out of the global
// symbol scope, a clear Exception for what cannot be loaded; and the plain
// tree that readers of small documents walk.
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <link.h>

#include <cstring>
#include <string>

#include "TestFiles.h"
#include "utl/Exception.h"
#include "utl/Paths.h"
#include "utl/XercesXMLSection.h"
#include "utl/XmlModule.h"
#include "utl/XmlTree.h"

namespace {

bool IsMapped(char const * fragment) {
  struct Search {
    char const * fragment;
    bool found;
  } search{fragment, false};
  dl_iterate_phdr(
      [](dl_phdr_info * info, size_t, void * data) {
        auto * search = static_cast<Search *>(data);
        if (info->dlpi_name != nullptr && std::strstr(info->dlpi_name, search->fragment))
          search->found = true;
        return 0;
      },
      &search);
  return search.found;
}

std::string ModuleInBuildTree() {
  return VxPathAppend(VxPathAppend(VxGetDirectory(VxGetExecutableDirectory()), "lib"),
                      vx3::kXmlModuleFileName);
}

// First in this binary, before anything has touched XML.
TEST(XmlModule, IsLoadedOnlyWhenXmlIsUsedAndStaysOutOfTheGlobalScope) {
  EXPECT_FALSE(IsMapped("libxerces-c")) << "linked at start";
  EXPECT_FALSE(IsMapped("libTALVOxml")) << "loaded before use";

  XercesXMLSection section;
  section.WriteKey("Key", "value");
  std::string value;
  EXPECT_TRUE(section.ReadKey("Key", value));
  EXPECT_EQ(value, "value");

  EXPECT_TRUE(IsMapped("libTALVOxml"));
  EXPECT_TRUE(IsMapped("libxerces-c"));
  EXPECT_EQ(dlsym(RTLD_DEFAULT, vx3::kXmlModuleEntryPoint), nullptr);
}

TEST(XmlModule, ThePathOfTheModuleLoadsTheSameModule) {
  EXPECT_EQ(&vx3::LoadXmlModule(ModuleInBuildTree()), &vx3::GetXmlModule());
}

TEST(XmlModule, WhatIsNoModuleIsRefusedWithAClearException) {
  std::string const text = Temp("not-a-library.so");
  Spit(text, "plain text\n");
  struct Case {
    std::string path;
    char const * reason;
  } const cases[] = {
      {Temp("absent.so"), "No such file"},
      {text, "not-a-library.so"},
      // A library, but not the module.
      {"libz.so.1", "exports no TalvoXmlModule"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.path);
    try {
      vx3::LoadXmlModule(c.path);
      ADD_FAILURE() << "loaded";
    } catch (Exception const & refused) {
      EXPECT_NE(refused.Why().find("The XML module " + c.path + " cannot be loaded"),
                std::string::npos)
          << refused.Why();
      EXPECT_NE(refused.Why().find(c.reason), std::string::npos) << refused.Why();
    }
  }
}

TEST(XmlTree, HoldsEveryKindOfNodeInDocumentOrder) {
  vx3::XmlTree const tree = vx3::ParseXmlTree(
      "<?xml version=\"1.0\"?>\n<?style href=\"a\"?><!--before-->"
      "<Root b=\"2\" a=\"&lt;1&gt;\">t1<![CDATA[<c>]]><Child>in</Child><!--c-->t2&amp;"
      "<?pi data?></Root>",
      "(test)", vx3::XmlParseLimits());
  ASSERT_EQ(tree.children.size(), 3u);
  EXPECT_EQ(tree.children[0].kind, vx3::XmlNode::Kind::ProcessingInstruction);
  EXPECT_EQ(tree.children[0].name, "style");
  EXPECT_EQ(tree.children[0].value, "href=\"a\"");
  EXPECT_EQ(tree.children[1].kind, vx3::XmlNode::Kind::Comment);
  EXPECT_EQ(tree.children[1].value, "before");

  vx3::XmlNode const & root = tree.Root();
  EXPECT_EQ(root.name, "Root");
  std::string value;
  EXPECT_TRUE(root.Attribute("a", value));
  EXPECT_EQ(value, "<1>");
  EXPECT_TRUE(root.Attribute("b", value));
  EXPECT_EQ(value, "2");
  EXPECT_FALSE(root.Attribute("c", value));

  using Kind = vx3::XmlNode::Kind;
  std::vector<Kind> kinds;
  for (vx3::XmlNode const & child : root.children) kinds.push_back(child.kind);
  EXPECT_EQ(kinds, (std::vector<Kind>{Kind::Text, Kind::CData, Kind::Element, Kind::Comment,
                                      Kind::Text, Kind::ProcessingInstruction}));
  EXPECT_EQ(root.Text(), "t1<c>t2&");
  EXPECT_EQ(root.TextContent(), "t1<c>int2&");
}

TEST(XmlTree, RefusesWhatTheParserRefuses) {
  vx3::XmlParseLimits tight;
  tight.maxBytes = 64;
  tight.maxDepth = 2;
  struct Case {
    char const * xml;
    char const * reason;
  } const cases[] = {
      {"<!DOCTYPE r [<!ENTITY e \"x\">]><r>&e;</r>", "document type"},
      {"<a><b><c/></b></a>", "deeper than 2"},
      {"<a>0123456789012345678901234567890123456789012345678901234567890123</a>", "larger"},
      {"<a><b></a>", "line 1"},
      {"", "cannot be read"},
  };
  for (Case const & c : cases) {
    SCOPED_TRACE(c.xml);
    try {
      vx3::ParseXmlTree(c.xml, "(refused)", tight);
      ADD_FAILURE() << "accepted";
    } catch (Exception const & refused) {
      EXPECT_NE(refused.Why().find("(refused)"), std::string::npos) << refused.Why();
      EXPECT_NE(refused.Why().find(c.reason), std::string::npos) << refused.Why();
    }
  }
}

TEST(XmlTree, ATreeWithoutAnElementHasNoRoot) {
  vx3::XmlTree tree;
  tree.children.push_back(vx3::XmlNode{vx3::XmlNode::Kind::Comment, "", "only", {}, {}});
  EXPECT_THROW(tree.Root(), Exception);
}

}  // namespace
