// The HTML view in a real WebKit browser: texts waiting for the document,
// page scripts off, app: links, the view's own keys and context menu, the
// find bar, saving own and URL pages, a web process that dies.
#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/webview.h>

#include "controls/VxMenu.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "html/HtmlBrowserModule.h"
#include "html/HtmlFindBar.h"
#include "html/HtmlSaveChooser.h"
#include "html/IHTMLDocumentUtilities.h"
#include "html/VxHtmlCtrl.h"
#include "html/VxHtmlView.h"
#include "html/WebKitBrowser.h"
#include "platform/MenuCommandIds.h"

namespace {

constexpr int kLoadTimeoutMs = 20000;

std::string TempPath(std::string const & name) {
  char const * dir = std::getenv("TMPDIR");
  return std::string(dir != nullptr ? dir : "/tmp") + "/" + name;
}

std::string FileText(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

class HtmlView : public testing::Test {
protected:
  void SetUp() override {
    mFrame = new wxFrame(nullptr, wxID_ANY, "HTML view", wxDefaultPosition, wxSize(600, 400));
    mView = new VxHtmlView(mFrame, wxID_ANY);
    auto * sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(mView, 1, wxEXPAND);
    mFrame->SetSizer(sizer);
    ASSERT_TRUE(gui_test::ShowAndWait(*mFrame));
    mFrame->Layout();
  }

  void TearDown() override {
    SetHtmlSaveChooser(nullptr);
    VxMenu::SetTrackPopupMenuFunction(&VxMenu::ToolkitTrackPopupMenu);
    mFrame->Destroy();
    gui_test::Flush();
  }

  bool WaitShown(VxHtmlView & view) {
    return gui_test::WaitUntil(
        [&] { return view.GetPageState() == VxHtmlView::PageState::Ready && !view.IsPending(); },
        kLoadTimeoutMs);
  }

  wxString Script(wxString const & script) {
    wxString result;
    EXPECT_TRUE(mView->GetBrowser()->RunScript(script, &result)) << script;
    return result;
  }

  GtkWidget * Widget() { return static_cast<GtkWidget *>(mView->GetBrowser()->GetNativeBackend()); }

  // A key as the X server would deliver it to the browser's widget.
  void PressBrowserKey(guint keyval, GdkModifierType state) {
    GdkEvent * event = gdk_event_new(GDK_KEY_PRESS);
    event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(Widget())));
    event->key.keyval = keyval;
    event->key.state = state;
    event->key.send_event = TRUE;
    GdkSeat * seat = gdk_display_get_default_seat(gdk_display_get_default());
    gdk_event_set_device(event, gdk_seat_get_keyboard(seat));
    gtk_widget_event(Widget(), event);
    gdk_event_free(event);
  }

  wxFrame * mFrame = nullptr;
  VxHtmlView * mView = nullptr;
};

TEST_F(HtmlView, TextsWaitForTheDocumentAndTheLastOneIsShown) {
  // Before the window exists the texts are kept.
  VxHtmlView * late = new VxHtmlView;
  late->SetHTML(L"<p id=t>early</p>", L"p { color: rgb(1, 2, 3) }");
  EXPECT_TRUE(late->IsPending());
  EXPECT_EQ(late->GetPageState(), VxHtmlView::PageState::NoBrowser);
  ASSERT_TRUE(late->Create(mFrame, wxID_ANY));
  mFrame->GetSizer()->Add(late, 1, wxEXPAND);
  mFrame->Layout();
  ASSERT_TRUE(WaitShown(*late));
  wxString text;
  ASSERT_TRUE(
      late->GetBrowser()->RunScript("getComputedStyle(document.getElementById('t')).color", &text));
  EXPECT_EQ(text, "rgb(1, 2, 3)");

  // Two texts while the first about:blank still loads: the second comes up.
  mView->SetHTML(L"<p id=t>first</p>", L"");
  mView->SetHTML(L"<style type=x>p { color: rgb(9, 8, 7) }</style><p id=t>second</p>", nullptr);
  EXPECT_TRUE(mView->IsPending());
  ASSERT_TRUE(WaitShown(*mView));
  EXPECT_EQ(Script("document.getElementById('t').textContent"), "second");
  EXPECT_EQ(Script("getComputedStyle(document.getElementById('t')).color"), "rgb(9, 8, 7)");
  EXPECT_EQ(mView->GetBrowser()->GetCurrentURL(), "about:blank");
  wxString css;
  EXPECT_EQ(IHTMLDocumentUtilities::GetCSSText(mView->GetDocumentStyle(), &css), 0);
  EXPECT_EQ(css, "p { color: rgb(9, 8, 7) }");

  // A style changed through the document's sheets goes into the page.
  HtmlStyleSheet * sheet = mView->GetDocumentStyle()->GetSheet(0);
  IHTMLDocumentUtilities::AddMissingHTMLRuleStyles("#t { font-size: 31px }", sheet);
  EXPECT_EQ(Script("getComputedStyle(document.getElementById('t')).fontSize"), "31px");
}

