#include "MessagesMenu.h"

#include <locale>
#include <stdexcept>

#include <boost/format.hpp>

#include <wx/frame.h>
#include <wx/menu.h>

#include "AskCommands.h"
#include "DetailsCommands.h"
#include "SampleCommands.h"
#include "dialogs/CheckBoxMessageBox.h"
#include "dialogs/CustomMessageBoxDlg.h"
#include "dialogs/DontShowAgainMessageBox.h"
#include "dialogs/VxMessageBox.h"
#include "frame/AppProfile.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

using vx3::Tr;

wchar_t const kSampleDontShowAgainKey[] = L"SampleCalculationFinished";

namespace {

// A sample-only help topic: Help stays disabled until a help viewer exists.
constexpr unsigned int kSampleHelpTopic = 1001;

wxString AnswerName(int64_t answer) {
  switch (answer) {
    case 0: return Tr("Answer", "none (muted)");
    case IDOK: return Tr("Answer", "OK");
    case IDCANCEL: return Tr("Answer", "Cancel");
    case IDYES: return Tr("Answer", "Yes");
    case IDNO: return Tr("Answer", "No");
    default: return wxString::Format("%lld", static_cast<long long>(answer));
  }
}

// A translated text with %1% and %2% filled in.
wxString Say(wxString const & text, wxString const & first, wxString const & second = wxString()) {
  boost::format format(text.utf8_string());
  format.exceptions(boost::io::no_error_bits);
  return wxString::FromUTF8((format % first.utf8_string() % second.utf8_string()).str());
}

void Report(wxFrame & frame, int64_t answer) {
  frame.SetStatusText(Say(Tr("The box was answered: %1%."), AnswerName(answer)));
}

std::wstring W(wxString const & text) { return text.ToStdWstring(); }

// A box whose OK handler fails: the dialog's guard stops the exception and
// shows it in the internal-error dialog (Ignore carries on, Exit ends).
class FailingMessageBox : public CustomMessageBoxDlg {
public:
  FailingMessageBox() : CustomMessageBoxDlg(MB_OKCANCEL | MB_ICONHAND) {
    SetText(
        Tr("Press OK: its handler throws an exception, which the dialog stops and "
           "reports in the internal-error dialog."));
    Bind(
        wxEVT_BUTTON,
        [](wxCommandEvent &) -> void {
          throw std::runtime_error("The sample's OK handler failed on purpose.");
        },
        IDOK);
  }
};

}  // namespace

wxMenu * CreateMessagesMenu(wxFrame & frame) {
  auto * menu = new wxMenu;
  menu->Append(kOkBoxCommand, Tr("Menu command", "&Information (OK)"));
  menu->Append(kOkCancelBoxCommand, Tr("Menu command", "&Warning (OK, Cancel)"));
  menu->Append(kYesNoBoxCommand, Tr("Menu command", "&Question (Yes, No)"));
  menu->Append(kRelabelledBoxCommand, Tr("Menu command", "&Relabelled buttons (Yes, No, Cancel)"));
  menu->Append(kHelpBoxCommand, Tr("Menu command", "With a &help topic"));
  menu->Append(kCheckBoxCommand, Tr("Menu command", "With a &check box"));
  menu->AppendSeparator();
  menu->Append(kDontShowAgainCommand, Tr("Menu command", "&Don't-show-again message"));
  menu->Append(kForgetAnswersCommand, Tr("Menu command", "&Forget the stored answers"));
  menu->AppendSeparator();
  menu->Append(kFailingHandlerCommand, Tr("Menu command", "&Failure in a dialog handler"));
  AppendDetailsCommands(*menu, frame);
  AppendAskCommands(*menu, frame);

  auto on = [&frame](int command, auto action) {
    frame.Bind(
        wxEVT_MENU, [&frame, action](wxCommandEvent &) { action(frame); }, command);
  };
  on(kOkBoxCommand, [](wxFrame & f) {
    std::wstring const text = W(Tr("The measurement has been saved."));
    Report(f, VxMessageBox(text.c_str(), MB_OK | MB_ICONINFORMATION));
  });
  on(kOkCancelBoxCommand, [](wxFrame & f) {
    std::wstring const text = W(Tr("The calibration is older than a month. Measure anyway?"));
    Report(f, VxMessageBox(text.c_str(), MB_OKCANCEL | MB_ICONWARNING));
  });
  on(kYesNoBoxCommand, [](wxFrame & f) {
    std::wstring const text = W(Tr("Add the new runs to the project?"));
    Report(f, VxMessageBox(text.c_str(), MB_YESNO | MB_ICONQUESTION));
  });
  on(kRelabelledBoxCommand, [](wxFrame & f) {
    std::wstring const text =
        W(Tr("The run \"Calibration 12\" has changed. Save the changes "
             "before the project closes?"));
    std::wstring const save = W(Tr("&Save")), discard = W(Tr("&Discard"));
    Report(f, VxMessageBox(text.c_str(), MB_YESNOCANCEL | MB_ICONQUESTION, save.c_str(),
                           discard.c_str()));
  });
  on(kHelpBoxCommand, [](wxFrame & f) {
    CustomMessageBoxDlg box(MB_OK | MB_ICONINFORMATION, kSampleHelpTopic);
    box.SetText(
        Tr("This box has a Help button for its topic. It is disabled while the "
           "application has no help viewer."));
    Report(f, box.DoModal());
  });
  on(kCheckBoxCommand, [](wxFrame & f) {
    std::wstring const text = W(Tr("Close the project \"Stability 2026\"?"));
    std::wstring const check = W(Tr("&Close the other projects too"));
    bool checked = false;
    int64_t const answer = CheckBoxMessageBox(text.c_str(), checked, MB_YESNO, check.c_str());
    f.SetStatusText(Say(Tr("The box was answered: %1%, the check box is %2%."), AnswerName(answer),
                        checked ? Tr("ticked") : Tr("not ticked")));
  });
  on(kDontShowAgainCommand, [](wxFrame & f) {
    std::wstring const text =
        W(Tr("The calculation has finished. Tick the box to keep your answer: this message "
             "will not be shown again until the stored answers are forgotten."));
    bool const asks = ShowDontShowAgainMessage(kSampleDontShowAgainKey);
    int const answer = VxDontShowAgainMessageBox(kSampleDontShowAgainKey, text.c_str(),
                                                 MB_OKCANCEL | MB_ICONINFORMATION);
    if (asks)
      Report(f, answer);
    else
      f.SetStatusText(Say(Tr("Not shown: the stored answer is %1%."), AnswerName(answer)));
  });
  on(kForgetAnswersCommand, [](wxFrame & f) {
    std::string const section = vx3::WideToUtf8(GetDontShowAgainRegistrySection());
    AppProfile::WriteProfileString(section.c_str(), nullptr, nullptr);
    f.SetStatusText(Tr("The stored answers are forgotten."));
  });
  on(kFailingHandlerCommand, [](wxFrame & f) {
    FailingMessageBox box;
    Report(f, box.DoModal());
  });
  return menu;
}
