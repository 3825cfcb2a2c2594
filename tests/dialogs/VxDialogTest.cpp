// The dialog base on real windows: the life cycle of DoModal (controls made
// from the template on every run, OnInitDialog before the window shows),
// the ways to OnCancel, the guard around handlers and OnInitDialog, help,
// and the owner of a dialog built without parent.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/frame.h>

#include "dialogs/VxDialog.h"
#include "frame/HandleExceptionPage.h"
#include "harness/GuiTestUtilities.h"
#include "harness/ModalDialogScript.h"
#include "html/HelpEngine.h"
#include "html/VxHtmlHelp.h"
#include "platform/WinUser.h"

namespace {

constexpr unsigned kTemplate = 4300;
constexpr int kCheck = 4301;
constexpr int kAct = 4302;

class TestDialog : public VxDialog {
public:
  explicit TestDialog(unsigned templateId = kTemplate, unsigned helpTopic = 0)
      : VxDialog(templateId, nullptr, helpTopic) {
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent &) { onAct(); }, kAct);
  }

  using VxDialog::GetDialogParent;

  bool keep = false;
  int initCount = 0;
  bool shownDuringInit = true;
  int cancelCount = 0;
  int cancelsRefused = 0;  // the first this many OnCancel calls do not end
  std::function<void()> onInit = [] {};
  std::function<void()> onAct = [] {};

protected:
  bool OnInitDialog() override {
    ++initCount;
    shownDuringInit = IsShown();
    onInit();
    return VxDialog::OnInitDialog();
  }
  bool DoDataExchange(bool save) override {
    auto * check = static_cast<wxCheckBox *>(GetDlgItem(kCheck));
    if (save)
      keep = check->GetValue();
    else
      check->SetValue(keep);
    return true;
  }
  void OnCancel() override {
    if (++cancelCount > cancelsRefused) VxDialog::OnCancel();
  }
};

using gui_test::Click;
void PressEscape(wxDialog & dialog) { gui_test::PressKey(dialog, WXK_ESCAPE); }

TEST(VxDialog, EachRunMakesFreshControlsAndInitialisesBeforeShowing) {
  TestDialog dialog;
  ModalDialogScript script;
  script.Act([](wxDialog & d) {
    auto * check = static_cast<wxCheckBox *>(d.FindWindow(kCheck));
    check->SetValue(true);
    check->SetLabel("changed by the user");
    Click(d, IDOK);
  });
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_TRUE(dialog.keep);  // OK read the controls
  EXPECT_FALSE(dialog.shownDuringInit);
  EXPECT_EQ(dialog.GetDlgItem(kCheck), nullptr);  // the controls went with the run

  script.Act([&](wxDialog & d) {
    auto * check = static_cast<wxCheckBox *>(d.FindWindow(kCheck));
    EXPECT_EQ(check->GetLabel(), "Keep");  // from the template, not the first run
    EXPECT_TRUE(check->GetValue());        // from the member, by OnInitDialog
    Click(d, IDCANCEL);
  });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_EQ(dialog.initCount, 2);
  EXPECT_TRUE(dialog.keep);  // Cancel exchanged nothing
  EXPECT_EQ(script.Shown().size(), 2u);
  EXPECT_EQ(script.Shown()[0].title, "Test dialog");
}

TEST(VxDialog, EscapeAndTheCloseBoxReachOnCancelWhichMayRefuse) {
  struct Way {
    char const * name;
    void (*press)(wxDialog &);
  };
  Way const ways[] = {{"Escape", PressEscape}, {"close box", [](wxDialog & d) { d.Close(); }}};
  for (Way const & way : ways) {
    SCOPED_TRACE(way.name);
    TestDialog dialog;
    dialog.cancelsRefused = 1;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      way.press(d);
      EXPECT_TRUE(d.IsModal() && d.IsShown());  // refused
      way.press(d);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.cancelCount, 2);
  }
}

TEST(VxDialog, EndingInOnInitDialogReturnsWithoutShowingAndAMissingTemplateGivesMinusOne) {
  TestDialog ended;
  ended.onInit = [&] { ended.EndDialog(IDNO); };
  ModalDialogScript script;  // any dialog shown fails the test
  EXPECT_EQ(ended.DoModal(), IDNO);

  TestDialog missing(4399);
  EXPECT_EQ(missing.DoModal(), -1);
  EXPECT_EQ(missing.initCount, 0);
  EXPECT_TRUE(script.Shown().empty());
}