TEST_F(HtmlView, PageScriptsAreOffButTheViewsScriptsRun) {
  mView->SetHTML(
      L"<p id=t onclick=\"this.textContent='clicked'\">still</p>"
      L"<script>document.title='ran'</script>",
      L"");
  ASSERT_TRUE(WaitShown(*mView));
  EXPECT_EQ(Script("String(6 * 7)"), "42");
  EXPECT_NE(Script("document.title"), "ran");
  Script("document.getElementById('t').click()");
  EXPECT_EQ(Script("document.getElementById('t').textContent"), "still");
}

TEST_F(HtmlView, AppLinksPostMappedCommandsAndNeverNavigate) {
  std::vector<int> commands;
  mFrame->Bind(wxEVT_MENU, [&](wxCommandEvent & event) { commands.push_back(event.GetId()); });
  mView->SetCmdMap({{L"Run", 5100}, {L"\u00dcn\u00ef", 5101}}, mFrame);
  mView->SetHTML(
      L"<a id=a href='App:Run'>a</a><a id=b href='app:\u00dcn\u00ef'>b</a>"
      L"<a id=c href='app:run'>c</a><a id=d href='APP:Nothing'>d</a>",
      L"");
  ASSERT_TRUE(WaitShown(*mView));
  for (char const * link : {"c", "d", "a", "b"}) {
    Script(wxString::Format("document.getElementById('%s').click()", link));
    gui_test::WaitUntil([&] { return commands.size() >= (link[0] == 'b' ? 2u : 1u); }, 3000);
  }
  gui_test::Flush();
  EXPECT_EQ(commands, (std::vector<int>{5100, 5101}));  // "run" and "Nothing" are not mapped
  EXPECT_EQ(mView->GetBrowser()->GetCurrentURL(), "about:blank");
  EXPECT_EQ(mView->GetPageState(), VxHtmlView::PageState::Ready);
}

TEST_F(HtmlView, KeysAndTheContextMenuAreTheViews) {
  mView->SetHTML(L"<p>alpha beta</p>", L"");
  ASSERT_TRUE(WaitShown(*mView));
  struct Shown {
    std::vector<int> items;
    wxWindow * owner;
    wxPoint point;
  };
  std::vector<Shown> shown;
  VxMenu::SetTrackPopupMenuFunction(
      [&](wxMenu * menu, unsigned int, int x, int y, wxWindow * owner, wxRect const *) {
        Shown one{{}, owner, wxPoint(x, y)};
        for (wxMenuItem * item : menu->GetMenuItems()) one.items.push_back(item->GetId());
        shown.push_back(one);
        return 1;
      });
  // Right click: the view's menu 16239 at the click, its commands to the view.
  GdkEvent * click = gdk_event_new(GDK_BUTTON_PRESS);
  click->button.button = 3;
  click->button.x_root = 120;
  click->button.y_root = 80;
  gboolean handled = FALSE;
  g_signal_emit_by_name(Widget(), "context-menu", nullptr, click, nullptr, &handled);
  gdk_event_free(click);
  EXPECT_TRUE(handled);  // WebKit's own menu does not come
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].owner, mView);
  EXPECT_EQ(shown[0].point, wxPoint(120, 80));
  EXPECT_NE(std::find(shown[0].items.begin(), shown[0].items.end(), MenuItemIdFromCommand(57634)),
            shown[0].items.end());
  // Shift+F10 comes without a pointer: the browser's top left corner.
  GdkEvent * key = gdk_event_new(GDK_KEY_PRESS);
  g_signal_emit_by_name(Widget(), "context-menu", nullptr, key, nullptr, &handled);
  gdk_event_free(key);
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[1].point, mView->GetBrowser()->GetScreenPosition());
  // No menu: the click does nothing, and WebKit's menu still stays away.
  mView->DisablePopupMenu();
  click = gdk_event_new(GDK_BUTTON_PRESS);
  handled = FALSE;
  g_signal_emit_by_name(Widget(), "context-menu", nullptr, click, nullptr, &handled);
  gdk_event_free(click);
  EXPECT_TRUE(handled);
  EXPECT_EQ(shown.size(), 2u);

  // A command of the menu comes back to the view under its stand-in id.
  wxCommandEvent selectAll(wxEVT_MENU, MenuItemIdFromCommand(57642));
  mView->ProcessWindowEvent(selectAll);
  EXPECT_EQ(Script("String(window.getSelection())"), "alpha beta");

  // Ctrl+F opens the find bar with the focus in it; Escape closes it.
  PressBrowserKey(GDK_KEY_f, GDK_CONTROL_MASK);
  EXPECT_TRUE(mView->GetFindBar()->IsShown());
  EXPECT_EQ(wxWindow::FindFocus(), mView->GetFindBar()->GetTextCtrl());
  mView->GetFindBar()->GetTextCtrl()->ChangeValue("gamma");
  EXPECT_EQ(mView->GetFindBar()->FindNext(), -1);
  EXPECT_FALSE(mView->GetFindBar()->GetStatusText().empty());
  mView->GetFindBar()->GetTextCtrl()->ChangeValue("beta");
  EXPECT_NE(mView->GetFindBar()->FindNext(), -1);
  EXPECT_TRUE(mView->GetFindBar()->GetStatusText().empty());
  mView->GetFindBar()->Close();
  EXPECT_FALSE(mView->GetFindBar()->IsShown());

  // Ctrl+S (an accelerator of 16261) asks where to save; Ctrl+A selects.
  int asked = 0;
  SetHtmlSaveChooser([&](HtmlSaveRequest const & request) {
    ++asked;
    EXPECT_EQ(request.defaultExtension, "htm");
    return HtmlSaveAnswer();
  });
  Script("window.getSelection().removeAllRanges()");
  PressBrowserKey(GDK_KEY_s, GDK_CONTROL_MASK);
  EXPECT_EQ(asked, 1);
  PressBrowserKey(GDK_KEY_A, static_cast<GdkModifierType>(GDK_CONTROL_MASK | GDK_SHIFT_MASK));
  EXPECT_EQ(Script("String(window.getSelection())"), "");  // Ctrl+Shift+A is no key of the view
  PressBrowserKey(GDK_KEY_a, GDK_CONTROL_MASK);
  EXPECT_EQ(Script("String(window.getSelection())"), "alpha beta");
}

TEST_F(HtmlView, OwnPagesAreSavedAsWholeUtf8Documents) {
  mView->SetHTML(L"<h1>R\u00e9sum\u00e9</h1><table><tr><td>1 &lt; 2</td></tr></table>",
                 L"td { color: red }");
  ASSERT_TRUE(WaitShown(*mView));
  std::string const path = TempPath("Report.htm");
  SetHtmlSaveChooser([&](HtmlSaveRequest const & request) {
    EXPECT_EQ(request.fileName, "Page");  // string 61443
    HtmlSaveAnswer answer;
    answer.accepted = true;
    answer.path = path;
    answer.title = "Report";
    return answer;
  });
  mView->OnFileSaveAs();
  std::string const saved = FileText(path);
  EXPECT_EQ(saved.rfind("<!DOCTYPE html PUBLIC", 0), 0u) << saved;
  EXPECT_NE(saved.find("<title>Report</title>"), std::string::npos);
  EXPECT_NE(saved.find("<!--td { color: red }-->"), std::string::npos);
  EXPECT_NE(saved.find("<h1>R\xc3\xa9sum\xc3\xa9</h1>"), std::string::npos);
  EXPECT_NE(saved.find("<td>1 &lt; 2</td>"), std::string::npos);
  // The HTML checker reads it without a complaint.
  std::string const check = "xmllint --html --noout '" + path + "' 2>" + TempPath("lint.txt");
  EXPECT_EQ(std::system(check.c_str()), 0) << FileText(TempPath("lint.txt"));
  EXPECT_EQ(FileText(TempPath("lint.txt")), "");
}