TEST(VxDialog, FailuresInHandlersAndInOnInitDialogStopAtTheGuard) {
  TestDialog dialog;
  dialog.onInit = [] { throw std::runtime_error("init failed"); };
  dialog.onAct = [] { throw std::runtime_error("handler failed"); };
  std::vector<std::string> details;
  auto ignore = [&](wxDialog & d) {
    details.push_back(dynamic_cast<HandleExceptionPage &>(d).GetDetailText());
    d.EndModal(HandleExceptionPage::kIgnoreId);
  };
  ModalDialogScript script;
  script.Act(ignore);  // from OnInitDialog; the dialog still runs
  script.Act([](wxDialog & d) {
    Click(d, kAct);  // the handler fails: the guard's dialog is answered below
    Click(d, IDOK);  // and the dialog carries on
  });
  script.Act(ignore);
  EXPECT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(details, (std::vector<std::string>{"init failed", "handler failed"}));
}

struct AvailableEngine : HelpEngine {
  explicit AvailableEngine(std::vector<HelpRequest> & requests) : requests(requests) {}
  bool IsAvailable() const override { return true; }
  bool Execute(HelpRequest const & request) override {
    requests.push_back(request);
    return true;
  }
  std::vector<HelpRequest> & requests;
};

TEST(VxDialog, HelpIsEnabledOnlyWithATopicAndAnEngineThatCanShowIt) {
  auto helpEnabled = [](unsigned topic) {
    TestDialog dialog(kTemplate, topic);
    bool enabled = false;
    ModalDialogScript script;
    script.Act([&](wxDialog & d) {
      enabled = d.FindWindow(IDHELP)->IsEnabled();
      if (enabled) Click(d, IDHELP);
      Click(d, IDCANCEL);
    });
    dialog.DoModal();
    return enabled;
  };
  VxHtmlHelp::Instance()->SetHelpFile(L"/usr/share/doc/sample/Sample.chm");
  // The library installs its engine when it loads; the default one replaces it.
  std::unique_ptr<HelpEngine> const installed = VxSetHelpEngine(nullptr);
  EXPECT_FALSE(helpEnabled(77));  // the default engine cannot show topics

  std::vector<HelpRequest> requests;
  VxSetHelpEngine(std::make_unique<AvailableEngine>(requests));
  EXPECT_TRUE(helpEnabled(77));
  EXPECT_FALSE(helpEnabled(0));
  EXPECT_FALSE(helpEnabled(static_cast<unsigned>(-1)));
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0].command, HelpCommand::HelpContext);
  EXPECT_EQ(std::get<int>(requests[0].value), 77);
  VxSetHelpEngine(nullptr);
}

TEST(VxDialog, DialogUnitsScaleBothWaysByTheFontHeight) {
  TestDialog dialog;
  int small = 0, large = 0, x = 0;
  dialog.onInit = [&] {
    small = dialog.FromDlgY(100);
    x = dialog.FromDlgX(100);
    dialog.SetFont(dialog.GetFont().Scaled(2.0f));
    large = dialog.FromDlgY(100);
    dialog.EndDialog(IDOK);
  };
  dialog.DoModal();
  EXPECT_EQ(x, small);
  EXPECT_GT(small, 100 / 8 * 8);  // 8 vertical units are at least a line of a readable font
  EXPECT_GT(large, small * 3 / 2);
}

TEST(VxDialog, AnOwnerlessDialogBelongsToTheModalDialogAboveTheMainWindow) {
  auto * main = new wxFrame(nullptr, wxID_ANY, "Main");
  wxTheApp->SetTopWindow(main);
  main->Show();
  EXPECT_EQ(TestDialog::GetDialogParent(), main);

  TestDialog outer;
  ModalDialogScript script;
  script.Act([&](wxDialog & d) {
    EXPECT_EQ(d.GetParent(), main);
    EXPECT_EQ(TestDialog::GetDialogParent(), &outer);
    TestDialog inner;
    inner.DoModal();
    Click(d, IDOK);
  });
  script.Act([&](wxDialog & d) {
    EXPECT_EQ(d.GetParent(), &outer);
    Click(d, IDCANCEL);
  });
  outer.DoModal();
  // Between runs the dialog is nobody's child: destroying the main window
  // below must leave the object alone.
  EXPECT_EQ(outer.GetParent(), nullptr);
  wxTheApp->SetTopWindow(nullptr);
  main->Destroy();
  gui_test::Flush();
}

}  // namespace