TEST_F(HtmlView, UrlPagesAreSavedAsMhtml) {
  std::string const page = TempPath("source.html");
  std::ofstream(page) << "<html><head><title>Source</title></head><body><p>from a file</p></body>"
                         "</html>";
  bool loaded = false;
  mView->GetBrowser()->Bind(wxEVT_WEBVIEW_LOADED, [&](wxWebViewEvent & event) {
    loaded = loaded || event.GetURL().EndsWith("source.html");
    event.Skip();
  });
  mView->GetBrowser()->LoadURL("file://" + page);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return loaded; }, kLoadTimeoutMs));
  std::string const path = TempPath("saved.mht");
  SetHtmlSaveChooser([&](HtmlSaveRequest const & request) {
    EXPECT_EQ(request.defaultExtension, "mht");
    HtmlSaveAnswer answer;
    answer.accepted = true;
    answer.path = path;
    return answer;
  });
  mView->OnFileSaveAs();
  std::string const saved = FileText(path);
  EXPECT_NE(saved.find("MIME-Version: 1.0"), std::string::npos) << saved.substr(0, 300);
  EXPECT_NE(saved.find("multipart/related"), std::string::npos);
  EXPECT_NE(saved.find("from a file"), std::string::npos);
  // Python's mail parser takes it as a multipart message with the page.
  std::string const check =
      "python3 -c \"import email,sys; m=email.message_from_binary_file(open(sys.argv[1],'rb')); "
      "sys.exit(0 if m.is_multipart() and any(p.get_content_type()=='text/html' "
      "for p in m.walk()) else 1)\" '" +
      path + "'";
  EXPECT_EQ(std::system(check.c_str()), 0);
}

// A page that cannot be saved says which file and why, and loses nothing:
// a file already there keeps its text and nothing is left beside it.
TEST_F(HtmlView, APageThatCannotBeSavedSaysWhyAndLosesNothing) {
  mView->SetHTML(L"<p>kept</p>", L"");
  ASSERT_TRUE(WaitShown(*mView));
  std::string const readOnly = TempPath("read-only");
  ASSERT_EQ(::mkdir(readOnly.c_str(), 0755), 0);
  std::ofstream(readOnly + "/Report.htm") << "earlier report";
  ASSERT_EQ(::chmod(readOnly.c_str(), 0555), 0);
  std::vector<std::string> folders{"/sys"};           // refused to root as well
  if (::geteuid() != 0) folders.push_back(readOnly);  // root writes anyway
  for (std::string const & folder : folders) {
    SCOPED_TRACE(folder);
    std::string const path = folder + "/Report.htm";
    SetHtmlSaveChooser([&](HtmlSaveRequest const &) {
      HtmlSaveAnswer answer;
      answer.accepted = true;
      answer.path = path;
      answer.title = "Report";
      return answer;
    });
    ModalDialogScript script;
    script.Answer(wxID_OK);
    mView->OnFileSaveAs();
    ASSERT_EQ(script.Shown().size(), 1u);
    wxString const message = script.Shown()[0].message;
    EXPECT_TRUE(message.StartsWith("The file " + path + " cannot be written: ")) << message;
    EXPECT_GT(message.length(), ("The file " + path + " cannot be written: .").size()) << message;
  }
  ::chmod(readOnly.c_str(), 0755);
  EXPECT_EQ(FileText(readOnly + "/Report.htm"), "earlier report");
  std::vector<std::string> left;
  for (auto const & entry : std::filesystem::directory_iterator(readOnly))
    left.push_back(entry.path().filename().string());
  EXPECT_EQ(left, std::vector<std::string>{"Report.htm"});
  // The view goes on: the page is still there to be saved elsewhere.
  EXPECT_EQ(Script("document.body.textContent"), "kept");
}

// Web pages (saved by WebKit) say so too, with WebKit's reason.
TEST_F(HtmlView, AUrlPageThatCannotBeSavedSaysSo) {
  std::string const page = TempPath("unsaved.html");
  std::ofstream(page) << "<html><body><p>from a file</p></body></html>";
  bool loaded = false;
  mView->GetBrowser()->Bind(wxEVT_WEBVIEW_LOADED, [&](wxWebViewEvent & event) {
    loaded = loaded || event.GetURL().EndsWith("unsaved.html");
    event.Skip();
  });
  mView->GetBrowser()->LoadURL("file://" + page);
  ASSERT_TRUE(gui_test::WaitUntil([&] { return loaded; }, kLoadTimeoutMs));
  SetHtmlSaveChooser([&](HtmlSaveRequest const &) {
    HtmlSaveAnswer answer;
    answer.accepted = true;
    answer.path = "/sys/saved.mht";
    return answer;
  });
  ModalDialogScript script;
  script.Answer(wxID_OK);
  mView->OnFileSaveAs();
  ASSERT_EQ(script.Shown().size(), 1u);
  wxString const message = script.Shown()[0].message;
  EXPECT_TRUE(message.StartsWith("The page could not be saved.\n")) << message;
  EXPECT_GT(message.AfterFirst('\n').length(), 0u) << message;
}

TEST_F(HtmlView, ADeadWebProcessIsRecoveredByTheNextText) {
  mView->SetHTML(L"<p id=t>before</p>", L"");
  ASSERT_TRUE(WaitShown(*mView));
  ASSERT_TRUE(WebKitBrowser::TerminateWebProcess(*mView->GetBrowser()));
  ASSERT_TRUE(gui_test::WaitUntil(
      [&] { return mView->GetPageState() == VxHtmlView::PageState::ProcessGone; }, kLoadTimeoutMs));
  mView->SetHTML(L"<p id=t>after</p>", L"");
  ASSERT_TRUE(WaitShown(*mView));
  EXPECT_EQ(Script("document.getElementById('t').textContent"), "after");
}

TEST_F(HtmlView, BrowserCommandsOfTheViewsTable) {
  struct Case {
    unsigned int command;
    unsigned int browserCommand;
  };
  Case const cases[] = {{57634, 15}, {57607, 27}, {57642, unsigned(-1)}, {0, unsigned(-1)}};
  for (Case const & c : cases) {
    int mapped = -1;
    unsigned int value = 99;
    EXPECT_EQ(mView->GetDHtmlCommandMapping(c.command, mapped, value), c.browserCommand);
    if (c.browserCommand != unsigned(-1)) {
      EXPECT_EQ(mapped, 0);
      EXPECT_EQ(value, 0u);
    }
  }
  EXPECT_EQ(mView->ExecHandler(57634), 1);
  EXPECT_EQ(mView->ExecHandler(57604), 0);
  EXPECT_TRUE(IsHtmlBrowserLoaded());
  EXPECT_TRUE(VxHtmlView::IsIEWindow(mView->GetBrowser()));
  EXPECT_FALSE(VxHtmlView::IsIEWindow(mView));
}

TEST_F(HtmlView, TheControlTakesTheStaticsPlaceAndId) {
  auto * panel = new wxPanel(mFrame);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * placeholder = new wxStaticText(panel, 5200, "html here", wxPoint(3, 4), wxSize(200, 100));
  sizer->Add(placeholder, 1, wxEXPAND);
  panel->SetSizer(sizer);
  auto * control = new VxHtmlCtrl;
  EXPECT_EQ(control->CreateFromStatic(5201, panel), 0);  // no such static
  ASSERT_EQ(control->CreateFromStatic(5200, panel), 1);
  EXPECT_EQ(panel->FindWindow(5200), control);
  EXPECT_EQ(sizer->GetItemCount(), 1u);
  EXPECT_EQ(sizer->GetItem(size_t{0})->GetWindow(), control);
  ASSERT_TRUE(WaitShown(*control));
  EXPECT_EQ(control->GetBrowser()->GetCurrentURL(), "about:blank");
}

}  // namespace
